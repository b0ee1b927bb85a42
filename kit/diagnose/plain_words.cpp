#include "kit/diagnose/plain_words.h"

#include <algorithm>

// Line ends within a text of the engine are layout of the terminal that it was
// made for; here words are laid out anew.

namespace vorn::kit {

std::string on_one_line(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const bool is_blank = c == ' ' || c == '\n';
        if (is_blank && !line.empty() && line.back() == ' ') continue;
        line += is_blank ? ' ' : c;
    }
    if (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}

std::string wrapped(std::string_view text, std::size_t width) {
    std::string lines;
    std::size_t column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const bool fits = column + 1 + word.size() <= width;
        if (column > 0) lines += fits ? ' ' : '\n';
        column = column > 0 && fits ? column + 1 + word.size() : word.size();
        lines += word;
    }
    return lines + '\n';
}

std::string indented(std::string_view text, std::string_view indent) {
    std::string lines;
    bool begins = true;
    for (const char c : text) {
        if (begins && c != '\n') lines += indent;
        lines += c;
        begins = c == '\n';
    }
    return lines;
}

}  // namespace vorn::kit
