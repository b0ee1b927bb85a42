#pragma once

#include <cstdio>
#include <string>

#include "input/messages.h"
#include "input/reader.h"
#include "input/run_flags.h"
#include "preproc/preprocessor.h"

namespace vorn::test {

// A score description in a stream, and a Reader over it that has read no line
// yet. What lines leave behind in the preprocessor and the flags goes with it.
class ScoreText {
public:
    explicit ScoreText(const std::string& text) {
        reset();
        reader.stream = std::tmpfile();
        std::fwrite(text.data(), 1, text.size(), reader.stream);
        std::rewind(reader.stream);
    }
    ~ScoreText() {
        std::fclose(reader.stream);
        reset();
    }
    ScoreText(const ScoreText&) = delete;
    ScoreText& operator=(const ScoreText&) = delete;

    // What is left of the current line.
    std::string rest() const { return reader.text + reader.pos; }

    Reader reader;

private:
    static void reset() {
        reset_run_flags();
        reset_messages();
        reset_preprocessor();
    }
};

}  // namespace vorn::test
