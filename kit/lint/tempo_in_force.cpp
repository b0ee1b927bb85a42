#include "kit/lint/tempo_in_force.h"

#include <algorithm>

#include "output/tempo_map.h"

// A definition counts for the blocks behind it in the text.

namespace vorn::kit {

TempoInForce::TempoInForce(const ScoreRun& run) : run_(run) { reset_tempo_map(); }

void TempoInForce::advance_to(std::size_t block) {
    for (; next_ < run_.tempos.size() && run_.tempos[next_].before_block <= block; ++next_) {
        const TempoRecord& tempo = run_.tempos[next_];
        TEMPO_LIST[tempo.index] = tempo.definition;
        TOT_TEMPOS = std::max(TOT_TEMPOS, tempo.index + 1);
    }
}

bool tempo_moves() {
    const float first = TEMPO_LIST[0].start_tempo;
    return std::any_of(TEMPO_LIST, TEMPO_LIST + TOT_TEMPOS, [first](const TempoDef& tempo) {
        return tempo.start_tempo != first || tempo.end_tempo != first;
    });
}

}  // namespace vorn::kit
