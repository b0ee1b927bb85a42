#include "generators/ddf_p2.h"

#include <cmath>

#include "blocks/block_state.h"
#include "blocks/timing.h"
#include "generators/arithmetic.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/value_queue.h"

// Functions in P2, where every value is the time to the next event and thereby
// makes an event.
//
// A function of a span goes on while the seconds gone by are fewer than its
// beats, whatever the tempo (kept on purpose); one of a number of events makes
// that many. Integer input does not round here (kept on purpose).
//
//     HO(2 .5)   at tempo 60    four events, at tempo 120 eight
//     HO(-3 .5)                 three events

namespace vorn {

namespace {

// The loop's repetition gets the value as generated, after its store.
int queue_value(Statement& statement, float value) {
    if (IN_LOOP == 0) return 0;
    return StoreInQ(statement.queue, 0, value) ? 0 : error::OUT_OF_MEMORY;
}

int fill_span(const ValueMaker& maker, Progress& progress, const Reader& reader, Statement& statement) {
    std::uint32_t standing = 0;
    while (maker.time > progress.elapsed) {
        const float elapsed = progress.elapsed;
        const float beat = CBEATS;
        const int result = insert_DDFp2(maker, progress, reader, statement);
        if (result == BLOCK_IS_FULL) return 0;
        if (result != 0) return result;
        const bool stands = progress.elapsed == elapsed && CBEATS == beat;
        standing = stands ? standing + 1 : 0;
        if (standing == MAX_STANDING_EVENTS) return error::ZERO_INTERVAL_IN_DDF;
    }
    return 0;
}

// A full block does not end the count, it only says so each time: kept on
// purpose. Where nobody would hear it, the rest is left out.
int fill_count(const ValueMaker& maker, Progress& progress, const Reader& reader, Statement& statement) {
    for (std::uint64_t i = 0; i < progress.count; ++i) {
        const int result = insert_DDFp2(maker, progress, reader, statement);
        if (result > 0) return result;
        if (result == BLOCK_IS_FULL && SUPRESS) return 0;
    }
    return 0;
}

}  // namespace

int insert_DDFp2(const ValueMaker& maker, Progress& progress, const Reader& reader, Statement& statement) {
    if (out_of_time()) {
        warning_no(warning::DDF_TRUNCATED, reader);
        statement.block_full = true;
        return BLOCK_IS_FULL;
    }
    float beats = 0;
    const std::uint32_t sub_range = choose_sub_range(*maker.weights);
    if (const int result = maker.make_value(maker.data, sub_range, progress, beats)) return result;
    LAST_VAL = beats;
    float seconds = 0;
    if (const int result = store_p2(beats, seconds)) return result;
    if (const int result = queue_value(statement, beats)) return result;
    progress.elapsed += std::fabs(seconds);
    ++progress.index;
    ++EVENT_NO;
    return 0;
}

int create_events(const ValueMaker& maker, const Reader& reader, Statement& statement) {
    Progress progress;
    progress.time = maker.time;
    progress.count = to_uint64(std::fabs(maker.time));
    if (maker.time < 0) return fill_count(maker, progress, reader, statement);
    return fill_span(maker, progress, reader, statement);
}

}  // namespace vorn
