#include "kit/midi/midi_notes.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "kit/midi/velocity.h"

// Ticks are worked out from a note's absolute time, so that nothing adds up:
//
//     one tempo       480 ticks a beat; the file has that tempo, and bars are bars
//     several         480 ticks a second; the tempo is in the notes themselves
//
// A key that is struck while it sounds ends there, for MIDI cannot tell two of them
// apart; the later note then lasts as long as the longer of the two.

namespace vorn::kit {

namespace {

constexpr double SLOWEST_TEMPO = 3.6;     // the file gives a quarter at most 16.7 seconds
constexpr double LAST_TICK = 0x0FFFFFFF;  // of a delta time, and so of a file
constexpr int HIGHEST_KEY = 127;

// What was not taken as it stands, and what was taken for hertz though some of it may be keys.
struct Losses {
    std::uint64_t out_of_range = 0;
    std::uint64_t rounded = 0;
    std::uint64_t struck_again = 0;
    std::uint64_t without_pitch = 0;
    std::vector<const BlockRecord*> blocks_in_hertz;
};

struct Timing {
    double tempo;
    double ticks_per_second;
};

bool is_steady(const TempoDef& tempo) { return tempo.start_tempo == tempo.end_tempo; }

// The tempo of the whole score; 0 when there is more than one.
double only_tempo(const ScoreRun& run) {
    if (run.tempos.empty()) return 60;
    const double tempo = run.tempos.front().definition.start_tempo;
    for (const TempoRecord& record : run.tempos) {
        if (!is_steady(record.definition) || record.definition.start_tempo != tempo) return 0;
    }
    return run.tempos.front().definition.start_time == 0 || tempo == 60 ? tempo : 0;
}

Timing find_timing(const ScoreRun& run) {
    const double tempo = only_tempo(run);
    if (tempo < SLOWEST_TEMPO) return {60, TICKS_PER_QUARTER};
    return {tempo, TICKS_PER_QUARTER * tempo / 60};
}

std::vector<int> instruments_of(const ScoreRun& run) {
    std::set<int> instruments;
    for (const BlockRecord& block : run.blocks) {
        if (!block.is_skipped) instruments.insert(block.instrument);
    }
    return {instruments.begin(), instruments.end()};
}

int channel_in_turn(std::size_t index) {
    const int channel = static_cast<int>(index % (MIDI_CHANNELS - 1)) + 1;
    return channel < DRUM_CHANNEL ? channel : channel + 1;
}

std::vector<MidiTrack> make_tracks(const ScoreRun& run, const MidiOptions& options) {
    std::vector<MidiTrack> tracks;
    for (const int instrument : instruments_of(run)) {
        MidiTrack track;
        track.instrument = instrument;
        const auto channel = options.channels.find(instrument);
        track.channel = channel != options.channels.end() ? channel->second : channel_in_turn(tracks.size());
        const auto program = options.programs.find(instrument);
        track.program = program != options.programs.end() ? program->second : 0;
        tracks.push_back(std::move(track));
    }
    return tracks;
}

std::uint32_t to_tick(double seconds, const Timing& timing) {
    return static_cast<std::uint32_t>(
        std::clamp(std::round(seconds * timing.ticks_per_second), 0.0, LAST_TICK));
}

// One event as a note; false when it has none.
bool make_note(MidiNote& note, const BlockRecord& block, std::size_t row, const PitchRole& pitch,
               const Timing& timing, Losses& losses) {
    const double key = to_key(pitch, block.value(row, pitch.pfield));
    const double nearest = std::round(key);
    if (!(nearest >= 0 && nearest <= HIGHEST_KEY)) {
        ++losses.out_of_range;
        return false;
    }
    if (std::fabs(key - nearest) > 0.01) ++losses.rounded;
    const double start = block.events.exact_start[row];
    note.key = static_cast<std::uint8_t>(nearest);
    note.start = to_tick(start, timing);
    note.end = std::max(to_tick(start + double{block.events.duration[row]}, timing), note.start + 1);
    return true;
}

// Whether a number of a sounding event is such that it may be meant as a key.
bool has_possible_keys(const BlockRecord& block, int pfield) {
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        const float value = block.value(row, pfield);
        if (block.events.duration[row] > 0 && value >= 0 && value <= HIGHEST_KEY) return true;
    }
    return false;
}

void add_notes(MidiTrack& track, const BlockRecord& block, const MidiOptions& options,
               const VelocityScale& velocities, const Timing& timing, Losses& losses) {
    const PitchRole pitch = find_pitch(block, options.roles);
    const LevelRole level = find_level(block, options.roles);
    if (pitch.unit == PitchUnit::HERTZ && has_possible_keys(block, pitch.pfield)) {
        losses.blocks_in_hertz.push_back(&block);
    }
    for (std::size_t row = 0; row < block.events.size(); ++row) {
        if (block.events.duration[row] <= 0) continue;
        if (pitch.pfield == 0) {
            ++losses.without_pitch;
            continue;
        }
        MidiNote note;
        if (!make_note(note, block, row, pitch, timing, losses)) continue;
        note.velocity = velocities.velocity(level, level.pfield == 0 ? 0 : block.value(row, level.pfield));
        track.notes.push_back(note);
    }
}

// Ends each note where its key is struck again.
void part_equal_keys(std::vector<MidiNote>& notes, Losses& losses) {
    std::stable_sort(notes.begin(), notes.end(),
                     [](const MidiNote& a, const MidiNote& b) { return a.start < b.start; });
    std::vector<std::size_t> sounding(HIGHEST_KEY + 1, notes.size());
    for (std::size_t at = 0; at < notes.size(); ++at) {
        const std::size_t before = sounding[notes[at].key];
        if (before < notes.size() && notes[before].end > notes[at].start) {
            notes[at].end = std::max(notes[at].end, notes[before].end);
            notes[before].end = notes[at].start;
            ++losses.struck_again;
        }
        sounding[notes[at].key] = at;
    }
    std::erase_if(notes, [](const MidiNote& note) { return note.end == note.start; });
}

void remark_count(std::vector<std::string>& remarks, std::uint64_t count, const char* what) {
    if (count > 0) remarks.push_back(std::to_string(count) + (count == 1 ? " note " : " notes ") + what);
}

void remark_hertz(std::vector<std::string>& remarks, const ScoreRun& run, const MidiOptions& options,
                  const std::vector<const BlockRecord*>& blocks) {
    if (blocks.empty()) return;
    const FileSpan& header = blocks[0]->header;
    std::string place = header.file < 0 ? "" : " of line " + std::to_string(run.map.text_place(header).line);
    if (header.file > 0) place += " of " + run.map.files()[static_cast<std::size_t>(header.file)].name;
    const std::string more =
        blocks.size() == 1 ? "" : ", and so in " + std::to_string(blocks.size() - 1) + " more";
    remarks.push_back("p" + std::to_string(find_pitch(*blocks[0], options.roles).pfield) + " in the block" +
                      place + " is read as hertz, since some of it is above 127, the highest key" + more);
}

void remark_losses(MidiNotes& result, const Losses& losses) {
    remark_count(result.remarks, losses.out_of_range, "outside the keys 0 to 127 left out");
    remark_count(result.remarks, losses.without_pitch, "left out: their block has no p-field for the pitch");
    remark_count(result.remarks, losses.rounded, "between the semitones rounded to the nearest");
    remark_count(result.remarks, losses.struck_again, "struck again while the key sounded: it ends there");
}

// Numbers for instruments that the score has not.
void remark_absent(std::vector<std::string>& remarks, const std::vector<MidiTrack>& tracks,
                   const std::map<int, int>& assigned, const std::string& what) {
    for (const auto& [instrument, number] : assigned) {
        const bool is_there =
            std::any_of(tracks.begin(), tracks.end(),
                        [wanted = instrument](const MidiTrack& track) { return track.instrument == wanted; });
        if (is_there) continue;
        remarks.push_back("the score has no instrument " + std::to_string(instrument) + " for " + what + " " +
                          std::to_string(number));
    }
}

bool shares_channels(const std::vector<MidiTrack>& tracks) {
    std::set<int> channels;
    for (const MidiTrack& track : tracks) channels.insert(track.channel);
    return channels.size() < tracks.size();
}

}  // namespace

