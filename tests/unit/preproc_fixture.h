#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "generators/random.h"
#include "input/line_buffer.h"
#include "input/messages.h"
#include "input/reader.h"
#include "input/run_flags.h"
#include "output/durations.h"
#include "output/tempo_map.h"
#include "preproc/preprocessor.h"

// What the preprocessor's tests share: a line as the expanding routines take it,
// and a small reader that fetches every line of a text and runs its "#" commands.

namespace vorn::test {

// A text with room to grow and a place in it.
struct Line {
    char text[vorn::LINE_SIZE] = {};
    std::int32_t pos = 0;

    explicit Line(const std::string& content, std::int32_t start = 0) : pos(start) {
        std::memcpy(text, content.c_str(), content.size() + 1);
    }
};

struct Outcome {
    int result = 0;     // the first error, or 0
    std::string lines;  // what the commands and conditionals have left, blank lines left out
    vorn::Reader reader;
};

class PreprocessorTest : public testing::Test {
protected:
    void SetUp() override {
        reset();
        messages_ = open_memstream(&bytes_, &size_);
        vorn::std_err = messages_;
    }

    void TearDown() override {
        reset();
        std::fclose(messages_);
        std::free(bytes_);
    }

    // Everything printed so far, which is then forgotten.
    std::string messages() {
        std::fflush(messages_);
        const std::string text(bytes_, size_);
        std::rewind(messages_);
        return text;
    }

    // Fetches every line of a text from a fresh start.
    Outcome run(const std::string& text) {
        vorn::reset_preprocessor();
        Outcome outcome;
        outcome.reader.stream = open_text(text);
        while (outcome.result == 0) {
            outcome.result = vorn::get_buff(outcome.reader);
            if (outcome.result == 0) outcome.result = run_commands(outcome.reader);
            if (outcome.result == 0) keep_rest(outcome);
        }
        if (outcome.result == vorn::END_OF_INPUT) outcome.result = 0;
        std::fclose(outcome.reader.stream);
        outcome.reader.stream = nullptr;
        return outcome;
    }

    static std::FILE* open_text(const std::string& text) {
        std::FILE* stream = std::tmpfile();
        std::fwrite(text.data(), 1, text.size(), stream);
        std::rewind(stream);
        return stream;
    }

    static void skip_blanks(vorn::Reader& reader) {
        while (reader.text[reader.pos] == ' ') ++reader.pos;
    }

private:
    static void reset() {
        vorn::reset_run_flags();
        vorn::reset_messages();
        vorn::reset_preprocessor();
        vorn::reset_random();
        vorn::reset_durations();
        vorn::reset_tempo_map();
    }

    static int run_commands(vorn::Reader& reader) {
        for (skip_blanks(reader); reader.text[reader.pos] == '#'; skip_blanks(reader)) {
            ++reader.pos;
            const bool constant = reader.text[reader.pos] == 'c';
            const int result = constant ? vorn::parse_var(reader) : vorn::parse_macro(reader);
            if (result != 0) return result;
        }
        return 0;
    }

    static void keep_rest(Outcome& outcome) {
        std::string rest = outcome.reader.text + outcome.reader.pos;
        while (!rest.empty() && rest.back() == ' ') rest.pop_back();
        if (rest.empty()) return;
        if (!outcome.lines.empty()) outcome.lines += '\n';
        outcome.lines += rest;
    }

    std::FILE* messages_ = nullptr;
    char* bytes_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace vorn::test
