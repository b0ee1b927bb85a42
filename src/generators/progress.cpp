#include "generators/progress.h"

#include <cmath>
#include <cstdio>

#include "blocks/block_state.h"
#include "generators/arithmetic.h"
#include "generators/curves.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/run_flags.h"

// Where a data-defining function stands, by number of events or by time.
//
// Functions of P3 and above cover events that exist already: a negative time
// counts them, a span takes those whose beats lie inside. Functions of P2 make
// the events, so the only measure there is what has gone by.
//
//     curve e over 3 events        at 0, 1/2, 1 of the way
//     curve e* over a span         at (beat - first) / (last + first)
//     P2, span of 4                at elapsed seconds / 4

namespace vorn {

namespace {

constexpr double SPAN_TOLERANCE = 5.0;  // beats that a span may reach beyond the last event unmentioned

// The end of the span is compared with the last event's beat as counted from
// the start of the score, not of the function: kept on purpose.
void warn_of_short_span(const Progress& progress, const Reader& reader) {
    if (!(progress.time - SPAN_TOLERANCE > progress.last_beat)) return;
    warning_no(warning::DURATION_ALTERED, reader);
    if (SUPRESS) return;
    Mprintf("Old duration = %f, New duration = %f\n", progress.time, progress.last_beat);
}

// The traces of a "*" curve belong to the output, whatever is suppressed. The
// curve's span is the sum of the two beats: kept on purpose.
float curve_over_time(const Progress& progress, std::uint32_t curve, float start, float end, float exponent) {
    const float t = progress.event->beat - progress.first_beat;
    std::fprintf(std_out, "\ntime = %f", static_cast<double>(t));
    return tplot_val(curve - BEAT_CURVE, t, progress.last_beat + progress.first_beat, start, end, exponent);
}

}  // namespace

Progress measure_span(float time, const Statement& statement, const Reader& reader) {
    Progress progress;
    progress.time = time;
    if (time < 0) {
        progress.count = to_uint64(std::fabs(time));
        return progress;
    }
    progress.count = ListSize(progress.first_beat, progress.last_beat, statement.cursor, note_list, time);
    warn_of_short_span(progress, reader);
    return progress;
}

const ListNode* next_event(const Statement& statement) {
    const bool copies_cursor = IS_FUSED != 0 && P_NO > 3;
    return copies_cursor ? statement.cursor : statement.cursor->next;
}

// In P2 the code of a "*" curve is used as it stands, so it jumps from start to
// end after the first event: kept on purpose.
float curve_value(const Progress& progress, std::uint32_t curve, float start, float end, float exponent) {
    if (progress.event == nullptr && !(progress.time < 0)) {
        return tplot_val(curve, progress.elapsed, progress.time, start, end, exponent);
    }
    if (progress.event != nullptr && curve >= BEAT_CURVE) {
        return curve_over_time(progress, curve, start, end, exponent);
    }
    return pplot_val(progress.index, progress.count, curve, start, end, exponent);
}

}  // namespace vorn
