#include "input/reader.h"
#include "preproc/comment_state.h"
#include "preproc/constant_call.h"
#include "preproc/preprocessor.h"

// One pass over a line behind the macro scan. References are expanded in place,
// but for those in comments and those at the positions that the macro scan has
// marked as definition text:
//
//     p3 re ~A ~[A * 2] ; ~A      ->      p3 re 1.000 2.000 ; ~A
//
// The marks are places in the line as the macro scan left it. They do not move
// with the text behind an expansion: kept on purpose.

namespace vorn {

namespace {

// As with macros, from column 0 the scan goes on one character later: kept on purpose.
int scan_reference(Reader& reader) {
    const bool in_first_column = reader.pos == 0;
    ++reader.pos;
    if (const int result = expand_variables(reader.text, reader.pos, WatchedLine(reader))) return result;
    if (in_first_column && reader.text[reader.pos] != 0) ++reader.pos;
    return 0;
}

int scan_line(Reader& reader, const DefinitionMarks& marks) {
    CommentScan comment;
    while (reader.text[reader.pos] != 0) {
        const char c = reader.text[reader.pos];
        if (c == '~' && !IN_COMMENT && !marks.marked[reader.pos]) {
            if (const int result = scan_reference(reader)) return result;
        } else {
            comment.track(c, peek(reader.text, reader.pos));
            ++reader.pos;
        }
    }
    comment.end_line();
    return 0;
}

}  // namespace

int parse_variables(Reader& reader, const DefinitionMarks& marks) {
    if (!marks.plain) {
        if (const int result = scan_line(reader, marks)) return result;
    }
    reader.pos = 0;
    return 0;
}

}  // namespace vorn
