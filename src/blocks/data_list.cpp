#include "blocks/data_list.h"

#include "blocks/block_state.h"
#include "blocks/input_values.h"
#include "blocks/store.h"
#include "blocks/timing.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"

// The data list of a p-field statement, item by item.
//
//     60, 62 64      three values; white space and "," separate
//     60:64:67       a chord; ":" and "'" fuse a value to the one before
//     60///          three times 60: as many as there are slashes
//     60 x3          three times 60; "x0" repeats until the block is full
//
// A fusion mark is pending (IS_FUSED) until a value of P2 or of P4 and up takes
// it; P3 never takes one, so a second mark there is an error: kept on purpose.

namespace vorn {

namespace {

// Stores LAST_VAL once more; in a loop, its last group is queued again.
int repeat_last_value(Reader& reader, Statement& statement) {
    if (out_of_time()) {
        warning_no(warning::REPEAT_TRUNCATED, reader);
        statement.block_full = true;
        return 0;
    }
    const int result = store_value(reader, statement, LAST_VAL, ValueSource::REPEAT, false);
    if (result != 0) return result;
    if (IN_LOOP && !DoQEvent(statement.queue)) return error::MISPLACED_LOOP;
    return 0;
}

int do_fusion(Reader& reader) {
    ++IS_FUSED;
    if (IS_FUSED > 1) return error::MULTIPLE_FUSION;
    if (P_NO >= 3) ++EVENTS;
    ++reader.pos;
    return 0;
}

bool is_repeat_slash(const Reader& reader) {
    CommentKind kind;
    return reader.text[reader.pos] == '/' && !is_comment(reader.text, reader.pos, kind);
}

}  // namespace

int parse_pdata(Reader& reader, Statement& statement) {
    const char c = reader.text[reader.pos];
    if (is_separator(c) || c == 'x') return do_separators(reader, statement);
    if (!in_limits(c)) return error::DATA_OUT_OF_BOUNDS;
    return do_data(reader, statement);
}

int do_separators(Reader& reader, Statement& statement) {
    skip_blanks(reader.text, reader.pos);
    if (statement.value_expected) return error::INVALID_BLOCK_COMMAND;
    switch (reader.text[reader.pos]) {
        case ':':
        case '\'':
            return do_fusion(reader);
        case '/':
            ++reader.pos;
            skip_blanks(reader.text, reader.pos);
            return do_slash(reader, statement);
        case 'x':
            return do_x(reader, statement);
        case ',':
            ++reader.pos;
            return 0;
        default:
            return 0;
    }
}

int do_data(Reader& reader, Statement& statement) {
    if (out_of_time()) {
        warning_no(warning::EVENTS_NOT_ADDED, reader);
        statement.block_full = true;
        return 0;
    }
    statement.value_expected = false;
    float value = 0;
    if (!get_input_type(value, reader.text, reader.pos)) return error::BAD_VALUE;
    LAST_VAL = value;
    // Queued before it is stored, while the fusion mark is still pending.
    if (IN_LOOP && !StoreInQ(statement.queue, static_cast<std::uint32_t>(IS_FUSED), value)) {
        return error::MISPLACED_LOOP;
    }
    return store_value(reader, statement, value, ValueSource::DATA, true);
}

int do_slash(Reader& reader, Statement& statement) {
    while (is_repeat_slash(reader)) {
        ++reader.pos;
        const int result = repeat_last_value(reader, statement);
        if (result != 0 || statement.block_full) return result;
        skip_blanks(reader.text, reader.pos);
    }
    return 0;
}

int do_x(Reader& reader, Statement& statement) {
    ++reader.pos;
    if (!is_digit(reader.text[reader.pos])) return error::REPEAT_WITHOUT_DIGIT;
    std::uint64_t count = 0;
    if (!get_uli(count, reader.text, reader.pos)) return error::REPEAT_WITHOUT_DIGIT;
    // The count wraps for "x0", the deliberate way to hold a value to the end.
    for (std::uint64_t left = count - 1; left > 0 && !statement.block_full; --left) {
        if (left > MAX_EVENTS && !out_of_time() && repeats_forever()) return error::ZERO_INTERVAL;
        const int result = repeat_last_value(reader, statement);
        if (result != 0) return result;
    }
    return 0;
}

}  // namespace vorn
