#include "web/vorn-wasm/engine/run_streams.h"

#include <cstdio>
#include <cstdlib>

// Standard output and error of a run are streams that write to memory, so that
// nothing leaves the module but what its caller asks for.

namespace vorn::web {

namespace {

class MemoryStream {
public:
    MemoryStream() : stream_(open_memstream(&text_, &size_)) {}
    ~MemoryStream() {
        if (stream_ != nullptr) std::fclose(stream_);
        std::free(text_);
    }
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    std::FILE* stream() const { return stream_; }

    std::string text() {
        std::fflush(stream_);
        return {text_, size_};
    }

private:
    char* text_ = nullptr;
    std::size_t size_ = 0;
    std::FILE* stream_;
};

}  // namespace

SaidTexts run_vorn(const std::vector<std::string>& arguments, Observer* observer) {
    MemoryStream out;
    MemoryStream err;
    if (out.stream() == nullptr || err.stream() == nullptr) std::abort();
    std::vector<const char*> argv = {"vorn"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    argv.push_back(nullptr);
    SaidTexts said;
    said.status =
        run_program(static_cast<int>(argv.size()) - 1, argv.data(), {out.stream(), err.stream(), observer});
    said.out = out.text();
    said.err = err.text();
    return said;
}

}  // namespace vorn::web
