#include "generators/curve_reader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace vorn {
namespace {

struct Outcome {
    int result;
    float type, value;
    std::string rest;
};

// `more`: the lines behind the text's.
Outcome read(const char* text, bool beat_move_allowed, const char* more = "") {
    Reader reader;
    std::strcpy(reader.text, text);
    reader.stream = std::tmpfile();
    std::fputs(more, reader.stream);
    std::rewind(reader.stream);
    Outcome outcome = {0, -1.0f, -1.0f, ""};
    outcome.result = get_curve_type(reader, outcome.type, outcome.value, beat_move_allowed);
    outcome.rest = reader.text + reader.pos;
    std::fclose(reader.stream);
    return outcome;
}

struct Reading {
    const char* text;
    float type, value;
    const char* rest;
};

void expect_readings(std::initializer_list<Reading> readings, bool beat_move_allowed) {
    for (const Reading& row : readings) {
        const Outcome outcome = read(row.text, beat_move_allowed);
        EXPECT_EQ(outcome.result, 0) << row.text;
        EXPECT_EQ(outcome.type, row.type) << row.text;
        EXPECT_EQ(outcome.value, row.value) << row.text;
        EXPECT_EQ(outcome.rest, row.rest) << row.text;
    }
}

TEST(GetCurveType, LettersInEitherCase) {
    expect_readings({{"f)", 0, 1, ")"},
                     {"e)", 1, 1, ")"},
                     {"l)", 2, 1, ")"},
                     {"v2.5)", 3, 2.5f, ")"},
                     {"s)", 4, 1, ")"},
                     {"c)", 5, 1, ")"},
                     {"F)", 0, 1, ")"},
                     {"E)", 1, 1, ")"},
                     {"L)", 2, 1, ")"},
                     {"V .5)", 3, 0.5f, ")"},
                     {"S)", 4, 1, ")"},
                     {"C)", 5, 1, ")"}},
                    false);
}

TEST(GetCurveType, UnknownCharacterIsTypeZeroAndStays) {
    expect_readings(
        {{"q)", 0, 1, "q)"}, {"60", 0, 1, "60"}, {"[60", 0, 1, "[60"}, {")", 0, 1, ")"}, {"", 0, 1, ""}},
        true);
}

TEST(GetCurveType, OnlyTheFirstLetterCounts) {
    expect_readings({{"el", 1, 1, "l"}, {"ce4", 5, 1, "e4"}}, false);
}

TEST(GetCurveType, BlanksBehindTheLetterAreSkipped) {
    expect_readings({{"e  60", 1, 1, "60"}, {" e", 0, 1, "e"}, {"v2 \t)", 3, 2, ")"}}, false);
}

TEST(GetCurveType, StarRunsTheCurveOverTime) {
    expect_readings({{"f*60", 100, 1, "60"},
                     {"e*", 101, 1, ""},
                     {"l* 60", 102, 1, "60"},
                     {"v2*60", 103, 2, "60"},
                     {"s*60", 104, 1, "60"},
                     {"c*60", 105, 1, "60"}},
                    true);
}

TEST(GetCurveType, StarMayFollowBlanksOrStandAlone) {
    expect_readings({{"e  *60", 101, 1, "60"}, {"*60", 100, 1, "60"}, {" * 60", 100, 1, "60"}}, true);
}

TEST(GetCurveType, StarMayFollowASeparatorACommentOrLineEnds) {
    expect_readings({{"e,*60", 101, 1, "60"}, {"e /* */ * 60", 101, 1, "60"}}, true);
    for (const char* text : {"e", "e ", "e ; comment", "e /* two", ""}) {
        const bool in_comment = std::strchr(text, '*') != nullptr;
        const Outcome outcome = read(text, true, in_comment ? "lines */\n*60" : "\n\n*60");
        EXPECT_EQ(outcome.result, 0) << text;
        EXPECT_EQ(outcome.type, *text == 0 ? 100 : 101) << text;
        EXPECT_EQ(outcome.rest, "60") << text;
    }
    EXPECT_EQ(read("l", false, "*)").result, 64);
}

TEST(GetCurveType, OneSeparatorIsTakenOnEitherSideOfTheStar) {
    expect_readings({{"e,,*60", 1, 1, ",*60"},
                     {"e,,60", 1, 1, ",60"},
                     {"e*,,60", 101, 1, ",60"},
                     {"e,*,60", 101, 1, "60"}},
                    true);
}

TEST(GetCurveType, StarWhereItIsNotAllowed) {
    for (const char* text : {"*)", "e*)", "l  *)", "v2*)"}) {
        const Outcome outcome = read(text, false);
        EXPECT_EQ(outcome.result, 64) << text;
        EXPECT_EQ(outcome.rest, "*)") << text;
    }
}

TEST(GetCurveType, ExponentMustBeAboveZero) {
    const struct {
        const char* text;
        const char* rest;
    } BAD[] = {{"v", ""}, {"v)", ")"}, {"v0)", ")"}, {"v-2)", ")"}, {"ve", "e"}, {"v.", ""}, {"v*2", "*2"}};
    for (const auto& row : BAD) {
        const Outcome outcome = read(row.text, true);
        EXPECT_EQ(outcome.result, 63) << row.text;
        EXPECT_EQ(outcome.rest, row.rest) << row.text;
    }
}

TEST(GetCurveType, ByteAbove127IsNoLetter) { expect_readings({{"\xE9)", 0, 1, "\xE9)"}}, true); }

}  // namespace
}  // namespace vorn
