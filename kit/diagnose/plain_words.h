#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts of sentences, laid out for where they are shown.

namespace vorn::kit {

// Line feeds and the blanks around them become one blank, those at the end nothing.
[[nodiscard]] std::string on_one_line(std::string_view text);

// Lines of at most `width` characters, each with its line feed; a longer word gets a line.
[[nodiscard]] std::string wrapped(std::string_view text, std::size_t width);

// Each line behind `indent`.
[[nodiscard]] std::string indented(std::string_view text, std::string_view indent);

}  // namespace vorn::kit
