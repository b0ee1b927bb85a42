#include <algorithm>
#include <array>
#include <cmath>

#include "blocks/command_codes.h"
#include "kit/lint/rules.h"
#include "output/midi_events.h"

// What vorn -m leaves out or bends: it writes one block, P4 as the velocity and P5
// as the key, everything to one channel.

namespace vorn::kit::rules {

namespace {

constexpr int LEVEL_FIELD = 4;
constexpr int KEY_FIELD = 5;
constexpr float KEYS_OF_NAMES = 12;   // a note name is read an octave higher there
constexpr double FULL_LEVEL = 32767;  // velocity 127

const BlockRecord* first_block(const ScoreRun& run) {
    const auto first = std::find_if(run.blocks.begin(), run.blocks.end(),
                                    [](const BlockRecord& block) { return block.events.size() > 0; });
    return first == run.blocks.end() ? nullptr : &*first;
}

const FieldRecord* find_field(const BlockRecord& block, int number) {
    const auto field = std::find_if(block.fields.begin(), block.fields.end(),
                                    [number](const FieldRecord& one) { return one.number == number; });
    return field == block.fields.end() ? nullptr : &*field;
}

// What the values of a field become in a MIDI file beyond what they are in a score.
float key_offset(const FieldRecord& field) {
    return field.input_type == CODE_NO || field.input_type == CODE_OP ? KEYS_OF_NAMES : 0;
}

bool is_note(const BlockRecord& block, std::size_t row) { return block.events.duration[row] > 0; }

struct Beyond {
    std::uint64_t count = 0;
    float first = 0;
};

template <typename Predicate>
Beyond count_beyond(const BlockRecord& block, int number, float offset, Predicate is_beyond) {
    Beyond beyond;
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const float value = block.value(row, number) + offset;
        if (!is_note(block, row) || !is_beyond(value)) continue;
        if (beyond.count++ == 0) beyond.first = value;
    }
    return beyond;
}

double velocity_of(float level) { return std::trunc(double{level} * (MIDI_NOTES - 1) / FULL_LEVEL); }

std::string notes_in_words(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " note has" : " notes have");
}

void check_keys(const BlockRecord& block, const FieldRecord& field, Findings& findings) {
    const Beyond beyond = count_beyond(block, KEY_FIELD, key_offset(field), [](float key) {
        return key < 0 || key >= static_cast<float>(MIDI_NOTES);
    });
    if (beyond.count == 0) return;
    Diagnostic diagnostic = findings.at(field.statement);
    diagnostic.text = notes_in_words(beyond.count) + " a key outside 0 to 127, the first " +
                      number_text(double{beyond.first}) + "; in a MIDI file it is taken modulo 128.";
    diagnostic.advice.push_back("P5 is the key: 60, or \"no c4\", is the middle c.");
    findings.add(std::move(diagnostic));
}

void check_velocities(const BlockRecord& block, const FieldRecord& field, Findings& findings) {
    const Beyond beyond = count_beyond(block, LEVEL_FIELD, 0, [](float level) {
        return velocity_of(level) < 1 || velocity_of(level) >= MIDI_NOTES;
    });
    if (beyond.count == 0) return;
    Diagnostic diagnostic = findings.at(field.statement);
    diagnostic.text = notes_in_words(beyond.count) + " a velocity outside 1 to 127, the first " +
                      number_text(velocity_of(beyond.first)) + ".";
    diagnostic.advice.push_back("P4 is an amplitude: 32767 is velocity 127, and \"db 80\" velocity 38.");
    findings.add(std::move(diagnostic));
}

// Notes that begin while their key is still down.
struct Restrikes {
    std::uint64_t count = 0;
    float first_start = 0;
    int first_key = 0;
};

Restrikes count_restrikes(const BlockRecord& block, float offset) {
    Restrikes restrikes;
    std::array<float, MIDI_NOTES> ends = {};  // seconds
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const float key = block.value(row, KEY_FIELD) + offset;
        if (!is_note(block, row) || !(key >= 0 && key < static_cast<float>(MIDI_NOTES))) continue;
        float& end = ends[static_cast<std::size_t>(key)];
        const float start = block.events.start[row];
        if (start < end && restrikes.count++ == 0) restrikes = {1, start, static_cast<int>(key)};
        end = std::max(end, start + block.events.duration[row]);
    }
    return restrikes;
}

}  // namespace

void blocks_behind_first(const ScoreRun& run, Findings& findings) {
    const BlockRecord* const first = first_block(run);
    for (const BlockRecord& block : run.blocks) {
        if (first == nullptr || &block <= first || block.is_skipped) continue;
        Diagnostic diagnostic = findings.at(block.header);
        diagnostic.text = "vorn -m writes the first block alone; this one is left out.";
        diagnostic.advice.push_back("vornkit midi writes all blocks.");
        findings.add(std::move(diagnostic));
    }
}

void beyond_midi_values(const ScoreRun& run, Findings& findings) {
    const BlockRecord* const block = first_block(run);
    if (block == nullptr) return;
    const FieldRecord* const level = find_field(*block, LEVEL_FIELD);
    const FieldRecord* const key = find_field(*block, KEY_FIELD);
    if (level != nullptr) check_velocities(*block, *level, findings);
    if (key != nullptr) check_keys(*block, *key, findings);
}

void voices_on_one_key(const ScoreRun& run, Findings& findings) {
    const BlockRecord* const block = first_block(run);
    const FieldRecord* const key = block == nullptr ? nullptr : find_field(*block, KEY_FIELD);
    if (key == nullptr) return;
    const Restrikes restrikes = count_restrikes(*block, key_offset(*key));
    if (restrikes.count == 0) return;
    Diagnostic diagnostic = findings.at(key->statement);
    diagnostic.text = "More than one voice on a key: " + std::to_string(restrikes.count) +
                      (restrikes.count == 1 ? " note begins" : " notes begin") +
                      " while the same key still sounds, the first at " +
                      number_text(double{restrikes.first_start}) + " seconds on key " +
                      std::to_string(restrikes.first_key) + ".";
    diagnostic.advice.push_back("The end of the earlier note ends both: shorten it in P3.");
    findings.add(std::move(diagnostic));
}

}  // namespace vorn::kit::rules
