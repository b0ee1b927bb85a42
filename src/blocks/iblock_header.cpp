#include "blocks/iblock_header.h"

#include "blocks/block_state.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"
#include "output/event_list.h"

// The header of an instrument block:
//
//     i3 = 5, 0, 4 {        instrument 3, P1 to P5, from beat 0, for 4 beats
//     i3 = 5, 0, -16 {      the same, but 16 events
//
// A header may stand inside a block too; its settings then replace the block's.

namespace vorn {

namespace {

constexpr int MANY_PFIELDS = 51;      // from here on the composer is asked back
constexpr float LATE_START = 240;     // beats; later is asked back
constexpr float LONG_DURATION = 600;  // beats; longer is asked back
constexpr int SEPARATORS_BETWEEN_FIELDS = 4;

int skip_separators(Reader& reader) {
    for (int count = 0; count < SEPARATORS_BETWEEN_FIELDS; ++count) {
        const int result = skip_stuff(reader);
        if (result != 0) return result;
    }
    return 0;
}

int read_instrument(Reader& reader) {
    ++reader.pos;
    const int result = skip_white(reader);
    if (result != 0) return result;
    const char c = reader.text[reader.pos];
    int number = 0;
    if (!is_digit(c) && c != '-') return error::BAD_INSTRUMENT;
    if (!get_i(number, reader.text, reader.pos)) return error::BAD_INSTRUMENT;
    I_NO = number;
    return 0;
}

// Everything up to and including the next "}" outside a comment.
int skip_block(Reader& reader) {
    for (;;) {
        int result = skip_lines(reader);
        if (result > 0) return result;
        if (result < 0) return error::MISSING_BLOCK_END;
        CommentKind kind;
        if (is_comment(reader.text, reader.pos, kind)) {
            result = skip_comment(reader, kind);
            if (result > 0) return error::COMMENT_UNENDED;
            continue;
        }
        ++reader.pos;
        if (reader.text[reader.pos - 1] == '}') return SKIPPED_BLOCK;
    }
}

int read_equals(Reader& reader) {
    const int result = skip_white(reader);
    if (result != 0) return result;
    if (reader.text[reader.pos] != '=') return error::MISSING_EQUALS;
    ++reader.pos;
    return skip_white(reader);
}

// The number of p-fields, and room for their settings and, in a header inside a
// block, for the further values of the events that are there.
int read_pfield_count(Reader& reader) {
    int count = 0;
    if (!get_i(count, reader.text, reader.pos)) return error::BAD_PFIELD_COUNT;
    if (count < MIN_PFIELD_COUNT || count > MAX_PFIELD_COUNT) {
        print_error(reader, "\n\nERROR: Bad number of p-fields (3 - %d)\n", MAX_PFIELD_COUNT);
        return error::PRINTED_ECHO_LEFT;
    }
    if (count >= MANY_PFIELDS) warning_no(warning::MANY_PFIELDS, reader);
    if (count > MAX_PFIELDS && !GrowPfields(note_list, MAX_PFIELDS, count)) return error::OUT_OF_MEMORY;
    MAX_PFIELDS = count;
    return allocate_output_settings() ? 0 : error::OUT_OF_MEMORY;
}

int read_start(Reader& reader) {
    const int result = skip_separators(reader);
    if (result != 0) return result;
    if (!get_f(STIME, reader.text, reader.pos) || STIME < 0) return error::BAD_START_TIME;
    if (STIME > LATE_START) warning_no(warning::LATE_START, reader);
    SBEAT = STIME;
    return 0;
}

int read_length(Reader& reader) {
    int result = skip_separators(reader);
    if (result != 0) return result;
    result = get_amount(reader.text, reader.pos);
    if (result != 0) return result;
    if (BEATS > MAX_BEATS) {
        print_error(reader, "\n\nERROR: Line %d: Maximum number of beats = %f\n", reader.line, MAX_BEATS);
        return error::PRINTED_ECHO_LEFT;
    }
    if (BEATS > LONG_DURATION) warning_no(warning::LONG_DURATION, reader);
    return 0;
}

int read_brace(Reader& reader) {
    const int result = skip_separators(reader);
    if (result != 0) return result;
    if (reader.text[reader.pos] != '{') return error::MISSING_BLOCK_BRACE;
    ++reader.pos;
    return 0;
}

}  // namespace

int do_p1(Reader& reader) {
    int result = read_instrument(reader);
    if (result == 0 && I_NO < 0) return skip_block(reader);
    if (result == 0) result = read_equals(reader);
    if (result == 0) result = read_pfield_count(reader);
    if (result == 0) result = read_start(reader);
    if (result == 0) result = read_length(reader);
    if (result == 0) result = read_brace(reader);
    return result;
}

int get_amount(const char* text, std::int32_t& pos) {
    EVENTS = 0;
    BEATS = 0;
    const char c = text[pos];
    if (c == '-') {
        ++pos;
        if (!get_uli(EVENTS, text, pos)) return error::BAD_EVENTS;
        ETIME = -static_cast<float>(EVENTS);
        return 0;
    }
    if (c == '{') return error::MISSING_LENGTH;
    if (!is_digit(c) && c != '+' && c != '.') return error::BAD_LENGTH;
    if (!get_f(BEATS, text, pos) || BEATS < 0) return error::BAD_BEATS;
    ETIME = BEATS;
    return 0;
}

}  // namespace vorn
