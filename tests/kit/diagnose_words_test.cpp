#include "kit/diagnose/words.h"

#include <gtest/gtest.h>

#include "kit/diagnose/note_names.h"

namespace vorn::kit {

namespace {

using Names = std::vector<std::string>;

}  // namespace

TEST(Nearest, TakesOneLetterOfAShortName) {
    EXPECT_EQ(nearest("rn", {"ra", "rw", "mo"}), (Names{"ra", "rw"}));
    EXPECT_EQ(nearest("om", {"ra", "mo"}), Names{"mo"});  // exchanged
    EXPECT_EQ(nearest("xy", {"ra", "mo"}), Names{});
}

TEST(Nearest, TakesTheNearestOfLongerNames) {
    EXPECT_EQ(nearest("MELODIE", {"MELODY", "BASS", "MELODIC"}), Names{"MELODIC"});
    EXPECT_EQ(nearest("level", {"LEVEL"}), Names{"LEVEL"});
    EXPECT_EQ(nearest("something", {"LEVEL"}), Names{});
}

TEST(Either, JoinsNames) {
    EXPECT_EQ(either({"ra"}), "`ra`");
    EXPECT_EQ(either({"ra", "rw"}), "`ra` or `rw`");
    EXPECT_EQ(either({"ra", "rd", "rw"}), "`ra`, `rd` or `rw`");
}

TEST(NumberIn, TakesTheWholeWord) {
    EXPECT_EQ(number_in("1e3"), 1000);
    EXPECT_EQ(number_in("-.5"), -.5);
    EXPECT_EQ(number_in("1e"), std::nullopt);
    EXPECT_EQ(number_in("0x10"), std::nullopt);
    EXPECT_EQ(number_in("inf"), std::nullopt);
    EXPECT_EQ(number_in(""), std::nullopt);
}

TEST(NoteFromElsewhere, KnowsSignsTrackersAndGermanNames) {
    EXPECT_EQ(note_from_elsewhere("f#4"), "fs4");
    EXPECT_EQ(note_from_elsewhere("C-4"), "c4");
    EXPECT_EQ(note_from_elsewhere("fis"), "fs");
    EXPECT_EQ(note_from_elsewhere("des5"), "df5");
    EXPECT_EQ(note_from_elsewhere("h3"), "b3");
    EXPECT_EQ(note_from_elsewhere("c10"), "");
    EXPECT_EQ(note_from_elsewhere("loud"), "");
    EXPECT_EQ(note_from_elsewhere(""), "");
}

TEST(IsNoteName, TakesWhatVornReads) {
    for (const char* name : {"c", "C4", "fs4", "bff", "en3", "g10"}) EXPECT_TRUE(is_note_name(name)) << name;
    for (const char* name : {"", "h4", "c#", "4", "cx", "c4c"}) EXPECT_FALSE(is_note_name(name)) << name;
    EXPECT_EQ(octave_of("g10"), 10);
    EXPECT_EQ(octave_of("c"), -1);
}

}  // namespace vorn::kit
