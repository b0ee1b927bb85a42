#include <algorithm>

#include "input/characters.h"
#include "kit/diagnose/site.h"
#include "kit/lint/rules.h"

// A condition that cannot be read is not told by a message: the one before it decides
// whether what follows is skipped, and at first it is.
//
//     #if(A)         a name without its sign
//     #if(~A == 1)   nothing is compared
//     #if(.5)        a number begins with a digit

namespace vorn::kit::rules {

namespace {

constexpr std::string_view BEGIN = "#if(";

bool is_value(std::string_view text) {
    if (text.empty() || !(is_digit(text[0]) || text[0] == '~' || text[0] == '$')) return false;
    // In an equation macros are not expanded.
    return text.find_first_of(text[0] == '~' ? "=<>$" : "=<>", 1) == std::string_view::npos;
}

void check_condition(int file, std::string_view text, std::size_t at, Findings& findings) {
    const std::size_t line_end = line_around(text, at).end;
    const std::size_t begin = std::min(next_visible(text, at + BEGIN.size()), line_end);
    const std::size_t end = std::min(text.find(')', begin), line_end);
    const std::string_view value = text.substr(begin, end - begin);
    if (!is_first_on_line(text, at) || is_value(value)) return;
    Diagnostic diagnostic = findings.at(FileSpan{file, at, std::min(end + 1, line_end)});
    diagnostic.text = "This condition cannot be read, and may skip what follows.";
    diagnostic.advice.push_back(
        "Write a call, #if(~A) or #if($A), or a number that begins with a digit; nothing is compared.");
    findings.add(std::move(diagnostic));
}

}  // namespace

void condition_not_read(const ScoreRun& run, Findings& findings) {
    int number = 0;
    for (const SourceFile& file : run.map.files()) {
        for (std::size_t at = file.text.find(BEGIN); at != std::string::npos;
             at = file.text.find(BEGIN, at + 1)) {
            check_condition(number, file.text, at, findings);
        }
        ++number;
    }
}

}  // namespace vorn::kit::rules
