#include "blocks/timing.h"

#include <cmath>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "generators/arithmetic.h"
#include "generators/deviation.h"
#include "input/errors.h"
#include "input/messages.h"
#include "output/tempo_map.h"

// How one value enters the event list.
//
// P2 makes events: a start interval in beats becomes seconds at the tempo of
// its beat. P3 turns the interval that P2 left in the event into a duration:
//
//     1     the interval itself        201   the interval plus 1 second
//     0.5   half of it                 301   the interval minus 1 second
//     402   2 beats                    1002  2 seconds
//
// From P4 on a value is a number per event.

namespace vorn {

namespace {

// The p3 codes in falling order of their base; the last serves all that is left.
constexpr float P3_CODES[] = {1000, 400, 300, 200, 0};

// Whether no block can have as many values as this one's length in events asks for.
bool is_too_long() { return EVENTS > MAX_VALUES / static_cast<std::uint64_t>(MAX_PFIELDS); }

float duration_by_code(const Reader& reader, int code, float interval, float n) {
    switch (code) {
        case 200:
            return interval + n;
        case 300:
            // The test is the reverse of what the warning says: kept on purpose.
            if (n < interval) warning_no(warning::DURATION_NEGATIVE, reader);
            return interval - n;
        case 400:
            return static_cast<float>(n * (60.0 / TEMPO));
        case 1000:
            return n;
        default:
            return interval * n;
    }
}

}  // namespace

bool out_of_time() {
    if (EVENTS == 0) return CBEATS >= ETIME + SBEAT;
    return static_cast<std::uint64_t>(EVENT_NO) >= EVENTS;
}

int store_p2(float beats, float& seconds) {
    seconds = to_tempo(beats, CBEATS);
    return insert_start(beats, seconds);
}

int insert_start(float beats, float seconds) {
    const float interval = add_rdev(seconds, MAX_DEV + MAX_DEV2);
    // Said at the first event, not minutes later.
    if (note_list == nullptr && is_too_long()) return error::OUT_OF_MEMORY;
    if (!InsertBegTime(note_list, MAX_PFIELDS, IS_FUSED, interval, STIME, CBEATS))
        return error::OUT_OF_MEMORY;
    WROTE_DATA = 1;
    CBEATS += beats;
    return 0;
}

void store_p3(const Reader& reader, ListNode*& cursor, float value) {
    cursor = cursor->next;
    int code = 0;
    float n = extract_p3val(value, code);
    n = add_rdev(n, MAX_DEV);
    n = add_rdev(n, MAX_DEV2);
    cursor->dur = duration_by_code(reader, code, cursor->dur, n) * PFACTOR;
    WROTE_DATA = 1;
}

int store_p4(Statement& statement, float value) {
    const float stored = adjust(add_rdev(value, MAX_DEV + MAX_DEV2));
    if (!StorePfield(statement.cursor, note_list, P_NO, MAX_PFIELDS, IS_FUSED, LUT, stored, PFACTOR)) {
        return error::OUT_OF_MEMORY;
    }
    WROTE_DATA = 1;
    return 0;
}

float adjust(float value) {
    const bool pitch_input = IN_TYPE == CODE_NO || IN_TYPE == CODE_OP;
    return pitch_input && NX == 0 ? RoundF(value) : value;
}

float extract_p3val(float value, int& code) {
    const float magnitude = std::fabs(value);
    float base = 0;
    for (const float next : P3_CODES) {
        if (magnitude < next) continue;
        base = next;
        break;
    }
    code = static_cast<int>(base);
    const float n = magnitude - base;
    return value < 0 ? -n : n;
}

}  // namespace vorn
