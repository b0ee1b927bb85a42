#include "kit/midi/midi_bytes.h"

#include <algorithm>
#include <cmath>
#include <limits>

// A track's events stand in the order of their ticks, ends before beginnings, so
// that a key which ends and begins in the same tick sounds.

namespace vorn::kit {

namespace {

constexpr std::uint8_t NOTE_OFF = 0x80;
constexpr std::uint8_t NOTE_ON = 0x90;
constexpr std::uint8_t PROGRAM = 0xC0;
constexpr std::uint8_t META = 0xFF;
constexpr std::uint8_t META_NAME = 0x03;
constexpr std::uint8_t META_END = 0x2F;
constexpr std::uint8_t META_TEMPO = 0x51;
constexpr char OFF_VELOCITY = 64;
constexpr double MICROSECONDS_PER_MINUTE = 60e6;

void put(std::string& bytes, std::uint32_t number, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
        bytes += static_cast<char>((number >> shift) & 0xFFU);
    }
}

// Seven bits a byte, the highest first; all but the last byte have their top bit set.
void put_length(std::string& bytes, std::uint32_t number) {
    for (int shift = 21; shift > 0; shift -= 7) {
        if ((number >> shift) != 0) bytes += static_cast<char>(0x80U | ((number >> shift) & 0x7FU));
    }
    bytes += static_cast<char>(number & 0x7FU);
}

void put_meta(std::string& bytes, std::uint8_t type, const std::string& data) {
    put_length(bytes, 0);
    put(bytes, META, 1);
    put(bytes, type, 1);
    put_length(bytes, static_cast<std::uint32_t>(data.size()));
    bytes += data;
}

bool put_chunk(std::string& bytes, const char* name, const std::string& data) {
    if (data.size() > std::numeric_limits<std::uint32_t>::max()) return false;
    bytes += name;
    put(bytes, static_cast<std::uint32_t>(data.size()), 4);
    bytes += data;
    return true;
}

std::string header(std::size_t tracks) {
    std::string data;
    put(data, 1, 2);
    put(data, static_cast<std::uint32_t>(tracks), 2);
    put(data, TICKS_PER_QUARTER, 2);
    return data;
}

std::string tempo_track(const MidiNotes& notes, const std::string& title) {
    std::string data;
    put_meta(data, META_NAME, title);
    std::string tempo;
    put(tempo, static_cast<std::uint32_t>(std::lround(MICROSECONDS_PER_MINUTE / notes.tempo)), 3);
    put_meta(data, META_TEMPO, tempo);
    put_meta(data, META_END, "");
    return data;
}

// The notes once more, by the ticks at which they end.
std::vector<std::uint32_t> by_end(const std::vector<MidiNote>& notes) {
    std::vector<std::uint32_t> order(notes.size());
    for (std::size_t at = 0; at < order.size(); ++at) order[at] = static_cast<std::uint32_t>(at);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return notes[a].end < notes[b].end; });
    return order;
}

class TrackWriter {
public:
    explicit TrackWriter(int channel) : channel_(static_cast<std::uint32_t>(channel - 1)) {}

    void note(std::uint8_t status, std::uint32_t tick, std::uint8_t key, char velocity) {
        put_length(bytes, tick - tick_);
        tick_ = tick;
        put(bytes, status | channel_, 1);
        bytes += static_cast<char>(key);
        bytes += velocity;
    }

    void program(int number) {
        put_length(bytes, 0);
        put(bytes, PROGRAM | channel_, 1);
        bytes += static_cast<char>(number - 1);
    }

    std::string bytes;

private:
    std::uint32_t channel_;
    std::uint32_t tick_ = 0;
};

// Notes are in the order of their starts.
std::string instrument_track(const MidiTrack& track) {
    TrackWriter writer(track.channel);
    put_meta(writer.bytes, META_NAME, "i" + std::to_string(track.instrument));
    if (track.program > 0) writer.program(track.program);
    const std::vector<std::uint32_t> ends = by_end(track.notes);
    std::size_t ended = 0;
    const auto end_until = [&](std::uint32_t tick) {
        for (; ended < ends.size() && track.notes[ends[ended]].end <= tick; ++ended) {
            const MidiNote& note = track.notes[ends[ended]];
            writer.note(NOTE_OFF, note.end, note.key, OFF_VELOCITY);
        }
    };
    for (const MidiNote& note : track.notes) {
        end_until(note.start);
        writer.note(NOTE_ON, note.start, note.key, static_cast<char>(note.velocity));
    }
    end_until(std::numeric_limits<std::uint32_t>::max());
    put_meta(writer.bytes, META_END, "");
    return std::move(writer.bytes);
}

}  // namespace

std::string midi_bytes(const MidiNotes& notes, const std::string& title) {
    std::string bytes;
    bool fits = put_chunk(bytes, "MThd", header(notes.tracks.size() + 1));
    fits = put_chunk(bytes, "MTrk", tempo_track(notes, title)) && fits;
    for (const MidiTrack& track : notes.tracks) {
        fits = put_chunk(bytes, "MTrk", instrument_track(track)) && fits;
    }
    return fits ? bytes : std::string();
}

}  // namespace vorn::kit
