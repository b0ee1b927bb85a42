#include "blocks/fill.h"

#include "blocks/block_state.h"
#include "blocks/store.h"
#include "blocks/timing.h"
#include "input/errors.h"
#include "output/tempo_map.h"

// The fill: what a p-field does when its data end before the block is full.
//
//     p4 60 62          60 62 62 62 ...   the last value is held
//     p4 <60 62>        60 62 60 62 ...   the loop is cycled
//     p4 <60 64:67>     60 64:67 60 64:67 ...
//
// A chord of the queue is never cut, so a block may end one or more events late.
// An interval is converted before it is refused, so that a trace of the tempo shows it.

namespace vorn {

namespace {

int refuse_held_value() {
    if (P_NO == 2) to_tempo(LAST_VAL, CBEATS);
    return error::ZERO_INTERVAL;
}

int hold_last_value(const Reader& reader, Statement& statement) {
    while (!out_of_time()) {
        if (repeats_forever()) return refuse_held_value();
        const int result = store_value(reader, statement, LAST_VAL, ValueSource::REPEAT, true);
        if (result != 0) return result;
    }
    return 0;
}

// Whether one cycle of the queue, begun at beat cycle_start, has brought a block
// that ends at a beat no nearer to its end.
bool cycle_stands_still(float cycle_start) {
    if (EVENTS != 0) return false;
    return P_NO != 2 || !(CBEATS > cycle_start);
}

int cycle_queue(const Reader& reader, Statement& statement) {
    const QNode* const head = statement.queue->next;
    const QNode* node = head;
    float cycle_start = CBEATS;
    do {
        IS_FUSED = static_cast<int>(node->code);
        if (IS_FUSED != 0) ++EVENTS;
        const int result = store_value(reader, statement, node->value, ValueSource::QUEUE, true);
        if (result != 0) return result;
        node = node->next;
        if (node == head) {
            if (!out_of_time() && cycle_stands_still(cycle_start)) return error::ZERO_INTERVAL;
            cycle_start = CBEATS;
        }
    } while (node->code != 0 || !out_of_time());
    return 0;
}

}  // namespace

int fill_to_end(const Reader& reader, Statement& statement) {
    const bool looped = statement.queue != nullptr;
    if (looped && statement.queue->next->code == 1) ++EVENTS;
    if (out_of_time()) return 0;
    return looped ? cycle_queue(reader, statement) : hold_last_value(reader, statement);
}

}  // namespace vorn
