#pragma once

#include <cstddef>
#include <cstdint>

#include "input/reader.h"

// Names of macros, formal arguments and constants: a letter, then letters,
// digits and "_". A name is met as a stretch of a text and kept as a copy.

namespace vorn {

constexpr std::size_t MAX_NAME_LENGTH = LINE_SIZE - 1;  // of a definition; its message: report_too_long

// A stretch of text; not terminated.
struct Name {
    const char* start;
    std::size_t length;
};

// The name at pos, empty where no letter stands. Leaves pos behind it.
Name read_name(const char* text, std::int32_t& pos);

Name whole_name(const char* name);  // of a terminated name

bool same_name(const Name& name, const char* other);

// An owned, terminated copy of a stretch of text; null when memory runs out.
[[nodiscard]] char* copy_text(const char* start, std::size_t length);
[[nodiscard]] char* copy_text(const char* text);

// Reads the name that a definition gives. Returns 0 with an owned copy, `no_letter`
// where no letter stands, 1000 with its message printed for a name beyond the limit,
// `no_memory` when memory runs out. `kind` is what the message calls it.
struct NameErrors {
    const char* kind;
    int no_letter;
    int no_memory;
};
[[nodiscard]] int read_defined_name(char*& copy, const NameErrors& errors, const char* text,
                                    std::int32_t& pos, const WatchedLine& line);

// Prints that a `part` ("macro body") has exceeded its limit; returns 1000.
int report_too_long(const char* part, const WatchedLine& line);

// Prints that no `kind` ("macro", "constant") has that name; returns 1000.
int report_unknown(const char* kind, const Name& name, const WatchedLine& line);

}  // namespace vorn
