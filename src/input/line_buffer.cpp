#include "input/line_buffer.h"

#include "input/characters.h"
#include "input/errors.h"
#include "input/run_flags.h"
#include "preproc/preprocessor.h"

// Where a line enters the program. Each fresh line is counted, cleaned, and
// rewritten in place by the preprocessor before any reader sees it:
//
//     read -> count -> clean -> "#if"/"#endif" -> macros -> constants -> echo
//
// The preprocessor may ask for further lines while it works on one (the body of
// a definition, a false conditional block), so get_buff is entered again from
// within; nothing of one call outlives it but the line itself.

namespace vorn {

namespace {

constexpr char SUBSTITUTE = 0x1A;  // stands for a NUL byte, which would cut the line short unseen

// The byte as readers may see it: line ends, and the byte 255 that a lone "#"
// at the end of an input leaves, become blanks.
char cleaned(int byte) {
    if (byte == '\n' || byte == '\r' || byte == 255) return ' ';
    if (byte == 0) return SUBSTITUTE;
    return static_cast<char>(byte);
}

// One line of at most LINE_SIZE - 1 bytes; a longer one comes in pieces, each
// counted as a line. False when nothing is left, the text then untouched, and
// when the stream fails, the line then cut.
bool read_line(Reader& reader) {
    int byte = getc_unlocked(reader.stream);
    if (byte == EOF) return false;
    int length = 0;
    for (; byte != EOF; byte = getc_unlocked(reader.stream)) {
        reader.text[length++] = cleaned(byte);
        if (byte == '\n' || length == LINE_SIZE - 1) break;
    }
    reader.text[length] = 0;
    reader.pos = 0;
    ++reader.line;
    if (reader.observer != nullptr) {
        reader.observer->on_line({reader.line, reader.text, static_cast<std::size_t>(length)});
    }
    return byte != EOF || !std::ferror(reader.stream);
}

// Whether the line is a conditional's "#if(" or "#endif"; pos is then behind the "#".
bool at_conditional(Reader& reader) {
    std::int32_t pos = 0;
    while (is_space(reader.text[pos])) ++pos;
    if (reader.text[pos] != '#') return false;
    ++pos;
    if (!is_if(reader.text, pos) && !is_endif(reader.text, pos)) return false;
    reader.pos = pos;
    return true;
}

void echo_line(const Reader& reader) {
    std::fputs(reader.text, fecho);
    std::fputc('\n', fecho);
}

}  // namespace

int get_buff(Reader& reader) {
    // A failing disk is no end of the score: taken for one, it would be met again and again.
    if (!read_line(reader)) return std::ferror(reader.stream) ? error::PREMATURE_END : END_OF_INPUT;
    if (in_if0()) return 0;
    if (at_conditional(reader)) {
        const int result = is_if(reader.text, reader.pos) ? do_if_interface(reader) : do_endif(reader);
        return result > 0 ? result : 0;
    }
    DefinitionMarks marks;
    int result = parse_macros(reader, marks);
    if (result > 0) return result;
    result = parse_variables(reader, marks);
    if (result > 0) return result;
    if (MKEXP && fecho != nullptr) echo_line(reader);
    return 0;
}

char get_c(const char* text, std::int32_t& pos) {
    const char c = text[pos];
    if (c != 0) ++pos;
    return c;
}

}  // namespace vorn
