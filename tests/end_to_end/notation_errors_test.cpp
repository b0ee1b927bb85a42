// Malformed notations, in data lists and inside data-defining functions. Each
// row is what stands behind "p4 " with a "^" where the caret must stand, and the
// message of its error number.

#include <gtest/gtest.h>

#include <string>

#include "support/run_case.h"

namespace vorn::test {
namespace {

constexpr const char* BAD_VALUE = "Value out of bounds or syntax error.";                      // 23
constexpr const char* OUT_OF_BOUNDS = "Data is out of bounds.";                                // 27
constexpr const char* BAD_BRACKET = "Value missing in []s, bad input type, or out of bounds";  // 39
constexpr const char* MISSING_VALUE = "Value(s) or []s missing?";                              // 41
constexpr const char* BAD_START = "RW command: Starting value out of range.";                  // 51
constexpr const char* BAD_RANGE = "RW command: Bad range value.";                              // 52
constexpr const char* HOLD_UNENDED = "HO command: Missing final \")\".";                       // 61
constexpr const char* INVALID = "Invalid I-block command or character.";                       // 73

struct Row {
    std::string data;
    const char* message;
};

constexpr int P4_LINE = 4;

// The error message of a block whose P4 statement is the text; the caret is in it.
std::string expected_messages(const std::string& statement, const char* message) {
    int line = P4_LINE;
    std::size_t start = 0;
    const std::size_t caret = statement.find('^');
    for (std::size_t feed; (feed = statement.find('\n', start)) < caret; start = feed + 1) ++line;
    std::string echo = statement.substr(start, statement.find('\n', caret) - start);
    const std::size_t column = caret - start;
    echo.erase(column, 1);
    return "\n\nERROR: Line " + std::to_string(line) + ":" + message + "\n" + echo + " \n" +
           std::string(column, ' ') + "^\n";
}

void expect_error(const Row& row) {
    std::string statement = "p4 " + row.data;
    const std::string expected = expected_messages(statement, row.message);
    statement.erase(statement.find('^'), 1);
    const WorkFolder folder;
    folder.write("in.vorn", "i1=4 0 -4 {\np2 re 1\np3 re 1\n" + statement + "\n}\n");
    const RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1) << row.data;
    EXPECT_EQ(behind_banner(result.err), expected) << row.data;
}

TEST(NotationErrors, NoteNames) {
    const Row rows[] = {
        {"no ^h4", BAD_VALUE},      {"no c4 ^s", BAD_VALUE},     {"no ^60", BAD_VALUE},
        {"no c4 ^4", BAD_VALUE},    {"no c10^", BAD_VALUE},      {"no cs10^ d", BAD_VALUE},
        {"no c^40000", BAD_VALUE},  {"no c^+4", BAD_VALUE},      {"no cs^-4", BAD_VALUE},
        {"no c4^+", OUT_OF_BOUNDS}, {"nox c4^-", OUT_OF_BOUNDS}, {"no c^S4", BAD_VALUE},
        {"no c/^4", BAD_VALUE},     {"no c\n^4 d", BAD_VALUE},   {"no c4:^5", BAD_VALUE},
        {"no ^.5", OUT_OF_BOUNDS},  {"no ^-c4", OUT_OF_BOUNDS},  {"no ^/c4", INVALID},
    };
    for (const Row& row : rows) expect_error(row);
}

TEST(NotationErrors, OctavePitchClasses) {
    const Row rows[] = {
        {"op 8^", BAD_VALUE},        {"op 8^ .07", BAD_VALUE},   {"op 8^,07", BAD_VALUE},
        {"op 8^/8.07", BAD_VALUE},   {"op 8^\n.07", BAD_VALUE},  {"op 8.00/07^", BAD_VALUE},
        {"op 8.\n05^", BAD_VALUE},   {"op ^.07", OUT_OF_BOUNDS}, {"op ^c4", OUT_OF_BOUNDS},
        {"op +^", BAD_VALUE},        {"op -^.07", BAD_VALUE},    {"op 8.07^.", OUT_OF_BOUNDS},
        {"op ^40000.00", BAD_VALUE}, {"op 8^x", BAD_VALUE},      {"op ^/8.00", INVALID},
    };
    for (const Row& row : rows) expect_error(row);
}

TEST(NotationErrors, RhythmValues) {
    const Row rows[] = {
        {"rh 4,^", BAD_VALUE},     {"rh 4,^ 8", BAD_VALUE},   {"rh 4,^\n8", BAD_VALUE},
        {"rh 4,^/8", BAD_VALUE},   {"rh 4,^,8", BAD_VALUE},   {"rh 4.,^x", BAD_VALUE},
        {"rh 0^", BAD_VALUE},      {"rh -0^", BAD_VALUE},     {"rh 4,0^", BAD_VALUE},
        {"rh 4/0^", BAD_VALUE},    {"rh ^.", BAD_VALUE},      {"rh 4 ^.5", BAD_VALUE},
        {"rh ^c4", OUT_OF_BOUNDS}, {"rh +^", BAD_VALUE},      {"rh 4 -^x", BAD_VALUE},
        {"rh ^40000", BAD_VALUE},  {"rh -^40000", BAD_VALUE}, {"rh ^,4", INVALID},
    };
    for (const Row& row : rows) expect_error(row);
}

TEST(NotationErrors, DecibelsIntegersAndReals) {
    const Row rows[] = {
        {"db 97^", BAD_VALUE},       {"db 96 96.5^", BAD_VALUE}, {"db -1^", BAD_VALUE},
        {"db +^", BAD_VALUE},        {"db -^x", BAD_VALUE},      {"db ^c4", OUT_OF_BOUNDS},
        {"db 60^e1", OUT_OF_BOUNDS}, {"in ^.5", OUT_OF_BOUNDS},  {"in 5 ^z", OUT_OF_BOUNDS},
        {"in +^", BAD_VALUE},        {"in -^/5", BAD_VALUE},     {"re +^x", BAD_VALUE},
        {"re ^c4", OUT_OF_BOUNDS},   {"re 1^e3", OUT_OF_BOUNDS},
    };
    for (const Row& row : rows) expect_error(row);
}

TEST(NotationErrors, InsideGenerators) {
    const struct {
        const char* input;
        const char* good;
        const char* bad;  // a "^" where reading stops
    } notations[] = {
        {"no", "c4", "^h4"},   {"no", "c4", "c10^"}, {"no", "c4", "c^+4"},   {"no", "c4", "^4"},
        {"nox", "c+4", "^+4"}, {"op", "8.00", "8^"}, {"op", "8.00", "^.07"}, {"op", "8.00", "-^.07"},
        {"db", "40", "97^"},   {"db", "40", "-1^"},  {"db", "40", "^c"},     {"rh", "4", "0^"},
        {"rh", "4.,8", "8,^"}, {"rh", "4", "4,^,8"}, {"rh", "4", "^."},      {"in", "60", "^c4"},
        {"in", "60", "+^"},    {"re", "60", "-^"},
    };
    for (const auto& [input, good, bad] : notations) {
        const std::string keyword = std::string(input) + " ";
        const std::string g = good;
        const std::string b = bad;
        expect_error({keyword + "ra(-4 1 " + b + ")", MISSING_VALUE});
        expect_error({keyword + "ra(-4 1 [f " + b + "])", BAD_BRACKET});
        expect_error({keyword + "ra(-4 1 [f " + g + " " + b + "])", BAD_BRACKET});
        expect_error({keyword + "rw(-4 1 " + b + " " + g + " .5 " + g + ")", BAD_RANGE});
        expect_error({keyword + "rw(-4 1 [" + g + " " + b + "] .5 " + g + ")", BAD_RANGE});
        expect_error({keyword + "rw(-4 1 " + g + " " + g + " .5 " + b + ")", BAD_START});
        expect_error({keyword + "mo(-4 1 f " + b + " " + g + ")", MISSING_VALUE});
        expect_error({keyword + "mo(-4 1 f " + g + " " + b + ")", MISSING_VALUE});
        expect_error({keyword + "mo(-4 1 f [f " + b + "] " + g + ")", BAD_BRACKET});
        expect_error({keyword + "se(-4 1 " + b + ")", MISSING_VALUE});
        expect_error({keyword + "se(-4 1 [" + g + " " + b + "])", BAD_BRACKET});
        expect_error({keyword + "ms(-4 1 f " + g + " " + b + ")", MISSING_VALUE});
        expect_error({keyword + "ms(-4 1 f [" + g + "] [" + g + " " + b + "])", BAD_BRACKET});
        expect_error({keyword + "s2(-4 1 " + b + ")", MISSING_VALUE});
        expect_error({keyword + "s2(-4 1 [" + g + " " + g + "'" + b + "])", BAD_BRACKET});
        expect_error({keyword + "ho(-4 " + b + ")", BAD_RANGE});
        expect_error({keyword + "ho(-4 \n" + b + ")", BAD_RANGE});
    }
}

TEST(NotationErrors, WhatIsLeftBehindAValueInAGenerator) {
    const Row rows[] = {
        {"no ho(-4 c4^+)", HOLD_UNENDED},  {"no ho(-4 c^S4)", HOLD_UNENDED},
        {"no ho(-4 r^4)", HOLD_UNENDED},   {"op ho(-4 8.07^.)", HOLD_UNENDED},
        {"db ho(-4 60^e1)", HOLD_UNENDED}, {"rh ho(-4 4 ^8)", HOLD_UNENDED},
    };
    for (const Row& row : rows) expect_error(row);
}

}  // namespace
}  // namespace vorn::test
