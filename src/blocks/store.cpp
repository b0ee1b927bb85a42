#include "blocks/store.h"

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/timing.h"
#include "generators/deviation.h"
#include "input/errors.h"
#include "output/tempo_map.h"

// The one place where a value of a data list, of a repeat or of the fill enters
// the current p-field.
//
// From P4 on a value that repeats the one before it may stand for a chord: the
// cursor is then not on LUT, the event that was last given a value from data,
// and the whole chord is repeated:
//
//     p4 60:64 67 x2      60 and 64 together, 67, 67
//     p4 60 64:67 x2      60, then 64 and 67 together twice

namespace vorn {

namespace {

// An interval of the statement is tested before it is converted, one that is replayed
// afterwards: a trace of the tempo shows the difference.
int store_start(float value, ValueSource source) {
    if (EVENTS == 0 && value == 0 && source != ValueSource::QUEUE) return error::ZERO_INTERVAL;
    const float seconds = to_tempo(value, CBEATS);
    if (EVENTS == 0 && seconds == 0) return error::ZERO_INTERVAL;
    return insert_start(value, seconds);
}

// The last chord of P4 and up again; `extra` is its number of events beside the first.
int repeat_chord(Statement& statement, float value, std::uint64_t& extra) {
    // Drawn as for every stored value, though a repeated chord is not deviated.
    add_rdev(value, MAX_DEV + MAX_DEV2);
    if (!DoListChord(note_list, statement.cursor, LUT, P_NO, MAX_PFIELDS, extra)) return error::OUT_OF_MEMORY;
    return 0;
}

int store_pfield(Statement& statement, float value, ValueSource source, bool rest, std::uint64_t& extra) {
    const bool chord = source == ValueSource::REPEAT && LUT != statement.cursor;
    const int result = chord ? repeat_chord(statement, value, extra) : store_p4(statement, value);
    // The cursor is on the event that received the value: of a chord, the last.
    if (result == 0 && rest) statement.cursor->dur = -statement.cursor->dur;
    return result;
}

}  // namespace

int store_value(const Reader& reader, Statement& statement, float value, ValueSource source,
                bool rest_negates) {
    if (EVENT_NO >= static_cast<std::int64_t>(MAX_EVENTS)) return error::OUT_OF_MEMORY;
    std::uint64_t extra = 0;
    int result = 0;
    if (P_NO == 2) {
        result = store_start(value, source);
    } else if (P_NO == 3) {
        store_p3(reader, statement.cursor, value);
    } else {
        const bool rest = rest_negates && IN_TYPE == CODE_NO && value < 0;
        result = store_pfield(statement, value, source, rest, extra);
    }
    if (result != 0) return result;
    EVENT_NO += static_cast<std::int64_t>(extra + 1);
    EVENTS += extra;
    return 0;
}

bool repeats_forever() {
    if (EVENTS != 0) return false;
    return P_NO != 2 || !(CBEATS + LAST_VAL > CBEATS);
}

}  // namespace vorn
