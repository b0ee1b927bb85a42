#include "kit/command/console.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "kit/diagnose/shown_line.h"

// A file's name may hold every byte but two, and a program's complaint any: what a
// terminal would obey is shown as the engine shows it, "\x1B". Whatever is no terminal
// gets the bytes.

namespace vorn::kit {

namespace {

bool is_set(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != 0;
}

}  // namespace

bool is_terminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

bool is_able_terminal(std::FILE* stream) {
    const char* const kind = std::getenv("TERM");
    return is_terminal(stream) && (kind == nullptr || std::string_view(kind) != "dumb");
}

TextStyle style_for(std::FILE* stream) {
    return {is_able_terminal(stream) && !is_set("NO_COLOR"), is_terminal(stream)};
}

void complain(const std::string& text) {
    const std::string shown = is_terminal(stderr) ? escaped(std::string_view(text)) : text;
    std::fprintf(stderr, "vornkit: %s\n", shown.c_str());
}

Outcome wrong_use(const std::string& reason) {
    complain(reason);
    return Outcome::WRONG_USE;
}

}  // namespace vorn::kit
