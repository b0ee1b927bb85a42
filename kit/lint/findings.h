#pragma once

#include <map>
#include <string>

#include "kit/lint/lint.h"

// What the rules have found so far.

namespace vorn::kit {

class Findings {
public:
    Findings(const ScoreRun& run, const LintOptions& options) : run_(run), options_(options) {}

    // The code of what is added from here on.
    void set_code(std::string code) {
        code_ = std::move(code);
        file_ = -1;
    }

    // A finding about the expanded text from `begin` to `last`, both included.
    Diagnostic at(const LinePlace& begin, const LinePlace& last) const;
    Diagnostic at(const FileSpan& span) const;

    void add(Diagnostic diagnostic);  // unless it is silenced or there are many of its kind

    std::vector<Diagnostic> take();  // the last of a kind tells how many are left out

private:
    bool is_silenced(const FileSpan& span);
    std::size_t most_of(const std::string& code) const;

    const ScoreRun& run_;
    const LintOptions& options_;
    std::string code_;
    std::map<std::string, std::size_t> counts_;  // by code
    std::vector<Diagnostic> found_;
    // The line asked last, which thousands of findings may share; file -1: none for this code.
    int file_ = -1;
    std::size_t line_ = 0;
    bool is_line_silenced_ = false;
};

// A number as messages write it: six digits at most, no zeros behind them.
std::string number_text(double value);

}  // namespace vorn::kit
