// The test reader itself: what it makes of sound files, and that it is loud
// about every kind of broken one.

#include "support/midi_dump.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vorn::test::DataBytes;
using vorn::test::midi_dump;

// The bytes of hexadecimal digits, blanks ignored.
std::string bytes(const std::string& hexadecimal) {
    std::string result;
    int digits = 0;
    int value = 0;
    for (const char c : hexadecimal) {
        if (c == ' ') continue;
        value = value * 16 + (c <= '9' ? c - '0' : c - 'A' + 10);
        if (++digits % 2 != 0) continue;
        result += static_cast<char>(value);
        value = 0;
    }
    return result;
}

const std::string HEADER = "4D546864 00000006 0001 0001 01E0 ";

// A file of one track with the given events.
std::string file(const std::string& events) {
    const std::string body = bytes(events);
    std::string size(4, '\0');
    size[2] = static_cast<char>(body.size() >> 8);
    size[3] = static_cast<char>(body.size());
    return bytes(HEADER) + "MTrk" + size + body;
}

// The lines behind the two of header and track.
std::string events_of(const std::string& events) {
    const std::string text = midi_dump(file(events));
    return text.substr(text.find('\n', text.find('\n') + 1) + 1);
}

std::string last_line(const std::string& text) { return text.substr(text.rfind('\n', text.size() - 2) + 1); }

TEST(MidiDump, NoBytes) { EXPECT_EQ(midi_dump(""), "no bytes\n"); }

TEST(MidiDump, AFileOfOneEmptyTrack) {
    EXPECT_EQ(midi_dump(file("00 FF 2F 00")),
              "MThd format 1, tracks 1, division 480\nMTrk 1, 4 bytes\n0 +0 end of track\n");
}

TEST(MidiDump, EventsByTickAndDelta) {
    EXPECT_EQ(events_of("00 FF5804 06 03 18 08  00 FF5103 07A120  05 95 3C 3E  8148 85 3C 40  00 B0 07 64  "
                        "00 C1 05  00 FF03 02 4142  00 FF2F00"),
              "0 +0 time signature 6/8, 24 clocks per click, 8 thirty-seconds per quarter\n"
              "0 +0 tempo 500000\n"
              "5 +5 on channel 6 note 60 velocity 62\n"
              "205 +200 off channel 6 note 60 velocity 64\n"
              "205 +0 message B0: 7 100\n"
              "205 +0 message C1: 5\n"
              "205 +0 meta 03: 41 42\n"
              "205 +0 end of track\n");
}

TEST(MidiDump, VariableLengthNumbers) {
    EXPECT_EQ(events_of("00 FF2F00"), "0 +0 end of track\n");
    EXPECT_EQ(events_of("7F FF2F00"), "127 +127 end of track\n");
    EXPECT_EQ(events_of("8100 FF2F00"), "128 +128 end of track\n");
    EXPECT_EQ(events_of("FF7F FF2F00"), "16383 +16383 end of track\n");
    EXPECT_EQ(events_of("818000 FF2F00"), "16384 +16384 end of track\n");
    EXPECT_EQ(events_of("FFFFFF7F FF2F00"), "268435455 +268435455 end of track\n");
}

TEST(MidiDump, MalformedEvents) {
    const struct {
        const char* events;
        const char* line;
    } cases[] = {
        {"8000 FF2F00", "MALFORMED at byte 22: variable-length number with a leading zero\n"},
        {"FFFFFFFF7F FF2F00", "MALFORMED at byte 22: variable-length number of more than four bytes\n"},
        {"00 90 80 40 00 FF2F00", "MALFORMED at byte 24: note 128 above 127\n"},
        {"00 90 40 FF 00 FF2F00", "MALFORMED at byte 25: velocity 255 above 127\n"},
        {"00 40 40 00 FF2F00", "MALFORMED at byte 23: no status byte\n"},
        {"00 F0 02 01 F7 00 FF2F00", "MALFORMED at byte 23: system message in a track\n"},
        {"00 FF2F00 00 FF2F00", "MALFORMED at byte 26: events behind the end of the track\n"},
        {"00 90 40 40", "MALFORMED at byte 26: ends too soon\n"},
        {"00 90 40", "MALFORMED at byte 25: ends too soon\n"},
        {"00 FF2F01 00", "MALFORMED at byte 26: end of track of wrong size\n"},
        {"00 FF5102 0000 00 FF2F00", "MALFORMED at byte 26: tempo of wrong size\n"},
        {"00 FF5803 000000 00 FF2F00", "MALFORMED at byte 26: time signature of wrong size\n"},
        {"00 FF037F 00 FF2F00", "MALFORMED at byte 26: ends too soon\n"},
    };
    for (const auto& [events, line] : cases) EXPECT_EQ(last_line(midi_dump(file(events))), line) << events;
}

TEST(MidiDump, AnyDataBytes) {
    EXPECT_EQ(last_line(midi_dump(file("00 90 80 FF 00 FF2F00"), DataBytes::ANY)), "0 +0 end of track\n");
    EXPECT_EQ(last_line(midi_dump(file("00 A0 FF FF 00 FF2F00"), DataBytes::ANY)),
              "MALFORMED at byte 24: data 255 above 127\n");
    EXPECT_EQ(last_line(midi_dump(file("00 90 80"), DataBytes::ANY)),
              "MALFORMED at byte 25: ends too soon\n");
}

TEST(MidiDump, MalformedChunks) {
    const std::string track = bytes("4D54726B 00000004 00FF2F00");
    const std::string whole = bytes(HEADER) + track;
    EXPECT_EQ(last_line(midi_dump(whole)), "0 +0 end of track\n");
    EXPECT_EQ(last_line(midi_dump("RIFF")), "MALFORMED at byte 0: no MThd\n");
    EXPECT_EQ(last_line(midi_dump(whole.substr(0, 3))), "MALFORMED at byte 0: ends too soon\n");
    EXPECT_EQ(last_line(midi_dump(bytes(HEADER) + "MTrx" + track)), "MALFORMED at byte 14: no MTrk\n");
    EXPECT_EQ(last_line(midi_dump(whole + "x")), "MALFORMED at byte 26: bytes behind the last track\n");
    EXPECT_EQ(last_line(midi_dump(bytes(HEADER))), "MALFORMED at byte 14: ends too soon\n");
    EXPECT_EQ(last_line(midi_dump(whole.substr(0, whole.size() - 1))),
              "MALFORMED at byte 22: track longer than the file\n");
    EXPECT_EQ(last_line(midi_dump(bytes("4D546864 00000007"))),
              "MALFORMED at byte 4: header of wrong size\n");
    EXPECT_EQ(last_line(midi_dump(bytes("4D546864 00000006 0003 0001 01E0") + track)),
              "MALFORMED at byte 8: unknown format\n");
    EXPECT_EQ(last_line(midi_dump(bytes("4D546864 00000006 0001 0001 E728") + track)),
              "MALFORMED at byte 12: division is not in ticks per quarter note\n");
}

}  // namespace
