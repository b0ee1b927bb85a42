#pragma once

#include <cstdio>
#include <string>

#include "input/messages.h"
#include "input/run_flags.h"

namespace vorn::test {

// Catches what the program writes to its standard error while it lives.
class MessageCapture {
public:
    MessageCapture() : stream_(std::tmpfile()), saved_(std_err) {
        reset_messages();
        std_err = stream_;
    }
    ~MessageCapture() {
        std_err = saved_;
        std::fclose(stream_);
    }
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;

    // What has been written since the last call.
    std::string text() {
        std::string caught(static_cast<std::size_t>(std::ftell(stream_)), '\0');
        std::rewind(stream_);
        caught.resize(std::fread(caught.data(), 1, caught.size(), stream_));
        std::rewind(stream_);
        return caught;
    }

private:
    std::FILE* stream_;
    std::FILE* saved_;
};

}  // namespace vorn::test
