#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// A text that is too large to be held: it is made in a buffer and handed on piece by
// piece. Numbers are the shortest ones that read back as the same float.

namespace vorn::kit {

// Where the pieces go.
class TextSink {
public:
    virtual ~TextSink() = default;

    // False: it takes no more, as on a full disk.
    [[nodiscard]] virtual bool take(std::string_view piece) = 0;
};

class TableText {
public:
    explicit TableText(TextSink& sink);
    TableText(const TableText&) = delete;
    TableText& operator=(const TableText&) = delete;

    void text(std::string_view text);
    void character(char c) { text({&c, 1}); }
    void number(std::uint64_t value);
    // `otherwise` stands for what is no finite number.
    void number(float value, std::string_view otherwise);

    // Room for `size` bytes, MAX_SPACE at most; what was written into it ends at the
    // place given to advance().
    char* space(std::size_t size);
    void advance(const char* end) { size_ = static_cast<std::size_t>(end - buffer_.data()); }

    bool takes_more() const { return takes_more_; }
    // Hands the rest on. False: not all of the text was taken.
    [[nodiscard]] bool finish();

    static constexpr std::size_t MAX_SPACE = 1024;

private:
    void hand_on();

    TextSink& sink_;
    std::string buffer_;
    std::size_t size_ = 0;
    bool takes_more_ = true;
};

}  // namespace vorn::kit
