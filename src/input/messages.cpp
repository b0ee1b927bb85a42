#include "input/messages.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "input/errors.h"
#include "input/message_table.h"
#include "input/real_text.h"
#include "input/run_flags.h"
#include "input/terminal_text.h"

// A message is composed in one buffer and written once per destination: when it
// is complete, and before that whenever the buffer is full. A file, a pipe and the
// log get its bytes as they are; a terminal is shown what it might obey escaped.

namespace vorn {

MessageBuffer MESSAGES;

namespace {

bool is_terminal(std::FILE* stream) { return ON_TERMINAL && stream == std_err; }

void write_to(std::FILE* stream, const char* text, std::size_t size) {
    if (is_terminal(stream)) {
        write_to_terminal(stream, text, size);
    } else {
        std::fwrite(text, 1, size, stream);
    }
}

// To standard error and to the log.
void write_text(const char* text, std::size_t size) {
    write_to(std_err, text, size);
    if (MKLOG && fllog != nullptr) write_to(fllog, text, size);
}

void flush_messages() {
    write_text(MESSAGES.data, MESSAGES.used);
    MESSAGES.used = 0;
}

void append(const char* bytes, std::size_t size) {
    while (size > 0) {
        if (MESSAGES.used == sizeof MESSAGES.data) flush_messages();
        const std::size_t room = sizeof MESSAGES.data - MESSAGES.used;
        const std::size_t part = size < room ? size : room;
        std::memcpy(MESSAGES.data + MESSAGES.used, bytes, part);
        MESSAGES.used += part;
        bytes += part;
        size -= part;
    }
}

// Whether the value survives the way through a float, or is no number.
bool is_float(double value) {
    if (std::isnan(value)) return true;
    return std::fabs(value) <= std::numeric_limits<float>::max() &&
           static_cast<double>(static_cast<float>(value)) == value;
}

// As "%7.2f". Nearly every real in a message is a float, and a trace holds
// several on each of its lines, so those are formatted without the library.
void append_real(double value) {
    char digits[400];  // the largest double has 309 digits before the point
    if (is_float(value)) {
        const char* end = format_real(digits, static_cast<float>(value), 7, 2);
        append(digits, static_cast<std::size_t>(end - digits));
        return;
    }
    const int size = std::snprintf(digits, sizeof digits, "%7.2f", value);
    append(digits, static_cast<std::size_t>(size));
}

void append_integer(std::int64_t value) {
    char digits[32];
    const int size = std::snprintf(digits, sizeof digits, "%lld", static_cast<long long>(value));
    append(digits, static_cast<std::size_t>(size));
}

// Writes one value as the letter behind "%" asks; false when the letter takes no value.
bool append_value(char conversion, const MessageValue* value) {
    switch (conversion) {
        case 'c': {
            const char c = static_cast<char>(value->integer);
            append(&c, 1);
            return true;
        }
        case 'd':
            append_integer(value->integer);
            return true;
        case 's':
            append(value->text, std::strlen(value->text));
            return true;
        case 'f':
            append_real(value->real);
            return true;
        default:
            return false;
    }
}

// The blanks in front of a caret under pos: one for each byte, and on a terminal
// as many as it shows. Returns their number.
std::size_t blanks_before(const char* text, std::int32_t pos, bool on_terminal, char* blanks) {
    const char* const end = text + std::strlen(text);
    std::size_t size = 0;
    for (const char* at = text; at < text + pos;) {
        const TerminalCharacter character = terminal_character(at, static_cast<std::size_t>(end - at));
        const std::size_t columns = on_terminal && character.is_escaped ? ESCAPE_SIZE : 1;
        for (std::size_t k = 0; k < character.size && at < text + pos; ++k, ++at) {
            std::memset(blanks + size, *at == '\t' ? '\t' : ' ', columns);
            size += columns;
        }
    }
    return size;
}

// Puts the message into the buffer; one that fills it goes on at the buffer's beginning.
void compose(const char* format, std::initializer_list<MessageValue> values) {
    const MessageValue* value = values.begin();
    for (const char* at = format; *at != 0;) {
        const char* percent = std::strchr(at, '%');
        if (percent == nullptr) {
            append(at, std::strlen(at));
            break;
        }
        append(at, static_cast<std::size_t>(percent - at));
        const char conversion = percent[1];
        if (conversion == 0) break;
        if (value != values.end() && append_value(conversion, value)) {
            ++value;
        } else {
            append(&conversion, 1);
        }
        at = percent + 2;
    }
}

// Tells the observer, if there is one, of the message in the buffer.
void tell(Severity severity, int number, const MessagePlace& where) {
    if (where.observer == nullptr) return;
    where.observer->on_message({severity, number, MESSAGES.data, MESSAGES.used, where.place, where.line_text,
                                where.directive_offset});
}

MessagePlace place_of(std::uint64_t line, const char* text, std::int32_t pos, Observer* observer) {
    MessagePlace where(observer);
    where.place = {line, pos};
    where.line_text = text;
    return where;
}

// The echo of a line with its caret, on standard error and in the log.
void echo_line(const char* text, std::int32_t pos) {
    put_buff(std_err, text, pos);
    if (MKLOG && fllog != nullptr) put_buff(fllog, text, pos);
}

}  // namespace

void write_message(const char* format, std::initializer_list<MessageValue> values) {
    compose(format, values);
    flush_messages();
}

void write_told_message(Severity severity, const MessagePlace& place, const char* format,
                        std::initializer_list<MessageValue> values) {
    compose(format, values);
    tell(severity, 0, place);
    flush_messages();
}

void tell_error(Observer* observer, const char* text) {
    compose("%s", {text});
    tell(Severity::ERROR, 0, observer);
    MESSAGES.used = 0;
}

void print_text(const char* text, std::size_t size) { write_text(text, size); }

void error_no(int number, std::uint64_t line, const char* text, std::int32_t pos, Observer* observer) {
    if (number == error::ALREADY_PRINTED) return;
    if (number < FIRST_LINE_FORM) {
        compose("\nERROR: %s\n\n", {error_text(number)});
    } else if (number != error::PRINTED_ECHO_LEFT) {
        compose("\n\nERROR: Line %d:%s\n", {line, error_text(number)});
    }
    tell(Severity::ERROR, number, place_of(line, text, pos, observer));
    flush_messages();
    if (number >= FIRST_LINE_FORM) echo_line(text, pos);
}

void warning_no(int number, std::uint64_t line, const char* text, std::int32_t pos, Observer* observer) {
    if (SUPRESS && observer == nullptr) return;
    if (number < FIRST_LINE_FORM) {
        compose("\nWARNING: %s", {warning_text(number)});
    } else {
        compose("\n\nWARNING: Line %d:%s\n", {line, warning_text(number)});
    }
    tell(Severity::WARNING, number, place_of(line, text, pos, observer));
    if (SUPRESS) {
        MESSAGES.used = 0;
        return;
    }
    flush_messages();
    if (number >= FIRST_LINE_FORM) echo_line(text, pos);
}

void put_buff(std::FILE* stream, const char* text, std::int32_t pos) {
    char echo[(1 + ESCAPE_SIZE) * LINE_SIZE + 4];
    std::size_t size = 0;
    for (const char* c = text; *c != 0; ++c) echo[size++] = *c == '\n' ? 'L' : *c;
    echo[size++] = '\n';
    if (*text != 0) {
        size += blanks_before(text, pos, is_terminal(stream), echo + size);
        echo[size++] = '^';
    }
    echo[size++] = '\n';
    write_to(stream, echo, size);
}

void reset_messages() { MESSAGES.used = 0; }

}  // namespace vorn
