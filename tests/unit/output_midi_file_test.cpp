// The writer's bytes, worked out by hand from the layout of Standard MIDI Files.

#include "output/midi_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "output/midi_events.h"
#include "support/midi_dump.h"

namespace {

using vorn::OutputFile;

// The bytes that a routine writes.
std::string written(const std::function<void(OutputFile&)>& write) {
    std::FILE* stream = std::tmpfile();
    OutputFile file;
    EXPECT_TRUE(vorn::open_output(file, stream));
    write(file);
    EXPECT_TRUE(vorn::flush_output(file));
    std::string bytes(static_cast<std::size_t>(std::ftell(stream)), 0);
    std::rewind(stream);
    EXPECT_EQ(std::fread(bytes.data(), 1, bytes.size(), stream), bytes.size());
    EXPECT_TRUE(vorn::close_output(file));
    return bytes;
}

std::string hex(const std::string& bytes) {
    std::string text;
    char digits[4];
    for (const unsigned char byte : bytes) {
        std::snprintf(digits, sizeof digits, "%02X ", byte);
        text += digits;
    }
    return text.empty() ? text : text.substr(0, text.size() - 1);
}

std::string var_len(std::uint64_t value) {
    return hex(written([value](OutputFile& out) { vorn::WriteVarLen(out, value); }));
}

TEST(WriteVarLen, GroupsOfSevenBitsMostSignificantFirst) {
    EXPECT_EQ(var_len(0), "00");
    EXPECT_EQ(var_len(127), "7F");
    EXPECT_EQ(var_len(128), "81 00");
    EXPECT_EQ(var_len(200), "81 48");
    EXPECT_EQ(var_len(480), "83 60");
    EXPECT_EQ(var_len(16383), "FF 7F");
    EXPECT_EQ(var_len(16384), "81 80 00");
    EXPECT_EQ(var_len(2097151), "FF FF 7F");
    EXPECT_EQ(var_len(2097152), "81 80 80 00");
    EXPECT_EQ(var_len(268435455), "FF FF FF 7F");
}

TEST(WriteVarLen, WritesAsManyBytesAsVLSizeCounts) {
    for (int shift = 0; shift < 64; ++shift) {
        for (const std::uint64_t value : {std::uint64_t{1} << shift, (std::uint64_t{1} << shift) - 1}) {
            const std::string bytes = written([value](OutputFile& out) { vorn::WriteVarLen(out, value); });
            EXPECT_EQ(bytes.size(), static_cast<std::size_t>(vorn::VLSize(value))) << value;
        }
    }
}

TEST(PutMidiHeader, Format1WithTheNumberOfTracksAnd480Ticks) {
    const auto header = [](unsigned tracks) {
        return hex(written([tracks](OutputFile& out) { vorn::PutMidiHeader(out, tracks); }));
    };
    EXPECT_EQ(header(2), "4D 54 68 64 00 00 00 06 00 01 00 02 01 E0");
    EXPECT_EQ(header(0x1234), "4D 54 68 64 00 00 00 06 00 01 12 34 01 E0");
}

TEST(PutTrkHeader, LengthInFourBytes) {
    const auto header = [](std::uint64_t length) {
        return hex(written([length](OutputFile& out) { vorn::PutTrkHeader(out, length); }));
    };
    EXPECT_EQ(header(4), "4D 54 72 6B 00 00 00 04");
    EXPECT_EQ(header(0x12345678), "4D 54 72 6B 12 34 56 78");
}

TEST(NoteOn, StatusNoteAndVelocityBehindTheDelta) {
    const auto note_on = [](std::uint64_t delta, int note, int velocity, int channel) {
        return hex(written([=](OutputFile& out) { vorn::NoteOn(out, delta, note, velocity, channel); }));
    };
    EXPECT_EQ(note_on(0, 60, 62, 0), "00 90 3C 3E");
    EXPECT_EQ(note_on(200, 127, 1, 15), "81 48 9F 7F 01");
    EXPECT_EQ(note_on(0, -3, 256 + 5, 0), "00 90 FD 05");
}

TEST(NoteOff, VelocityIs64) {
    const auto note_off = [](std::uint64_t delta, int note, int channel) {
        return hex(written([=](OutputFile& out) { vorn::NoteOff(out, delta, note, channel); }));
    };
    EXPECT_EQ(note_off(480, 60, 0), "83 60 80 3C 40");
    EXPECT_EQ(note_off(0, 0, 9), "00 89 00 40");
}

std::string track1(float length) {
    return hex(written([length](OutputFile& out) { vorn::PutTrack1(out, length); }));
}

const std::string TIME_AND_TEMPO = "00 FF 58 04 04 02 18 08 00 FF 51 03 0F 42 40 ";

TEST(PutTrack1, TimeSignatureTempoAndTheEnd) {
    // 2 seconds are 960 ticks, 87 40; two bytes and 18 are 20.
    EXPECT_EQ(track1(2), "4D 54 72 6B 00 00 00 14 " + TIME_AND_TEMPO + "87 40 FF 2F 00");
}

TEST(PutTrack1, TheLengthIsCutToWholeTicks) {
    // 1.2345 seconds are 592.56 ticks, 84 50.
    EXPECT_EQ(track1(1.2345F), "4D 54 72 6B 00 00 00 14 " + TIME_AND_TEMPO + "84 50 FF 2F 00");
    // 0.26 seconds are 124.8 ticks, 7C.
    EXPECT_EQ(track1(0.26F), "4D 54 72 6B 00 00 00 13 " + TIME_AND_TEMPO + "7C FF 2F 00");
}

TEST(PutTrack1, TheLengthIsNeitherNegativeNorLongerThanFourBytes) {
    EXPECT_EQ(track1(-1), "4D 54 72 6B 00 00 00 13 " + TIME_AND_TEMPO + "00 FF 2F 00");
    EXPECT_EQ(track1(1.0e6F), "4D 54 72 6B 00 00 00 16 " + TIME_AND_TEMPO + "FF FF FF 7F FF 2F 00");
}

// Tracks of prepared events

struct Event {
    std::uint32_t code;
    float start;
    float p4;  // velocity
    float p5;  // note
};

class WriteTrack : public testing::Test {
protected:
    ~WriteTrack() override { vorn::reset_event_list(); }

