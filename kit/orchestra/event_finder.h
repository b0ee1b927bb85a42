#pragma once

#include <map>
#include <utility>
#include <vector>

#include "kit/run/score_run.h"

namespace vorn::kit {

// From an instrument and a time, which are all that Csound tells of an event, to the
// block that wrote it.
class EventFinder {
public:
    explicit EventFinder(const ScoreRun& run);

    // Index of the block with an event at that time of the section, else with the nearest; -1:
    // no block has that instrument. Csound prints three decimals.
    int find(std::size_t section, int instrument, double time) const;

    // Index of the first block of an instrument that writes so many p-fields; -1: there is none.
    int find_by_pfields(int instrument, int pfields) const;

private:
    const ScoreRun& run_;
    std::map<std::pair<std::size_t, int>, std::vector<std::pair<float, int>>> starts_;  // sorted
};

}  // namespace vorn::kit
