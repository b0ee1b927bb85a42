#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Lines and characters of a text, found without reading it from its beginning again.

namespace vorn::kit {

class TextIndex {
public:
    explicit TextIndex(std::string_view text);

    // Lines count from 0. The text is the one that the index was made of.
    std::size_t line_of(std::size_t offset) const;
    std::size_t line_begin(std::size_t line) const { return line_begins_[line]; }
    std::string_view line(std::string_view text, std::size_t line) const;  // without its end

    // Characters of UTF-8 in the bytes [begin, end); a byte that is part of none counts as one
    // unless it has the form of a continuation.
    std::size_t characters(std::string_view text, std::size_t begin, std::size_t end) const;

private:
    std::size_t characters_before(std::string_view text, std::size_t offset) const;

    std::vector<std::size_t> line_begins_;       // rising, the first 0
    std::vector<std::size_t> character_counts_;  // before each stretch of the text
};

// Whether a byte continues a character of UTF-8.
constexpr bool continues_character(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::size_t count_characters(std::string_view text);

}  // namespace vorn::kit
