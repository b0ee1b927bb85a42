#include "kit/orchestra/event_finder.h"

#include <algorithm>
#include <cmath>

#include "kit/orchestra/plain_notes.h"

// The starts of all events are sorted once, so that a score of which Csound
// refuses every note is mapped in no time.

namespace vorn::kit {

EventFinder::EventFinder(const ScoreRun& run) : run_(run) {
    const std::vector<std::size_t> sections = sections_of_blocks(run);
    for (std::size_t index = 0; index < run.blocks.size(); ++index) {
        const BlockRecord& block = run.blocks[index];
        auto& starts = starts_[{sections[index], block.instrument}];
        for (std::size_t row = 0; row < block.events.size(); ++row) {
            if (block.events.duration[row] > 0) {
                starts.emplace_back(block.events.start[row], static_cast<int>(index));
            }
        }
    }
    for (auto& [key, starts] : starts_) std::sort(starts.begin(), starts.end());
}

int EventFinder::find(std::size_t section, int instrument, double time) const {
    const auto found = starts_.find({section, instrument});
    if (found == starts_.end() || found->second.empty()) return -1;
    const auto& starts = found->second;
    const auto behind =
        std::lower_bound(starts.begin(), starts.end(), time,
                         [](const auto& start, double wanted) { return start.first < wanted; });
    if (behind == starts.begin()) return behind->second;
    const auto before = behind - 1;
    if (behind == starts.end()) return before->second;
    return std::fabs(before->first - time) < std::fabs(behind->first - time) ? before->second
                                                                             : behind->second;
}

int EventFinder::find_by_pfields(int instrument, int pfields) const {
    for (std::size_t index = 0; index < run_.blocks.size(); ++index) {
        const BlockRecord& block = run_.blocks[index];
        if (block.instrument == instrument && block.pfields == pfields) return static_cast<int>(index);
    }
    return -1;
}

}  // namespace vorn::kit
