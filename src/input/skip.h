#pragma once

#include "input/reader.h"

// Moving over white space, line ends, comments and separators.
//
// Results: 0, a positive error number from fetching a line, or END_OF_INPUT;
// all but skip_lines and skip_comment turn END_OF_INPUT into 0, as the reader that
// comes next says what it misses.

namespace vorn {

enum class CommentKind { LINE, BLOCK };  // ";" to the end of the line; "/*" to its "*/"

// Moves over white space on the current line only.
void skip_blanks(const char* text, std::int32_t& pos);

// 0 when pos rests on a visible character, over any number of blank lines.
[[nodiscard]] int skip_lines(Reader& reader);

// As skip_lines; at the end of the input pos rests on the end of the last line.
[[nodiscard]] int skip_white(Reader& reader);

// White space, one comment, white space.
[[nodiscard]] int skip_wc(Reader& reader);

// White space, at most one comment or separator ("," or "/"; one directly
// behind a block comment goes with it), white space.
[[nodiscard]] int skip_stuff(Reader& reader);

// Whether a comment starts at pos, and of which kind.
[[nodiscard]] bool is_comment(const char* text, std::int32_t pos, CommentKind& kind);

// Moves behind the comment that starts at pos. Block comments nest.
[[nodiscard]] int skip_comment(Reader& reader, CommentKind kind);

}  // namespace vorn
