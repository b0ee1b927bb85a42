#include "kit/run/tempo.h"

#include <algorithm>

// The engine's own map is filled again as it was when the block was read, so that
// curves and the order of search stand in one place. A definition counts for the
// blocks behind it in the text.

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

std::vector<float> tempos_at(const ScoreRun& run, std::size_t block, const std::vector<float>& beats) {
    TempoInForce(run).advance_to(block);
    std::vector<float> tempos;
    tempos.reserve(beats.size());
    for (const float beat : beats) tempos.push_back(find_tempo(beat));
    reset_tempo_map();
    return tempos;
}

}  // namespace vorn::kit
