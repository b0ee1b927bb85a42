#pragma once

#include <vector>

#include "kit/picture/scale.h"
#include "kit/run/score_run.h"

// Which beat is reached at which second. Blocks that were read below different tempi,
// or that sum their intervals from different places, need not agree: the longest
// block is followed, and those beside it where they go on from there.

namespace vorn::kit {

struct BeatPoint {
    double second = 0;
    double beat = 0;
    std::size_t block = 0;  // index in the run
};

class BeatMap {
public:
    // Points closer than `grain` seconds are left out.
    BeatMap(const ScoreRun& run, double grain);

    bool is_empty() const { return points_.empty(); }
    double beat(double second) const;
    double second(double beat) const;
    std::size_t block(double second) const;  // whose beat it is

    // Blocks of which some event lies more than `tolerance` seconds off its beat here.
    std::size_t strangers(const ScoreRun& run, double tolerance) const;

private:
    void add_block(const BlockRecord& block, std::size_t index, double grain);
    void extend_ends(const ScoreRun& run);

    std::vector<BeatPoint> points_;  // rising in seconds and in beats
};

// Ticks of round beats, `least` pixels apart at least, on a scale of seconds.
[[nodiscard]] std::vector<Tick> beat_ticks(const BeatMap& map, const Scale& seconds, double least);

// Tempo, in beats per minute, at each of the seconds.
[[nodiscard]] std::vector<double> tempos_over_time(const ScoreRun& run, const BeatMap& map,
                                                   const std::vector<double>& seconds);

}  // namespace vorn::kit
