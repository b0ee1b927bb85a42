#include "kit/orchestra/plain_notes.h"

#include <algorithm>
#include <cmath>

#include "kit/run/logarithms.h"

// How loud a sum gets depends on the phases of its parts. Amplitudes that add up to
// less than the scale never clip; but of many notes at once the sum is far smaller, as
// the root of the sum of their squares. The gain is the larger of what both allow; the
// orchestra bends the rare peaks above.

namespace vorn::kit {

namespace {

constexpr double KEY_OF_A440 = 69;
constexpr double MIDDLE_C = 60;
constexpr double LOWEST_FREQUENCY = 8;
constexpr double HIGHEST_FREQUENCY = 16000;
constexpr double USUAL_DECIBELS = -12;
constexpr double LEVEL_RANGE = 48;   // decibels
constexpr double FULL_SUM = 0.8;     // of amplitudes
constexpr double FULL_POWER = 0.25;  // root of the sum of their squares
constexpr double RELEASE_SECONDS = 0.1;

double frequency_of(const PitchRole& role, const BlockRecord& block, std::size_t row) {
    const double key = role.pfield == 0 ? MIDDLE_C : to_key(role, block.value(row, role.pfield));
    if (!std::isfinite(key)) return LOWEST_FREQUENCY;
    return std::clamp(440 * power_of_two((key - KEY_OF_A440) / 12), LOWEST_FREQUENCY, HIGHEST_FREQUENCY);
}

// Decibels for the time being; not a number where the block has no level.
double level_of(const LevelRole& role, const BlockRecord& block, std::size_t row) {
    return role.pfield == 0 ? std::nan("") : to_decibels(role, block.value(row, role.pfield));
}

void add_notes(std::vector<PlainNote>& notes, const ScoreRun& run, std::size_t index,
               const WantedRoles& roles) {
    const BlockRecord& block = run.blocks[index];
    const PitchRole pitch = find_pitch(block, roles);
    const LevelRole level = find_level(block, roles);
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const double duration = block.events.duration[row];
        if (!(duration > 0) || !std::isfinite(duration)) continue;
        notes.push_back({index, block.events.start[row], duration, frequency_of(pitch, block, row),
                         level_of(level, block, row)});
    }
}

double loudest_level(const std::vector<PlainNote>& notes) {
    double loudest = -HUGE_VAL;
    for (const PlainNote& note : notes) {
        if (std::isfinite(note.amplitude)) loudest = std::max(loudest, note.amplitude);
    }
    return std::isfinite(loudest) ? loudest : 0;
}

// Minus infinity is silence and stays so.
double relative_amplitude(double decibels, double loudest) {
    if (decibels == -HUGE_VAL) return 0;
    const double distance = std::isfinite(decibels) ? decibels - loudest : USUAL_DECIBELS;
    return power_of_ten(std::max(distance, -LEVEL_RANGE) / 20);
}

struct Change {
    std::size_t section;
    double time;
    double amplitude;  // negative: a note ends
};

std::vector<Change> changes_of(const std::vector<PlainNote>& notes,
                               const std::vector<std::size_t>& sections) {
    std::vector<Change> changes;
    for (const PlainNote& note : notes) {
        const std::size_t section = sections[note.block];
        changes.push_back({section, note.start, note.amplitude});
        changes.push_back({section, note.start + note.duration + RELEASE_SECONDS, -note.amplitude});
    }
    std::sort(changes.begin(), changes.end(), [](const Change& a, const Change& b) {
        return a.section != b.section ? a.section < b.section : a.time < b.time;
    });
    return changes;
}

double gain_for(const std::vector<Change>& changes) {
    double sum = 0;
    double power = 0;
    double largest_sum = 0;
    double largest_power = 0;
    for (const Change& change : changes) {
        sum += change.amplitude;
        power += change.amplitude * std::fabs(change.amplitude);
        largest_sum = std::max(largest_sum, sum);
        largest_power = std::max(largest_power, power);
    }
    return largest_sum > 0 ? std::max(FULL_SUM / largest_sum, FULL_POWER / std::sqrt(largest_power)) : 0;
}

}  // namespace

char score_letter(const std::string& line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string::npos ? '\0' : line[first];
}

std::vector<std::size_t> sections_of_blocks(const ScoreRun& run) {
    std::vector<std::size_t> sections;
    std::size_t line = 0;
    std::size_t section = 0;
    for (std::size_t block = 0; block < run.blocks.size(); ++block) {
        for (; line < run.direct_lines.size() && run.direct_lines[line].before_block <= block; ++line) {
            if (score_letter(run.direct_lines[line].text) == 's') ++section;
        }
        sections.push_back(section);
    }
    return sections;
}

std::vector<PlainNote> plain_notes(const ScoreRun& run, const WantedRoles& roles) {
    std::vector<PlainNote> notes;
    for (std::size_t block = 0; block < run.blocks.size(); ++block) add_notes(notes, run, block, roles);
    const double loudest = loudest_level(notes);
    for (PlainNote& note : notes) note.amplitude = relative_amplitude(note.amplitude, loudest);
    const double gain = gain_for(changes_of(notes, sections_of_blocks(run)));
    for (PlainNote& note : notes) note.amplitude *= gain;
    return notes;
}

}  // namespace vorn::kit
