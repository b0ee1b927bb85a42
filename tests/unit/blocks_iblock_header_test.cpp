// The header of an instrument block.

#include "blocks/iblock_header.h"

#include <string>

#include "blocks_fixture.h"

namespace vorn::test {
namespace {

class Header : public BlockTest {
protected:
    int read(const std::string& text) {
        feed(text);
        return do_p1(reader);
    }
};

TEST_F(Header, SetsTheBlock) {
    EXPECT_EQ(read("i3 = 5 0.5 4 { p2"), 0);
    EXPECT_EQ(rest(), " p2");
    EXPECT_EQ(I_NO, 3);
    EXPECT_EQ(MAX_PFIELDS, 5);
    EXPECT_EQ(STIME, 0.5F);
    EXPECT_EQ(SBEAT, 0.5F);
    EXPECT_EQ(BEATS, 4);
    EXPECT_EQ(EVENTS, 0U);
    EXPECT_EQ(ETIME, 4);
    EXPECT_EQ(messages(), "");
}

TEST_F(Header, LengthInEvents) {
    EXPECT_EQ(read("i3=5,0,-16{"), 0);
    EXPECT_EQ(BEATS, 0);
    EXPECT_EQ(EVENTS, 16U);
    EXPECT_EQ(ETIME, -16);
}

TEST_F(Header, SettingsHaveTheirDefaults) {
    EXPECT_EQ(read("i1=128 0 4{"), 0);
    for (int i = 0; i < 127; ++i) {
        EXPECT_EQ(OUTS[i], 14U);
        EXPECT_EQ(RE_FW[i], 3U);
        EXPECT_EQ(FFT_SZ[i], 4);
    }
}

TEST_F(Header, WhiteSpaceAndLineEnds) {
    EXPECT_EQ(read("i\n 3 \n\n = \n 5 \n 0 \n 4 \n\t{"), 0);
    EXPECT_EQ(I_NO, 3);
    EXPECT_EQ(ETIME, 4);
}

TEST_F(Header, UpToFourSeparatorsBetweenTheFields) {
    EXPECT_EQ(read("i3=5,,/,0 / /,/4,,,,{"), 0);
    EXPECT_EQ(STIME, 0);
    EXPECT_EQ(read("i3=5 ; p-fields\n , /* start */ / 0 /**/,4 ; length\n {"), 0);
    EXPECT_EQ(ETIME, 4);
    EXPECT_EQ(read("i3=5,,,,,0 4{"), 12);
    EXPECT_EQ(rest(), ",0 4{");
    EXPECT_EQ(read("i3=5 0,,,,,4{"), 121);
    EXPECT_EQ(read("i3=5 0 4,,,,,{"), 30);
}

TEST_F(Header, NoSeparatorsBeforeThePfieldCount) {
    EXPECT_EQ(read("i,3=5 0 4{"), 11);
    EXPECT_EQ(read("i3,=5 0 4{"), 34);
    EXPECT_EQ(read("i3=,5 0 4{"), 35);
    EXPECT_EQ(read("i3;c\n=5 0 4{"), 34);
}

TEST_F(Header, InstrumentNumber) {
    for (const char* text :
         {"i+1=3 0 4{", "ix=3 0 4{", "i=3 0 4{", "i32768=3 0 4{", "i--1=3 0 4{", "i- 1=3 0 4{", "i"}) {
        EXPECT_EQ(read(text), 11) << text;
    }
    EXPECT_EQ(read("i0=3 0 4{"), 0);
    EXPECT_EQ(I_NO, 0);
    EXPECT_EQ(read("i32767=3 0 4{"), 0);
    EXPECT_EQ(read("i-0=3 0 4{"), 0);
}

TEST_F(Header, SkippedBlock) {
    EXPECT_EQ(read("i-1=3 0 4{ p2 1 } rest"), SKIPPED_BLOCK);
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(I_NO, -1);
    EXPECT_EQ(read("i-32768 anything { at\n all ; } in a comment\n /* } */ { } rest"), SKIPPED_BLOCK);
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(read("i-1}rest"), SKIPPED_BLOCK);
    EXPECT_EQ(rest(), "rest");
}

TEST_F(Header, SkippedBlockLeftOpen) {
    EXPECT_EQ(read("i-1=3 0 4{ p2 1\n"), 5);
    EXPECT_EQ(read("i-1=3 0 4{ /* }"), 5);
}

TEST_F(Header, Equals) {
    EXPECT_EQ(read("i3 5 0 4{"), 34);
    EXPECT_EQ(rest(), "5 0 4{");
    EXPECT_EQ(read("i3"), 34);
}

TEST_F(Header, PfieldCount) {
    EXPECT_EQ(read("i3=x 0 4{"), 35);
    EXPECT_EQ(read("i3=40000 0 4{"), 35);
    EXPECT_EQ(read("i3="), 35);
    for (const char* text : {"i3=2 0 4{", "i3=129 0 4{", "i3=-5 0 4{", "i3=0 0 4{"}) {
        EXPECT_EQ(read(text), 1000) << text;
        EXPECT_EQ(messages(), "\n\nERROR: Bad number of p-fields (3 - 128)\n");
    }
    EXPECT_EQ(read("i3=3 0 4{"), 0);
    EXPECT_EQ(read("i3=50 0 4{"), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(read("i3=51 0 4{"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Are you sure you want that many p-fields?!\ni3=51 0 4{\n     ^\n");
}

TEST_F(Header, Start) {
    for (const char* text : {"i3=5 -1 4{", "i3=5 x 4{", "i3=5 { 4", "i3=5"})
        EXPECT_EQ(read(text), 12) << text;
    EXPECT_EQ(read("i3=5 -0 4{"), 0);
    EXPECT_EQ(read("i3=5 240 4{"), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(read("i3=5 240.5 4{"), 0);
    EXPECT_EQ(
        messages(),
        "\n\nWARNING: Line 1:Are you sure you want such a late start time?!\ni3=5 240.5 4{\n          ^\n");
}

TEST_F(Header, Beats) {
    EXPECT_EQ(read("i3=5 0 600{"), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(read("i3=5 0 600.5{"), 0);
    EXPECT_EQ(
        messages(),
        "\n\nWARNING: Line 1:Are you sure you want such a long duration?!\ni3=5 0 600.5{\n            ^\n");
    EXPECT_EQ(read("i3=5 0 10000{"), 0);
    messages();
    EXPECT_EQ(read("\ni3=5 0 10000.5{"), 11);  // pos must rest on the "i"
}

TEST_F(Header, TooManyBeatsShowTheLimitWithTwoDecimals) {
    open("\ni3=5 0 10001{");
    ASSERT_EQ(get_buff(reader), 0);
    ASSERT_EQ(get_buff(reader), 0);
    EXPECT_EQ(do_p1(reader), 1000);
    EXPECT_EQ(messages(), "\n\nERROR: Line 2: Maximum number of beats = 10000.00\n");
}

TEST_F(Header, LengthZeroIsAccepted) {
    EXPECT_EQ(read("i3=5 0 0{"), 0);
    EXPECT_EQ(ETIME, 0);
    EXPECT_EQ(read("i3=5 0 -0{"), 0);
    EXPECT_EQ(EVENTS, 0U);
    EXPECT_FALSE(ETIME < 0);
}

TEST_F(Header, Brace) {
    for (const char* text : {"i3=5 0 4}", "i3=5 0 4 p2 1", "i3=5 0 4"}) EXPECT_EQ(read(text), 30) << text;
}

TEST_F(Header, MistakesOfTheNextLineComeFirst) {
    const int DIVISION = 59;
    for (const char* text : {"i", "i3", "i3=", "i3=5", "i3=5 0", "i3=5 0 4", "i-1", "i-1{;"}) {
        EXPECT_EQ(read(std::string(text) + "\n~[1/0]"), DIVISION) << text;
    }
}

TEST_F(Header, HeaderInsideABlockReplacesItsArrays) {
    EXPECT_EQ(read("i1=6 0 4{"), 0);
    RE_FW[0] = 7;
    EXPECT_EQ(read("i2=4 1 -2{"), 0);
    EXPECT_EQ(RE_FW[0], 3U);
    EXPECT_EQ(MAX_PFIELDS, 4);
}

TEST_F(Header, EventsOfTheBlockGrowWithItsPfields) {
    make_events(2, 4);
    note_list->pf[0] = 60;
    EXPECT_EQ(read("i2=9 0 4{"), 0);
    EXPECT_EQ(events(), "0 1 0 0 0 0 0 0 0, 1 1 0 60 0 0 0 0 0");
}

// --- get_amount ---

struct Amount {
    const char* text;
    int result;
    float etime;
    const char* rest;
};

TEST_F(Header, Amounts) {
    constexpr Amount AMOUNTS[] = {
        {"4{", 0, 4, "{"},    {"+4.5 {", 0, 4.5F, " {"}, {".5{", 0, 0.5F, "{"},   {"-3 {", 0, -3, "{"},
        {"- 3{", 0, -3, "{"}, {"-+3{", 0, -3, "{"},      {"{", 120, 7, "{"},      {"x", 121, 7, "x"},
        {"", 121, 7, ""},     {"-x", 14, 7, "x"},        {"--3", 14, 7, "-3"},    {"+-3", 13, 7, "-3"},
        {"+x", 13, 7, "x"},   {"4e3{", 0, 4, "e3{"},     {"-2.5{", 0, -2, ".5{"},
    };
    for (const Amount& amount : AMOUNTS) {
        ETIME = 7;
        EVENTS = 7;
        BEATS = 7;
        std::int32_t pos = 0;
        EXPECT_EQ(get_amount(amount.text, pos), amount.result) << amount.text;
        EXPECT_EQ(ETIME, amount.etime) << amount.text;
        EXPECT_STREQ(amount.text + pos, amount.rest);
        EXPECT_EQ(BEATS, amount.etime > 0 && amount.result == 0 ? amount.etime : 0);
        EXPECT_EQ(EVENTS, amount.etime < 0 ? static_cast<std::uint64_t>(-amount.etime) : 0U);
    }
}

TEST_F(Header, VeryManyEvents) {
    std::int32_t pos = 0;
    EXPECT_EQ(get_amount("-18446744073709551615", pos), 0);
    EXPECT_EQ(EVENTS, 18446744073709551615U);
    EXPECT_EQ(ETIME, -18446744073709551616.0F);
}

}  // namespace
}  // namespace vorn::test
