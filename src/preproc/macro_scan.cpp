#include "preproc/macro_scan.h"

#include <cstring>

#include "input/reader.h"
#include "preproc/comment_state.h"
#include "preproc/macro_call.h"
#include "preproc/preprocessor.h"

// One pass over a fresh line, before anything else reads it. Calls are expanded
// in place; the text of definitions is marked and left alone; the state of
// comments is carried along. A definition is what lies between one "#" outside
// comments and the third, counted without looking at what it says:
//
//     #define M(a'b) #$a-$b#  ; the "$" in the body are no calls
//     ^              ^     ^    first, second and third "#"
//
// so that a "#" which separates formal arguments miscounts (the body's first "#"
// is then the third): kept on purpose.
//
// Invariant: marks are set only to the left of pos, expansions change only what is
// to its right, so marks and text stay aligned through the scan.

namespace vorn {

int IN_MACRO_DEF = 0;

namespace {

// Characters without which no line concerns this scan or that of constants. A
// ";" alone hides nothing, and "*" is in every mark of a block comment.
constexpr const char* SPECIAL_CHARACTERS = "$#~*";

constexpr int MARKS_OF_DEFINITION = 3;     // "#" characters of a whole definition
constexpr std::int32_t BLIND_COLUMN = 85;  // where a ">" goes unnoticed

struct LineScan {
    char* text;
    std::int32_t& pos;
    WatchedLine line;
    DefinitionMarks& marks;
    ExpansionBudget budget = {};
    CommentScan comment = {};
    bool definitions_allowed = true;
};

void mark_here(LineScan& scan) { scan.marks.marked[scan.pos++] = true; }

// "#undef", "#const", "#endif" and "#if" by their first letters.
bool ends_scan(char c) { return c == 'u' || c == 'c' || c == 'e' || c == 'i'; }

// From the first "#" of a definition, or from within one, behind its third "#" or
// to the end of the line.
void scan_definition(LineScan& scan) {
    if (IN_MACRO_DEF == 0) {
        IN_MACRO_DEF = 1;
        mark_here(scan);
    }
    while (scan.text[scan.pos] != 0) {
        const char c = scan.text[scan.pos];
        scan.comment.track(c, peek(scan.text, scan.pos));
        if (c == '#' && !IN_COMMENT && ++IN_MACRO_DEF == MARKS_OF_DEFINITION) {
            IN_MACRO_DEF = 0;
            ++scan.pos;
            break;
        }
        mark_here(scan);
    }
    scan.comment.end_line();
}

// The inserted text is scanned again; in column 0 only from its second
// character on: kept on purpose.
int scan_call(LineScan& scan) {
    const bool in_first_column = scan.pos == 0;
    ++scan.pos;
    if (const int result = expand_macro(scan.text, scan.pos, scan.line, scan.budget)) return result;
    if (in_first_column && scan.text[scan.pos] != 0) ++scan.pos;
    return 0;
}

// Behind a ">" the line is score text for the output, in which "#" defines nothing.
void scan_character(LineScan& scan) {
    const char c = scan.text[scan.pos];
    scan.comment.track(c, peek(scan.text, scan.pos));
    if (c == '>' && scan.pos != BLIND_COLUMN) scan.definitions_allowed = false;  // kept on purpose
    ++scan.pos;
}

int scan_line(LineScan& scan) {
    while (scan.text[scan.pos] != 0) {
        const char c = scan.text[scan.pos];
        if (scan.definitions_allowed && (IN_MACRO_DEF != 0 || (c == '#' && !IN_COMMENT))) {
            // The rest of such a line stays as it is, calls included: kept on purpose.
            if (IN_MACRO_DEF == 0 && ends_scan(scan.text[scan.pos + 1])) break;
            scan_definition(scan);
        } else if (c == '$' && !IN_COMMENT && IN_MACRO_DEF == 0) {
            if (const int result = scan_call(scan)) return result;
        } else {
            scan_character(scan);
        }
    }
    scan.comment.end_line();
    return 0;
}

}  // namespace

int parse_macros(Reader& reader, DefinitionMarks& marks) {
    marks.plain = std::strpbrk(reader.text, SPECIAL_CHARACTERS) == nullptr;
    if (!marks.plain) {
        LineScan scan{.text = reader.text, .pos = reader.pos, .line = WatchedLine(reader), .marks = marks};
        if (const int result = scan_line(scan)) return result;
    }
    reader.pos = 0;
    return 0;
}

void reset_macro_scan() { IN_MACRO_DEF = 0; }

}  // namespace vorn
