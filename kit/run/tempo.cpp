#include "kit/run/tempo.h"

#include <algorithm>

// The engine's own map is filled again as it was when the block was read, so that
// curves and the order of search stand in one place.

namespace vorn::kit {

std::vector<float> tempos_at(const ScoreRun& run, std::size_t block, const std::vector<float>& beats) {
    reset_tempo_map();
    for (const TempoRecord& tempo : run.tempos) {
        if (tempo.before_block > block) continue;
        TEMPO_LIST[tempo.index] = tempo.definition;
        TOT_TEMPOS = std::max(TOT_TEMPOS, tempo.index + 1);
    }
    std::vector<float> tempos;
    tempos.reserve(beats.size());
    for (const float beat : beats) tempos.push_back(find_tempo(beat));
    reset_tempo_map();
    return tempos;
}

}  // namespace vorn::kit
