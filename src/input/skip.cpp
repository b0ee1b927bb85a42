#include "input/skip.h"

#include "input/characters.h"
#include "input/line_buffer.h"

// Moving over what separates the items of a score description.
//
// skip_blanks stays on the line; skip_lines and skip_white go on to the next
// visible character, fetching lines; skip_wc and skip_stuff also take one
// comment, and skip_stuff one separator:
//
//     "  /* text */, 60"   skip_stuff leaves pos on "60"
//     "  , , 60"           skip_stuff takes one comma only: pos on the second

namespace vorn {

namespace {

int forgive_end_of_input(int result) { return result < 0 ? 0 : result; }

// At most one comment or separator at pos.
int skip_one_separator(Reader& reader) {
    CommentKind kind;
    if (is_comment(reader.text, reader.pos, kind)) {
        const int result = skip_comment(reader, kind);
        if (result != 0 || kind == CommentKind::LINE) return result;
        // A "," or "/" right behind a block comment goes with it, even the
        // "/" of a further comment: kept on purpose.
        const char next = reader.text[reader.pos];
        if (next == ',' || next == '/') ++reader.pos;
        return 0;
    }
    const char c = reader.text[reader.pos];
    if (c == '/' || c == ',') ++reader.pos;
    return 0;
}

}  // namespace

void skip_blanks(const char* text, std::int32_t& pos) {
    while (is_space(text[pos])) ++pos;
}

int skip_lines(Reader& reader) {
    for (;;) {
        skip_blanks(reader.text, reader.pos);
        if (reader.text[reader.pos] != 0) return 0;
        if (std::feof(reader.stream)) return END_OF_INPUT;
        const int result = get_buff(reader);
        if (result != 0) return result;
    }
}

int skip_white(Reader& reader) { return forgive_end_of_input(skip_lines(reader)); }

int skip_wc(Reader& reader) {
    int result = skip_lines(reader);
    CommentKind kind;
    if (result == 0 && is_comment(reader.text, reader.pos, kind)) {
        result = skip_comment(reader, kind);
        if (result == 0) result = skip_lines(reader);
    }
    return forgive_end_of_input(result);
}

int skip_stuff(Reader& reader) {
    int result = skip_lines(reader);
    if (result == 0) result = skip_one_separator(reader);
    if (result == 0) result = skip_lines(reader);
    return forgive_end_of_input(result);
}

bool is_comment(const char* text, std::int32_t pos, CommentKind& kind) {
    if (text[pos] == ';') {
        kind = CommentKind::LINE;
        return true;
    }
    if (text[pos] == '/' && text[pos + 1] == '*') {
        kind = CommentKind::BLOCK;
        return true;
    }
    return false;
}

int skip_comment(Reader& reader, CommentKind kind) {
    if (kind == CommentKind::LINE) {
        while (reader.text[reader.pos] != 0 && reader.text[reader.pos] != '\n') ++reader.pos;
        return 0;
    }
    reader.pos += 2;
    for (int depth = 1; depth > 0;) {
        const char c = reader.text[reader.pos];
        const char next = peek(reader.text, reader.pos);
        if (c == '/' && next == '*') {
            ++depth;
            reader.pos += 2;
        } else if (c == '*' && next == '/') {
            --depth;
            reader.pos += 2;
        } else if (c == 0) {
            const int result = get_buff(reader);
            if (result != 0) return result;
        } else {
            ++reader.pos;
        }
    }
    return 0;
}

}  // namespace vorn
