#include "preproc/conditionals.h"

#include "input/characters.h"
#include "input/errors.h"
#include "input/line_buffer.h"
#include "input/numbers.h"
#include "input/skip.h"
#include "preproc/constant_call.h"
#include "preproc/macro_call.h"
#include "preproc/preprocessor.h"

// Conditional blocks nest:
//
//     #if(1)                 read; IF_MATCH is 1
//     #if(0)                 skipped from here, with start level 1 ...
//     #if(1)                 ... counted, not evaluated ...
//     #endif
//     #endif                 ... to here, where IF_MATCH is 1 again
//     #endif                 IF_MATCH is 0
//
// A true block needs no state but the count: its lines are simply read. A false
// one is skipped at once, by fetching raw lines until its "#endif" is met.

namespace vorn {

int IF_MATCH = 0;
float IF_VALUE = 0;
unsigned char IN_IF0 = 0;

namespace {

constexpr std::int32_t IF_LENGTH = 3;  // "if("

bool matches(const char* text, std::int32_t pos, const char* word) {
    while (*word != 0 && text[pos] == *word) {
        ++word;
        ++pos;
    }
    return *word == 0;
}

// A macro call and then a constant at pos give way to their text.
int expand_value(char* text, std::int32_t& pos, const WatchedLine& line) {
    if (text[pos] == '$') {
        ExpansionBudget budget;
        ++pos;
        if (const int result = expand_macro(text, pos, line, budget)) return result;
    }
    if (text[pos] == '~') {
        ++pos;
        return expand_variables(text, pos, line);
    }
    return 0;
}

// What hides a "#" in skipped text. The two flags know nothing of each other, so
// that "/*" behind ";" opens a block comment: kept on purpose.
struct SkippedComments {
    bool line = false;
    bool block = false;

    void track(char c, char next) {
        if (c == ';') line = true;
        if (c == '/' && next == '*') block = true;
        if (c == '*' && next == '/') block = false;
    }
};

int fetch_skipped_line(Reader& reader, SkippedComments& comments) {
    comments.line = false;
    const int result = get_buff(reader);
    return result == END_OF_INPUT ? error::IF_REACHED_END : result;
}

// One character of skipped text, or a whole "#endif" and "#if("; `done` when the
// "#endif" belongs to the block opened at start_level.
int skip_character(Reader& reader, SkippedComments& comments, int start_level, bool& done) {
    const char c = reader.text[reader.pos++];
    if (c != '#' || comments.line || comments.block) {
        comments.track(c, reader.text[reader.pos]);
        return 0;
    }
    if (is_endif(reader.text, reader.pos)) {
        if (const int result = do_endif(reader)) return result;
        done = IF_MATCH == start_level;
    } else if (is_if(reader.text, reader.pos)) {
        ++IF_MATCH;
    }
    return 0;
}

int skip_false_block(Reader& reader, int start_level) {
    SkippedComments comments;
    for (bool done = false; !done;) {
        const int result = reader.text[reader.pos] == 0 ? fetch_skipped_line(reader, comments)
                                                        : skip_character(reader, comments, start_level, done);
        if (result > 0) return result;
    }
    return 0;
}

}  // namespace

bool in_if0() { return IN_IF0 != 0; }

bool is_if(const char* text, std::int32_t pos) { return matches(text, pos, "if("); }

bool is_endif(const char* text, std::int32_t pos) { return matches(text, pos, "endif"); }

int do_if_interface(Reader& reader) { return do_if(reader); }

int get_if(char* text, std::int32_t& pos, const WatchedLine& line, float& value) {
    if (!is_if(text, pos)) return error::BAD_IF;
    pos += IF_LENGTH;
    skip_blanks(text, pos);
    if (const int result = expand_value(text, pos, line)) return result;
    if (!is_digit(text[pos]) || !get_f(value, text, pos)) return error::BAD_IF_VALUE;
    skip_blanks(text, pos);
    if (text[pos] != ')') return error::IF_WITHOUT_PARENTHESIS;
    ++pos;
    return 0;
}

int do_if(Reader& reader) {
    // A malformed condition is not reported, the value before it decides: kept on purpose.
    (void)get_if(reader.text, reader.pos, WatchedLine(reader), IF_VALUE);
    const int start_level = IF_MATCH++;
    if (IF_VALUE != 0) return 0;
    IN_IF0 = 1;
    const int result = skip_false_block(reader, start_level);
    IN_IF0 = 0;
    return result;
}

int do_endif(Reader& reader) {
    if (!is_endif(reader.text, reader.pos)) return error::BAD_ENDIF;
    reader.pos += ENDIF_LENGTH;
    if (IF_MATCH <= 0) return error::MISMATCHED_ENDIF;
    --IF_MATCH;
    return 0;
}

bool ifdef_match() { return IF_MATCH == 0; }

void reset_conditionals() {
    IF_MATCH = 0;
    IF_VALUE = 0;
    IN_IF0 = 0;
}

}  // namespace vorn
