#pragma once

#include <cstdint>
#include <cstdio>

#include "input/messages.h"
#include "input/reader.h"

// The preprocessor's entry points: what the line buffer, the driver and the
// global commands call. Nothing else of preproc/ is included from outside.

namespace vorn {

// Marks the places of a line that belong to macro definition text, where
// constants are not expanded. One per line fetched, never shared.
struct DefinitionMarks {
    bool plain = false;  // the line holds nothing that either scan looks for
    bool marked[LINE_SIZE] = {};
};

// --- called by the line buffer for each fresh line ---

bool in_if0();                                      // a false conditional block is being skipped
bool is_if(const char* text, std::int32_t pos);     // "if(" at pos
bool is_endif(const char* text, std::int32_t pos);  // "endif" at pos
[[nodiscard]] int do_if_interface(Reader& reader);  // pos on "if("
[[nodiscard]] int do_endif(Reader& reader);         // pos on "endif"
[[nodiscard]] int parse_macros(Reader& reader, DefinitionMarks& marks);
[[nodiscard]] int parse_variables(Reader& reader, const DefinitionMarks& marks);

// --- called by global commands ---

[[nodiscard]] int parse_macro(Reader& reader);  // pos behind "#"
[[nodiscard]] int parse_var(Reader& reader);    // pos behind "#"

// --- called by the driver ---

// A file whose includes are resolved, and who is told where its bytes go.
struct WatchedSource {
    Observer* observer = nullptr;
    const char* name = nullptr;
    int depth = 0;                            // 0 the input itself
    std::int64_t directive_offset = 0;        // of the "#" that names it in the including file
    std::FILE* stream = nullptr;              // null: not yet open
    const WatchedSource* includer = nullptr;  // null: the input itself
};

// Whether a file that an include directive names may be copied; false with the message
// printed and told to whom the place says. Asked before it is opened, for opening may
// wait for ever, and once it is, before anything of it is read.
using IncludeCheck = bool (*)(const WatchedSource& included, const MessagePlace& place);

// Copies the stream with every include file spliced in. Returns 0 or a positive
// number, the message then already printed; a read error of `in` itself and a write
// error of `out`, which ends the copying, are left in the streams. `count` is the
// run's include counter; without a check every file may be copied.
[[nodiscard]] int parse_includes(std::FILE* in, std::FILE* out, int& count,
                                 IncludeCheck may_include = nullptr, const WatchedSource& source = {});

bool ifdef_match();  // every "#if" has met its "#endif"
void free_macro_list();
void free_variable_list();
void reset_preprocessor();

}  // namespace vorn
