#include "kit/vary/range.h"

#include <gtest/gtest.h>

#include <vector>

#include "kit/vary/fingerprint.h"

namespace vorn::kit {
namespace {

std::vector<std::string> values(const std::string& text, std::size_t count) {
    const Assignment assignment = read_assignment(text);
    EXPECT_EQ(assignment.error, "");
    std::vector<std::string> list;
    for (std::size_t at = 0; at < count; ++at) list.push_back(range_value(assignment.range, at, count));
    return list;
}

using List = std::vector<std::string>;

TEST(Range, ValuesAreSpreadFromEndToEnd) {
    EXPECT_EQ(values("TEMPO=60..120", 5), (List{"60", "75", "90", "105", "120"}));
    EXPECT_EQ(values("X=0.0..1", 5), (List{"0", "0.25", "0.5", "0.75", "1"}));
    EXPECT_EQ(values("X=.5..-.5", 3), (List{"0.5", "0", "-0.5"}));
    EXPECT_EQ(values("X=1.0..2", 4), (List{"1", "1.333", "1.667", "2"}));
    EXPECT_EQ(values("X=0..10", 4), (List{"0", "3", "7", "10"}));
    EXPECT_EQ(values("X=7..9", 1), (List{"7"}));
    EXPECT_EQ(values("X=0.00001..0.00003", 3), (List{"0.00001", "0.00002", "0.00003"}));
    EXPECT_EQ(values("X=100..98", 3), (List{"100", "99", "98"}));
}

TEST(Range, NamesComeWithOrWithoutTheSignOfTheirCalls) {
    EXPECT_EQ(read_assignment("~TEMPO=1..2").name, "TEMPO");
    EXPECT_EQ(read_assignment("$TEMPO=1..2").name, "TEMPO");
    EXPECT_EQ(read_assignment("TEMPO=1..2").name, "TEMPO");
}

TEST(Range, NonsenseIsRefused) {
    for (const char* const text : {"", "TEMPO", "TEMPO=60", "TEMPO=60-120", "=1..2", "X=..", "X=1..", "X=..2",
                                   "X=a..b", "X=1e3..2", "X=nan..1", "X=0x1..2", "X=1..2..3", "X=1 ..2",
                                   "X=1..99999999999", "$=1..2", "X=--1..2", "X=.. .."}) {
        EXPECT_NE(read_assignment(text).error, "") << text;
    }
}

TEST(Range, WholeNumbersAreCounted) {
    EXPECT_EQ(whole_numbers(read_assignment("X=0..12").range), 13U);
    EXPECT_EQ(whole_numbers(read_assignment("X=12..0").range), 13U);
    EXPECT_EQ(whole_numbers(read_assignment("X=0..12.0").range), 0U);
}

TEST(Fingerprint, ChangesWithTheTextsAndTheirBorders) {
    EXPECT_EQ(fingerprint({"ab", "c"}), fingerprint({"ab", "c"}));
    EXPECT_NE(fingerprint({"ab", "c"}), fingerprint({"a", "bc"}));
    EXPECT_EQ(fingerprint({}), "cbf29ce484222325");  // the basis of the method
}

}  // namespace
}  // namespace vorn::kit