    // The track of the events; size is that of List2MIDI.
    static std::string track(const std::vector<Event>& events, std::uint64_t size) {
        vorn::reset_event_list();
        for (const Event& event : events) {
            vorn::ListNode* node = vorn::GetListNode(5);
            node->code = event.code;
            node->start = event.start;
            node->pf[0] = event.p4;
            node->pf[1] = event.p5;
            node->next = node;
            vorn::ListNode* cursor = vorn::note_list;
            if (cursor != nullptr) vorn::InsertEvent(node, cursor, vorn::note_list);
            vorn::note_list = node;
        }
        return written([size](OutputFile& out) { vorn::WriteTrack(out, vorn::note_list, size); });
    }
};

TEST_F(WriteTrack, NothingForAnEmptyList) { EXPECT_EQ(hex(track({}, 0)), ""); }

TEST_F(WriteTrack, EventsAndTheEndOfTheTrack) {
    EXPECT_EQ(hex(track({{1, 0, 62.9F, 60.9F}, {0, 1, 60, 60.9F}}, 9)),
              "4D 54 72 6B 00 00 00 0D 00 90 3C 3E 83 60 80 3C 40 00 FF 2F 00");
}

TEST_F(WriteTrack, NoteOffsHaveVelocity64AndAllIsOnChannel1) {
    EXPECT_EQ(hex(track({{0, 0, 127, 1}}, 4)), "4D 54 72 6B 00 00 00 08 00 80 01 40 00 FF 2F 00");
}

TEST_F(WriteTrack, ADeltaOf200TicksIsTwoBytes) {
    // 5/12 second; 200.00000 ticks in single precision.
    EXPECT_EQ(hex(track({{1, 5.0F / 12.0F, 1, 1}}, 5)), "4D 54 72 6B 00 00 00 09 81 48 90 01 01 00 FF 2F 00");
}

TEST_F(WriteTrack, TheFirstDeltaCountsFrom0AndNotFromTheBlockStart) {
    EXPECT_EQ(hex(track({{1, 2, 1, 1}, {0, 2.5F, 1, 1}}, 10)),
              "4D 54 72 6B 00 00 00 0E 87 40 90 01 01 81 70 80 01 40 00 FF 2F 00");
}

TEST_F(WriteTrack, DeltasAreCutOneByOneSoDriftIsKept) {
    // Starts a thousandth of a second apart, 0.48 ticks: a second passes without a tick.
    std::vector<Event> events;
    for (int i = 1; i <= 1000; ++i) events.push_back({1, static_cast<float>(i) / 1000, 1, 1});
    const std::string bytes = track(events, 4000);
    for (std::size_t i = 8; i < 4008; i += 4) ASSERT_EQ(bytes[i], 0);
}

TEST_F(WriteTrack, DeltasThatStepBackAre0) {
    EXPECT_EQ(hex(track({{1, 2.5F, 1, 1}, {1, 2, 1, 2}, {0, 3, 1, 3}}, 14)),
              "4D 54 72 6B 00 00 00 12 89 30 90 01 01 00 90 02 01 83 60 80 03 40 00 FF 2F 00");
}

TEST_F(WriteTrack, ADeltaIsAtMostFourBytes) {
    EXPECT_EQ(hex(track({{1, 1.0e6F, 1, 1}}, 7)), "4D 54 72 6B 00 00 00 0B FF FF FF 7F 90 01 01 00 FF 2F 00");
}

TEST_F(WriteTrack, NotesAndVelocitiesAreLowBytes) {
    EXPECT_EQ(hex(track({{1, 0, 300, -3}}, 4)), "4D 54 72 6B 00 00 00 08 00 90 FD 2C 00 FF 2F 00");
}

TEST_F(WriteTrack, AWholeFileIsReadableByAStrictReader) {
    std::string bytes = written([](OutputFile& out) {
        vorn::PutMidiHeader(out, 2);
        vorn::PutTrack1(out, 3);
    });
    bytes += track({{1, 0, 62, 60}, {1, 1, 127, 64}, {0, 1, 60, 60}, {0, 2, 60, 64}}, 18);
    EXPECT_EQ(vorn::test::midi_dump(bytes),
              "MThd format 1, tracks 2, division 480\n"
              "MTrk 1, 20 bytes\n"
              "0 +0 time signature 4/4, 24 clocks per click, 8 thirty-seconds per quarter\n"
              "0 +0 tempo 1000000\n"
              "1440 +1440 end of track\n"
              "MTrk 2, 22 bytes\n"
              "0 +0 on channel 1 note 60 velocity 62\n"
              "480 +480 on channel 1 note 64 velocity 127\n"
              "480 +0 off channel 1 note 60 velocity 64\n"
              "960 +480 off channel 1 note 64 velocity 64\n"
              "960 +0 end of track\n");
}

}  // namespace
