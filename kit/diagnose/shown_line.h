#pragma once

#include <string>
#include <string_view>
#include <vector>

// What is shown of a line: the part around its mark.

namespace vorn::kit {

struct ShownLine {
    std::string text;
    std::size_t begin = 0;  // bytes [begin, end) of text are marked
    std::size_t end = 0;
};

// The line, or of a long one what stands around the mark, with "..." where it is cut.
[[nodiscard]] ShownLine shown_line(std::string_view line, std::size_t begin, std::size_t end);

// A text of several lines: the one in which the mark begins, and a few around it.
struct ShownText {
    std::vector<std::string> before;
    ShownLine line;
    std::vector<std::string> after;
};
[[nodiscard]] ShownText shown_text(std::string_view text, std::size_t begin, std::size_t end);

// The same with what might command a terminal written as "\x1B".
[[nodiscard]] ShownLine escaped(const ShownLine& excerpt);
[[nodiscard]] std::string escaped(std::string_view text);

// The line to stand below: blanks and tabs as before the mark, then a mark for each
// of its characters, at least one.
[[nodiscard]] std::string marks_below(const ShownLine& excerpt);

}  // namespace vorn::kit
