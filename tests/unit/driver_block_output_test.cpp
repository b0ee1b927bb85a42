#include "driver/block_output.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>

#include "driver/reset.h"
#include "input/errors.h"
#include "output/durations.h"
#include "output/event_list.h"
#include "output/output_file.h"
#include "support/message_capture.h"
#include "support/midi_dump.h"
#include "support/score_text.h"

// One block after the other: what is written, what is told, how it is counted.

namespace {

using vorn::do_iblock;

std::string text_of(std::FILE* stream) {
    std::fseek(stream, 0, SEEK_END);
    std::string text(static_cast<std::size_t>(std::ftell(stream)), '\0');
    std::rewind(stream);
    text.resize(std::fread(text.data(), 1, text.size(), stream));
    return text;
}

// Blocks read from a text into an output of their own.
class Blocks {
public:
    explicit Blocks(const std::string& text, bool midi = false) {
        vorn::reset_program();
        score_.emplace(text);
        vorn::MKMIDI = midi ? 1 : 0;
        EXPECT_TRUE(vorn::open_output(vorn::fout, output_));
        messages_.emplace();
    }
    ~Blocks() {
        messages_.reset();
        vorn::reset_program();
    }
    Blocks(const Blocks&) = delete;
    Blocks& operator=(const Blocks&) = delete;

    int read_one() {
        const int result = do_iblock(score_->reader, number);
        told = messages_->text();
        return result;
    }

    std::string written() const {
        EXPECT_TRUE(vorn::flush_output(vorn::fout));
        return text_of(output_);
    }

    int number = 1;
    std::string told;  // by the last block

private:
    std::FILE* output_ = std::tmpfile();
    std::optional<vorn::test::ScoreText> score_;
    std::optional<vorn::test::MessageCapture> messages_;
};

const char* const NO_DATA = "\n\n\t(N.B. No I-Block Data Written)";

TEST(BlockOutput, ABlockIsWrittenToldCountedAndReleased) {
    Blocks blocks("i3 = 3 2 2 {\np2 1\np3 .5 }\n");
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(blocks.written(), "\n;I-block #1 (i3):\ni3    2.000  0.500 \ni3    3.000  0.500 \n");
    EXPECT_EQ(blocks.told,
              "\n\n2 events generated in block #1 (i3).\n"
              "Total i-block duration:    1.50 (secs),    1.00 (beats)\n"
              "Cumulative i-block duration:    3.50 (secs)\n");
    EXPECT_EQ(blocks.number, 2);
    EXPECT_EQ(vorn::note_list, nullptr);
}

TEST(BlockOutput, AnErrorOfTheBlockIsPassedOn) {
    Blocks blocks("i3 = 3 0 2 {\np3 1\n");
    EXPECT_EQ(blocks.read_one(), 15);
    EXPECT_EQ(blocks.written(), "");
    EXPECT_EQ(blocks.told, "");
    EXPECT_EQ(blocks.number, 1);
}

// The writer of scores would leave a comment line behind.
TEST(BlockOutput, AnEmptyListGoesTheMidiWayInEitherMode) {
    for (const bool midi : {false, true}) {
        Blocks blocks("i-3 = 3 0 2 { }\n", midi);
        EXPECT_EQ(blocks.read_one(), 0);
        EXPECT_EQ(blocks.written(), "");
        EXPECT_EQ(blocks.told, std::string("\nWARNING: I-block skipped! (i-no < 0)") + NO_DATA);
        EXPECT_EQ(blocks.number, 1);
    }
}

TEST(BlockOutput, ABlockOfRestsLeavesItsCommentLineAndIsNotCounted) {
    Blocks blocks("i3 = 3 0 2 {\np2 1\np3 1000 }\n");
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(blocks.written(), "\n;I-block #1 (i3):");
    EXPECT_EQ(
        blocks.told,
        std::string("\n\nOops i-block 3 is all rests (check p2=0 and p3 != 400+n OR 1000+n?)! ") + NO_DATA);
    EXPECT_EQ(blocks.number, 1);
    EXPECT_EQ(vorn::note_list, nullptr);
}

TEST(BlockOutput, OnlyABlockNumberedOneIsToldToBeEmpty) {
    Blocks blocks("i3 = 3 0 2 {\np2 1\np3 1000 }\n");
    blocks.number = 2;
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(blocks.told, "\n\nOops i-block 3 is all rests (check p2=0 and p3 != 400+n OR 1000+n?)! ");
    EXPECT_EQ(blocks.number, 2);
}

TEST(BlockOutput, EndOfInputIsABlockWithoutEvents) {
    Blocks blocks("");
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(blocks.told, NO_DATA);
}

TEST(BlockOutput, CumulativeTimeIsAMaximumAndTheLastTimeADuration) {
    Blocks blocks("i1 = 3 2 4 {\np2 1\np3 1\n}\ni2 = 3 1 1 {\np2 1\np3 1\n}\n");
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(vorn::CUM_TIME, 6.0);
    EXPECT_EQ(vorn::LAST_IB_DUR, 4.0);
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_EQ(vorn::CUM_TIME, 6.0);
    EXPECT_EQ(vorn::LAST_IB_DUR, 1.0);
}

// The last event is then the note-off at 2 with the note's second: 2 + 1 + 1 seconds of 480 ticks.
TEST(BlockOutput, TheConductorTrackLastsAsTheListBehindItsConversion) {
    Blocks blocks("i1 = 5 0 2 {\np2 1\np3 1\np4 16000\np5 60 }\n", true);
    EXPECT_EQ(blocks.read_one(), 0);
    EXPECT_NE(vorn::test::midi_dump(blocks.written()).find("1920 +1920 end of track\n"), std::string::npos);
    EXPECT_NE(blocks.told.find("\n\n4 events generated in block #1 (i1).\n"), std::string::npos);
}

// Two notes take two events more than are left.
TEST(BlockOutput, NotesWithoutRoomForTheirEndsAreOutOfMemory) {
    Blocks blocks("i1 = 5 0 2 {\np2 1\np3 1\np4 16000\np5 60 }\n", true);
    vorn::event_nodes = vorn::MAX_EVENTS - 3;
    EXPECT_EQ(blocks.read_one(), vorn::error::OUT_OF_MEMORY);
    EXPECT_EQ(blocks.number, 1);
}

}  // namespace
