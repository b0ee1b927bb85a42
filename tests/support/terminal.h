#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace vorn::test {

// A terminal without anybody before it, which changes no byte that it is shown.
// It holds some thousand bytes until they are taken.
class Terminal {
public:
    Terminal() : screen_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (screen_ < 0 || grantpt(screen_) != 0 || unlockpt(screen_) != 0) {
            throw std::runtime_error("no terminal");
        }
        stream_ = std::fopen(name().c_str(), "w");
        if (stream_ == nullptr) throw std::runtime_error("no terminal " + name());
        termios settings = {};
        tcgetattr(fileno(stream_), &settings);
        cfmakeraw(&settings);
        tcsetattr(fileno(stream_), TCSANOW, &settings);
    }
    ~Terminal() {
        take();
        close(screen_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    std::string name() const { return ptsname(screen_); }
    std::FILE* stream() const { return stream_; }

    // All that it was shown, once nobody else writes to it. Closes the stream.
    std::string take() {
        if (stream_ != nullptr) std::fclose(stream_);
        stream_ = nullptr;
        std::string shown;
        char part[4096];
        for (ssize_t size = 1; size > 0;) {  // below 0 when the last writer has gone
            size = read(screen_, part, sizeof part);
            if (size > 0) shown.append(part, static_cast<std::size_t>(size));
        }
        return shown;
    }

private:
    int screen_;
    std::FILE* stream_ = nullptr;
};

}  // namespace vorn::test