MidiNotes midi_notes(const ScoreRun& run, const MidiOptions& options) {
    MidiNotes result;
    const Timing timing = find_timing(run);
    result.tempo = timing.tempo;
    if (run.seconds * timing.ticks_per_second > LAST_TICK) {
        result.error = "the score is longer than a MIDI file can be";
        return result;
    }
    if (const double tempo = only_tempo(run); tempo < SLOWEST_TEMPO) {
        result.remarks.push_back(std::string(tempo == 0 ? "the tempo changes" : "MIDI has no tempo so slow") +
                                 ", so the file counts seconds: 60 quarters per minute");
    }
    const VelocityScale velocities(run, options.roles);
    result.remarks.insert(result.remarks.end(), velocities.remarks().begin(), velocities.remarks().end());
    result.tracks = make_tracks(run, options);
    remark_absent(result.remarks, result.tracks, options.channels, "channel");
    remark_absent(result.remarks, result.tracks, options.programs, "program");
    if (shares_channels(result.tracks)) result.remarks.push_back("some instruments share a channel");
    Losses losses;
    for (const BlockRecord& block : run.blocks) {
        if (block.is_skipped) continue;
        // The tracks are sorted by instrument.
        const auto track = std::lower_bound(
            result.tracks.begin(), result.tracks.end(), block.instrument,
            [](const MidiTrack& one, int instrument) { return one.instrument < instrument; });
        add_notes(*track, block, options, velocities, timing, losses);
    }
    for (MidiTrack& track : result.tracks) part_equal_keys(track.notes, losses);
    remark_hertz(result.remarks, run, options, losses.blocks_in_hertz);
    remark_losses(result, losses);
    return result;
}

}  // namespace vorn::kit
