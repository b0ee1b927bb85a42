#include "preproc/names.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"

// Reading names. The longest stretch of name characters is the name, so a
// shorter name never matches the front of a longer one:
//
//     $ab_2(1'2)    the name is "ab_2", also where only a macro "a" exists
//
// An empty name is no error here; the caller says what it means.

namespace vorn {

Name read_name(const char* text, std::int32_t& pos) {
    const std::int32_t start = pos;
    if (is_letter(text[pos])) {
        while (is_name_char(text[pos])) ++pos;
    }
    return Name{text + start, static_cast<std::size_t>(pos - start)};
}

Name whole_name(const char* name) { return Name{name, std::strlen(name)}; }

bool same_name(const Name& name, const char* other) {
    return std::strncmp(name.start, other, name.length) == 0 && other[name.length] == 0;
}

char* copy_text(const char* start, std::size_t length) {
    char* copy = new (std::nothrow) char[length + 1];
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, start, length);
    copy[length] = 0;
    return copy;
}

char* copy_text(const char* text) { return copy_text(text, std::strlen(text)); }

int read_defined_name(char*& copy, const NameErrors& errors, const char* text, std::int32_t& pos,
                      const WatchedLine& line) {
    if (!is_letter(text[pos])) return errors.no_letter;
    const Name name = read_name(text, pos);
    if (name.length > MAX_NAME_LENGTH) return report_too_long(errors.kind, line);
    copy = copy_text(name.start, name.length);
    return copy == nullptr ? errors.no_memory : 0;
}

int report_too_long(const char* part, const WatchedLine& line) {
    print_error(line,
                "\n\nERROR: Line %d: The %s has exceeded the maximum number\nof characters allowed (%d).\n",
                line.number, part, LINE_SIZE);
    return error::PRINTED_ECHO_LEFT;
}

int report_unknown(const char* kind, const Name& name, const WatchedLine& line) {
    char copy[LINE_SIZE];
    const std::size_t length = std::min(name.length, sizeof copy - 1);
    std::memcpy(copy, name.start, length);
    copy[length] = 0;
    print_error(line, "\n\nERROR: Line %d: There is no %s \"%s\" in your input file!\n", line.number, kind,
                copy);
    return error::PRINTED_ECHO_LEFT;
}

}  // namespace vorn
