#include "blocks/gblock.h"

#include <cstring>

#include "blocks/command_codes.h"
#include "blocks/commands.h"
#include "blocks/settings.h"
#include "blocks/tempo_command.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/line_buffer.h"
#include "input/run_flags.h"
#include "input/skip.h"
#include "output/output_file.h"
#include "output/tempo_map.h"
#include "preproc/preprocessor.h"

// What stands between instrument blocks: blanks, comments, global commands and
// ">" lines that go to the score as they are.
//
// A command is looked for only at the first visible character of a fresh line
// and right behind another command; once a comment has been met, the rest of the
// line may hold only comments and the "i" of a block. Kept on purpose.

namespace vorn {

namespace {

// The rest of the line goes to the score on a line of its own.
int do_direct_output(Reader& reader) {
    const char* rest = reader.text + reader.pos;
    const std::size_t size = std::strlen(rest);
    if (!MKMIDI) {
        output_char(fout, '\n');
        output_bytes(fout, rest, size);
    }
    if (reader.observer != nullptr) reader.observer->on_direct_line(rest, place(reader));
    reader.pos += static_cast<std::int32_t>(size);
    return 0;
}

int run_global_command(Reader& reader) {
    int code = NO_COMMAND;
    if (!get_command(code, reader.text, reader.pos) || code == NO_COMMAND)
        return error::INVALID_GLOBAL_COMMAND;
    return do_gcommand(code, reader);
}

// The rest of a line without commands. block_found: pos rests on the "i".
int scan_line(Reader& reader, bool& block_found) {
    for (;;) {
        skip_blanks(reader.text, reader.pos);
        const char c = reader.text[reader.pos];
        block_found = c == 'i';
        if (block_found || c == 0) return 0;
        CommentKind kind;
        if (!is_comment(reader.text, reader.pos, kind)) return error::INVALID_GLOBAL_COMMAND;
        // Whatever ends the comment early, a misplaced "#endif" too, is told alike: kept on purpose.
        if (skip_comment(reader, kind) != 0) return error::COMMENT_MISMATCH;
    }
}

}  // namespace

int parse_gblock(Reader& reader) {
    int result = get_buff(reader);
    while (result == 0) {
        skip_blanks(reader.text, reader.pos);
        bool block_found = false;
        if (reader.text[reader.pos] == 0) {
            result = get_buff(reader);
        } else if (is_gcommand(reader.text, reader.pos)) {
            result = run_global_command(reader);
        } else {
            result = scan_line(reader, block_found);
        }
        if (result == 0 && block_found) {
            if (SHOW_TEMPOS) print_tempos();
            return 0;
        }
    }
    return result;
}

int do_gcommand(int code, Reader& reader) {
    switch (code) {
        case CODE_TE:
            return get_tempo_change(reader);
        case CODE_RD:
            return set_rand_dev(reader);
        case CODE_RS:
            return set_rand_seed(reader);
        case CODE_SR:
            return set_samp_rate(reader);
        case CODE_MACRO:
            return parse_macro(reader);
        case CODE_CONST:
            return parse_var(reader);
        case CODE_DIRECT:
            return do_direct_output(reader);
        default:
            return error::BAD_GLOBAL_DATA;
    }
}

}  // namespace vorn
