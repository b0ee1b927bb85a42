#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "input/reader.h"

// Messages: the program's own small formatter and the numbered errors and
// warnings. Everything goes to standard error and, with a log, to the log too.
// On a terminal control characters are escaped, as terminal_text.h tells.

namespace vorn {

// One argument of Mprintf.
struct MessageValue {
    enum class Kind { INTEGER, REAL, TEXT } kind;
    union {
        std::int64_t integer;
        double real;
        const char* text;
    };

    template <std::integral Integer>
    MessageValue(Integer value) : kind(Kind::INTEGER), integer(static_cast<std::int64_t>(value)) {}
    MessageValue(double value) : kind(Kind::REAL), real(value) {}
    MessageValue(const char* value) : kind(Kind::TEXT), text(value) {}
};

void write_message(const char* format, std::initializer_list<MessageValue> values);

// "%c" a character, "%d" a 64-bit integer, "%s" a text, "%f" a real as "%7.2f";
// "%" before any other character prints that character and takes no argument,
// so flags, widths and precisions are not understood. Kept minimal on purpose.
template <typename... Values>
void Mprintf(const char* format, const Values&... values) {
    write_message(format, {MessageValue(values)...});
}

// A text of `size` bytes, which is no format.
void print_text(const char* text, std::size_t size);

// Where a message belongs, and who is told of it.
struct MessagePlace {
    MessagePlace(Observer* watcher = nullptr) : observer(watcher) {}
    MessagePlace(const WatchedLine& watched) : observer(watched.observer), place{watched.number, 0} {}
    MessagePlace(const Reader& reader)
        : observer(reader.observer), place{reader.line, reader.pos}, line_text(reader.text) {}

    Observer* observer;
    LinePlace place;
    const char* line_text = nullptr;
    std::int64_t directive_offset = -1;
};

// A message without a number, as Mprintf prints it. The observer gets it whole.
void write_told_message(Severity severity, const MessagePlace& place, const char* format,
                        std::initializer_list<MessageValue> values);

template <typename... Values>
void print_error(const MessagePlace& place, const char* format, const Values&... values) {
    write_told_message(Severity::ERROR, place, format, {MessageValue(values)...});
}

template <typename... Values>
void print_warning(const MessagePlace& place, const char* format, const Values&... values) {
    write_told_message(Severity::WARNING, place, format, {MessageValue(values)...});
}

// Tells the observer of an error that has been printed some other way.
void tell_error(Observer* observer, const char* text);

// The message that is being composed. Written by write_message only.
struct MessageBuffer {
    std::size_t used = 0;  // bytes waiting in data; 0 between two messages
    char data[1 << 16];
};
extern MessageBuffer MESSAGES;

constexpr int FIRST_LINE_FORM = 10;  // numbers below it are printed without line number and echo

// Prints error `number`: 3 to 9 plain, from 10 with line number and echo;
// 999 prints nothing, 1000 only the echo.
void error_no(int number, std::uint64_t line, const char* text, std::int32_t pos,
              Observer* observer = nullptr);
inline void error_no(int number, const Reader& reader) {
    error_no(number, reader.line, reader.text, reader.pos, reader.observer);
}

// Prints warning `number` unless SUPRESS: up to 9 short, from 10 with line number and
// echo. The observer is told either way.
void warning_no(int number, std::uint64_t line, const char* text, std::int32_t pos,
                Observer* observer = nullptr);
inline void warning_no(int number, const Reader& reader) {
    warning_no(number, reader.line, reader.text, reader.pos, reader.observer);
}

// Writes the text (a line feed shown as "L") and, below it, a caret under pos.
void put_buff(std::FILE* stream, const char* text, std::int32_t pos);

void reset_messages();

}  // namespace vorn
