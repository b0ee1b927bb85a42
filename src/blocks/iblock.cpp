#include "blocks/iblock.h"

#include <algorithm>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/commands.h"
#include "blocks/iblock_header.h"
#include "blocks/pfield.h"
#include "blocks/settings.h"
#include "input/errors.h"
#include "input/line_buffer.h"
#include "input/messages.h"
#include "input/skip.h"

// An instrument block: a header, then p-field statements, the block commands
// "rd" and "rs", comments, and "}".
//
//     i1 = 4, 0, 8 {
//     rd(.1)
//     p2 1
//     p3 .5
//     p4 440 220 }
//
// Block commands belong before a p-field statement: a "}" behind one, with only
// white space and comments between, is refused. Kept on purpose. A header between
// the two begins anew.

namespace vorn {

namespace {

int do_block_command(Reader& reader) {
    if (!is_command(reader.text, reader.pos)) return error::INVALID_BLOCK_COMMAND;
    int code = NO_COMMAND;
    if (!get_command(code, reader.text, reader.pos) || code == NO_COMMAND) return error::INVALID_COMMAND;
    if (code == CODE_RD) return set_rand_dev(reader);
    if (code == CODE_RS) return set_rand_seed(reader);
    return error::BAD_VALUE;
}

// A run of block commands and comments up to a p-field statement or the end of
// the line. At the end of input END_OF_INPUT.
int do_block_commands(Reader& reader, bool& command_pending) {
    for (;;) {
        skip_blanks(reader.text, reader.pos);
        if (reader.text[reader.pos] == 0 || is_pfield(reader.text, reader.pos)) return 0;
        CommentKind kind;
        if (is_comment(reader.text, reader.pos, kind)) {
            const int result = skip_comment(reader, kind);
            if (result > 0) return error::COMMENT_UNENDED;
            if (result < 0) return result;  // the score ends: as in parse_iblock
            continue;
        }
        const int result = do_block_command(reader);
        if (result > 0) return result;
        command_pending = true;
    }
}

int end_block(Reader& reader, bool command_pending) {
    if (command_pending) return error::INVALID_BLOCK_COMMAND;
    for (int number = 2; number <= MAX_PFIELDS; ++number) {
        if (!DID_P[number]) return error::PFIELDS_SKIPPED;
    }
    ++reader.pos;
    return 0;
}

int do_header(Reader& reader) {
    reader.header = place(reader);
    if (reader.observer != nullptr) reader.observer->on_header(reader.header);
    const int result = do_p1(reader);
    if (result == SKIPPED_BLOCK) warning_no(warning::BLOCK_SKIPPED, reader);
    return result;
}

}  // namespace

int parse_iblock(Reader& reader) {
    std::fill_n(DID_P, MAX_PFIELD_COUNT + 1, 0);
    bool command_pending = false;
    for (;;) {
        int result = skip_lines(reader);
        // A score that ends before the first statement drops the block unsaid: kept on purpose.
        if (result != 0) return result;
        const char c = reader.text[reader.pos];
        if (c == '}') return end_block(reader, command_pending);
        if (c == 'i') {
            result = do_header(reader);
            command_pending = false;
        } else if (is_pfield(reader.text, reader.pos)) {
            result = read_pfield_statement(reader);
            command_pending = false;
        } else {
            result = do_block_commands(reader, command_pending);
        }
        if (result != 0) return result;
    }
}

}  // namespace vorn
