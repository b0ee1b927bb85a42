#include "blocks/pfield.h"

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/commands.h"
#include "blocks/data_list.h"
#include "blocks/fill.h"
#include "blocks/input_values.h"
#include "blocks/statement.h"
#include "blocks/statement_commands.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"
#include "output/tempo_map.h"

// A p-field statement, from its "p" to the next one or the block's "}". Its data
// are a sequence of items in any order:
//
//     p4(re5) no <c4 e4:g4> rd(.1) ra(4 1 [c4 c5]) ; comment
//             input type, loop, values, setting, data-defining function
//
// P2 creates the events; the later statements walk over them, each with its own
// cursor that starts at the tail. When the block is full, the rest of the
// statement is stepped over.

namespace vorn {

namespace {

bool at_statement_end(const Reader& reader) {
    return reader.text[reader.pos] == '}' || is_pfield(reader.text, reader.pos);
}

// Steps over what is left of a statement whose block is full.
int skip_to_statement_end(Reader& reader) {
    while (!at_statement_end(reader)) {
        int result = skip_lines(reader);
        if (result > 0) return result;
        if (result < 0) return error::MISSING_BLOCK_END;
        if (at_statement_end(reader)) break;
        CommentKind kind;
        if (!is_comment(reader.text, reader.pos, kind)) {
            ++reader.pos;
            continue;
        }
        result = skip_comment(reader, kind);
        if (result > 0) return error::COMMENT_UNENDED;
    }
    return 0;
}

int set_input_type(int code) {
    if (P_NO == 2 && code != CODE_RE && code != CODE_RH && code != CODE_IN) return error::BAD_P2_INPUT;
    if (P_NO == 3 && code != CODE_RE && code != CODE_IN) return error::BAD_P3_INPUT;
    IN_TYPE = code;
    return 0;
}

int do_statement_command(Reader& reader, Statement& statement) {
    int code = NO_COMMAND;
    if (!get_command(code, reader.text, reader.pos) || code == NO_COMMAND) return error::INVALID_COMMAND;
    if (is_input_code(code)) return set_input_type(code);
    return do_commands(code, reader, statement);
}

// One item at a visible character.
int do_item(Reader& reader, Statement& statement) {
    if (is_command(reader.text, reader.pos)) return do_statement_command(reader, statement);
    CommentKind kind;
    if (is_comment(reader.text, reader.pos, kind)) {
        return skip_comment(reader, kind) > 0 ? error::COMMENT_UNENDED : 0;
    }
    const char c = reader.text[reader.pos];
    if (c == '<' || c == '>') {
        if (!set_loop(c)) return error::BAD_LOOP;
        ++reader.pos;
        return 0;
    }
    return parse_pdata(reader, statement);
}

int do_items(Reader& reader, Statement& statement) {
    for (;;) {
        if (statement.block_full) return skip_to_statement_end(reader);
        int result = skip_lines(reader);
        if (result > 0) return result;
        if (result < 0) return error::MISSING_BLOCK_END;
        if (at_statement_end(reader)) return 0;
        result = do_item(reader, statement);
        if (result > 0) return result;
    }
}

int complete_statement(const Reader& reader, Statement& statement, std::uint64_t events_before) {
    if (!WROTE_DATA) {
        print_error(reader, "\nERROR: P%d is blank ... OY!\n\n", P_NO);
        return error::ALREADY_PRINTED;
    }
    const int result = fill_to_end(reader, statement);
    if (result != 0) return result;
    const bool event_mode = ETIME < 0;
    if (P_NO >= 3 && event_mode && EVENTS != events_before) {
        Mprintf("\n\tP%d: Fused data changed \"events\" from %d to %d", P_NO, events_before, EVENTS);
    }
    return 0;
}

// "(" output ")"
int read_output_specifier(Reader& reader) {
    ++reader.pos;
    skip_blanks(reader.text, reader.pos);
    int code = NO_COMMAND;
    if (!is_output_specifier(reader.text, reader.pos)) return error::BAD_OUTPUT_SPECIFIER;
    if (!get_command(code, reader.text, reader.pos)) return error::BAD_OUTPUT_SPECIFIER;
    if (P_NO <= 3 && code != CODE_RE) return error::OUTPUT_MUST_BE_REAL;
    OUT_TYPE = code;
    skip_blanks(reader.text, reader.pos);
    if (reader.text[reader.pos] != ')') return error::MISSING_PARENTHESIS;
    ++reader.pos;
    return 0;
}

// digits behind "p": a number that this block has, in an order that it may have.
// Behind the last "}" of a score there is no block, and a P2 finds no settings.
int read_pfield_number(Reader& reader) {
    int number = 0;
    if (!get_i(number, reader.text, reader.pos) || number < 2) return error::BAD_PFIELD_NUMBER;
    if (number > MAX_PFIELDS) return error::PFIELD_OUT_OF_BOUNDS;
    if (number != 2 && !DID_P[2]) return error::P2_NOT_FIRST;
    if (OUTS == nullptr) return error::PFIELD_OUT_OF_BOUNDS;
    if (DID_P[number]) return error::DUPLICATE_PFIELD;
    P_NO = number;
    return 0;
}

}  // namespace

bool is_pfield(const char* text, std::int32_t pos) { return text[pos] == 'p' && is_digit(peek(text, pos)); }

int read_pfield_statement(Reader& reader) {
    if (IN_LOOP) warning_no(warning::LOOP_TERMINATED, reader);
    const LinePlace begin = place(reader);
    ++reader.pos;
    int result = read_pfield_number(reader);
    if (result != 0) return result;
    reset_pfield();
    result = do_pN(reader);
    if (result > 0) return result;
    DID_P[P_NO] = 1;
    if (P_NO == 2) EVENTS = static_cast<std::uint64_t>(EVENT_NO);
    if (reader.observer != nullptr) {
        reader.observer->on_pfield({P_NO, IN_TYPE, OUT_TYPE, begin, place(reader), EVENTS, note_list});
    }
    return 0;
}

void reset_pfield() {
    EVENT_NO = 0;
    if (P_NO == 2) {
        TEMPO = find_tempo(SBEAT);
        CBEATS = SBEAT;
        STIME = static_cast<float>(STIME * (60.0 / TEMPO));
    }
    IN_TYPE = OUT_TYPE = CODE_RE;
    IS_FUSED = IN_LOOP = WROTE_DATA = 0;
    PFACTOR = 1;
    MAX_DEV2 = 0;
    ClearLFusedCode(note_list);
}

int do_pN(Reader& reader) {
    skip_blanks(reader.text, reader.pos);
    RE_FW[P_NO - 2] = RE_FW_DEFAULT;
    if (reader.text[reader.pos] == '(') {
        const int result = read_output_specifier(reader);
        if (result != 0) return result;
    }
    OUTS[P_NO - 2] = static_cast<std::uint32_t>(OUT_TYPE);
    skip_blanks(reader.text, reader.pos);
    return do_pfield(reader);
}

int do_pfield(Reader& reader) {
    Statement statement;
    if (P_NO >= 3) statement.cursor = LUT = note_list;
    const std::uint64_t events_before = EVENTS;
    int result = do_items(reader, statement);
    if (result == 0) result = complete_statement(reader, statement, events_before);
    FreeQNodes(statement.queue);
    return result;
}

bool set_loop(char mark) {
    if (mark == '>') {
        if (!IN_LOOP) return false;
        IN_LOOP = 0;
        return true;
    }
    if (IS_FUSED || IN_LOOP) return false;
    IN_LOOP = 1;
    return true;
}

}  // namespace vorn
