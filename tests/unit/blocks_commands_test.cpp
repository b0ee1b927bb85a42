// The two-letter commands: the whole chain of comparisons, the suffixes, and
// which names may stand where.

#include "blocks/commands.h"

#include <string>
#include <vector>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"

namespace vorn::test {
namespace {

class Commands : public BlockTest {
protected:
    // Reads one command; the code, or NO_COMMAND when none is assigned.
    int read(const std::string& text) {
        int code = NO_COMMAND;
        std::int32_t pos = 0;
        accepted = get_command(code, text.c_str(), pos);
        left = text.substr(static_cast<std::size_t>(pos));
        return code;
    }

    // The statement of P5 in a block of six p-fields.
    static void enter_statement() {
        MAX_PFIELDS = 6;
        ASSERT_TRUE(allocate_output_settings());
        P_NO = 5;
    }

    bool accepted = false;
    std::string left;
};

struct Named {
    const char* name;
    int code;
};

constexpr Named EVERY_COMMAND[] = {
    {"ex", 0},  {"te", 1},  {"db", 2},  {"dv", 3},  {"hz", 4},  {"ho", 5},  {"in", 6},
    {"mo", 7},  {"se", 9},  {"no", 10}, {"op", 11}, {"pf", 12}, {"od", 13}, {"re", 14},
    {"rh", 15}, {"ra", 16}, {"rd", 17}, {"rs", 18}, {"rw", 19}, {"ms", 22}, {"xx", 23},
    {"s2", 24}, {"tr", 26}, {"bn", 27}, {"sr", 28},
};

TEST_F(Commands, EveryNameHasItsCode) {
    for (const Named& command : EVERY_COMMAND) {
        EXPECT_EQ(read(std::string(command.name) + "(1)"), command.code) << command.name;
        EXPECT_TRUE(accepted) << command.name;
        EXPECT_EQ(left, "(1)") << command.name;
    }
}

TEST_F(Commands, EveryCodeHasItsName) {
    for (const Named& command : EVERY_COMMAND) EXPECT_EQ(command_name(command.code), command.name);
    EXPECT_EQ(command_name(CODE_DIRECT), "");
    EXPECT_EQ(command_name(NO_COMMAND), "");
}

TEST_F(Commands, LettersOfEitherCase) {
    EXPECT_EQ(read("RD"), CODE_RD);
    EXPECT_EQ(read("Rd"), CODE_RD);
    EXPECT_EQ(read("rD"), CODE_RD);
    EXPECT_EQ(read("S2"), CODE_S2);
}

// The patterns in their one order, as (where a first letter enters, second letter, code).
struct Pattern {
    char entry;  // blank: the entry above goes on
    char second;
    int code;
};

constexpr Pattern PATTERNS[] = {
    {'d', 'b', 2},  {' ', 'v', 3},  {'e', 'x', 0},  {'h', 'z', 4},  {' ', 'o', 5},
    {'i', 'n', 6},  {'m', 'o', 7},  {' ', 's', 22}, {'n', 'o', 10}, {'o', 'd', 13},
    {' ', 'p', 11}, {'p', 'f', 12}, {'s', 'e', 9},  {' ', '2', 24}, {' ', 'r', 28},
    {'r', 'a', 16}, {' ', 'd', 17}, {' ', 'e', 14}, {' ', 'h', 15}, {' ', 's', 18},
    {' ', 'w', 19}, {'t', 'e', 1},  {' ', 'r', 26}, {'x', 'x', 23}, {'b', 'n', 27},
};

constexpr int REFUSED = -2;

int code_by_patterns(char first, char second) {
    bool entered = false;
    for (const Pattern& pattern : PATTERNS) {
        if (pattern.entry == first) entered = true;
        if (entered && pattern.second == second) return pattern.code;
    }
    return entered ? NO_COMMAND : REFUSED;
}

TEST_F(Commands, FallThroughChainOfEveryPairOfCharacters) {
    for (char first = 'a'; first <= 'z'; ++first) {
        for (char second = ' '; second <= '~'; ++second) {
            if (second >= 'A' && second <= 'Z') continue;
            const std::string text = {first, second, '('};
            const int expected = code_by_patterns(first, second);
            EXPECT_EQ(read(text), expected == REFUSED ? NO_COMMAND : expected) << text;
            EXPECT_EQ(accepted, expected != REFUSED) << text;
            EXPECT_EQ(left, expected < 0 ? text : "(") << text;
        }
    }
}

TEST_F(Commands, FallThroughChainByExample) {
    EXPECT_EQ(read("dz"), CODE_HZ);
    EXPECT_EQ(read("dx"), CODE_EX);
    EXPECT_EQ(read("ix"), CODE_XX);
    EXPECT_EQ(read("de"), CODE_SE);
    EXPECT_EQ(read("ee"), CODE_SE);
    EXPECT_EQ(read("pe"), CODE_SE);
    EXPECT_EQ(read("d2"), CODE_S2);
    EXPECT_EQ(read("ea"), CODE_RA);
    EXPECT_EQ(read("ms"), CODE_MS);
    EXPECT_EQ(read("ns"), CODE_RS);
    EXPECT_EQ(read("xn"), CODE_BN);
    EXPECT_EQ(read("tn"), CODE_BN);
}

TEST_F(Commands, EndOfTheChainAcceptsWithoutACode) {
    for (const char* text : {"tq", "dq", "bx", "r", "x4", "sz"}) {
        EXPECT_EQ(read(text), NO_COMMAND) << text;
        EXPECT_TRUE(accepted) << text;
        EXPECT_EQ(left, text);
    }
}

TEST_F(Commands, OtherFirstCharactersAreRefused) {
    for (const char* text :
         {"co", "fe", "ge", "je", "ke", "le", "qe", "ue", "ve", "we", "ae", "ye", "ze", "1e", "(", ""}) {
        EXPECT_EQ(read(text), NO_COMMAND) << text;
        EXPECT_FALSE(accepted) << text;
        EXPECT_EQ(left, text);
    }
}

TEST_F(Commands, SignsMoveByOneOnly) {
    EXPECT_EQ(read("#define"), CODE_MACRO);
    EXPECT_EQ(left, "define");
    EXPECT_EQ(read("#const"), CODE_CONST);
    EXPECT_EQ(left, "const");
    EXPECT_EQ(read("# const"), CODE_MACRO);  // only a "c" directly behind
    EXPECT_EQ(read("$const"), CODE_CONST);
    EXPECT_EQ(left, "const");
    EXPECT_EQ(read("$x"), CODE_MACRO);
    EXPECT_EQ(read("#"), CODE_MACRO);
    EXPECT_EQ(left, "");
    EXPECT_EQ(read("> f1"), CODE_DIRECT);
    EXPECT_EQ(left, " f1");
}

TEST_F(Commands, SuffixXSetsNX) {
    for (const char* text : {"nox c4", "opx c4", "NOX c4"}) {
        NX = 0;
        read(text);
        EXPECT_EQ(NX, 1) << text;
        EXPECT_EQ(left, " c4");
    }
    for (const char* text : {"no x3", "op x3", "noc"}) {
        NX = 1;
        read(text);
        EXPECT_EQ(NX, 0) << text;
        EXPECT_EQ(left, text + 2);
    }
    NX = 1;
    read("rex");
    EXPECT_EQ(NX, 1);  // no business of other names
}

TEST_F(Commands, DigitTestStoresDecimals) {
    enter_statement();
    EXPECT_EQ(read("re5)"), CODE_RE);
    EXPECT_EQ(left, ")");
    EXPECT_EQ(RE_FW[3], 5U);
    EXPECT_EQ(RE_FW[2], RE_FW_DEFAULT);
    read("re0");
    EXPECT_EQ(RE_FW[3], 0U);
    read("re7");
    EXPECT_EQ(RE_FW[3], 7U);
    read("re");
    EXPECT_EQ(RE_FW[3], RE_FW_DEFAULT);
}

TEST_F(Commands, DigitTestStoresTheSizeIndex) {
    enter_statement();
    EXPECT_EQ(read("bn6)"), CODE_BN);
    EXPECT_EQ(FFT_SZ[3], 6);
    read("bn ");
    EXPECT_EQ(FFT_SZ[3], FFT_SZ_DEFAULT);
}

TEST_F(Commands, DigitTestReadsAWholeNumber) {
    enter_statement();
    EXPECT_EQ(read("re05"), CODE_RE);
    EXPECT_TRUE(accepted);
    EXPECT_EQ(left, "");
    EXPECT_EQ(RE_FW[3], 5U);
}

TEST_F(Commands, DigitTestFailsAboveSeven) {
    enter_statement();
    for (const char* text : {"re8", "re9", "re10", "re99999", "bn8"}) {
        read(text);
        EXPECT_FALSE(accepted) << text;
        EXPECT_EQ(RE_FW[3], RE_FW_DEFAULT);
    }
}

TEST_F(Commands, DigitStaysInBoundsOutsideAStatement) {
    EXPECT_EQ(read("re5"), CODE_RE);  // no block: nothing to write to
    enter_statement();
    for (const int number : {0, 1, 7, 128}) {
        P_NO = number;
        EXPECT_EQ(read("re5"), CODE_RE);
        EXPECT_EQ(read("bn5"), CODE_BN);
        for (int n = 2; n <= MAX_PFIELDS; ++n) EXPECT_EQ(RE_FW[n - 2], RE_FW_DEFAULT);
    }
}

std::vector<std::string> names_accepted(bool (*accepts)(const char*, std::int32_t)) {
    std::vector<std::string> names;
    for (char first = ' '; first <= '~'; ++first) {
        for (char second = ' '; second <= '~'; ++second) {
            const std::string text = {first, second};
            const bool upper = (first >= 'A' && first <= 'Z') || (second >= 'A' && second <= 'Z');
            const bool sign = first == '>' || first == '#';
            if (!upper && !sign && accepts(text.c_str(), 0)) names.push_back(text);
        }
    }
    return names;
}

TEST_F(Commands, GlobalCommands) {
    EXPECT_EQ(names_accepted(is_gcommand), (std::vector<std::string>{"pf", "rd", "rs", "sr", "te"}));
    EXPECT_TRUE(is_gcommand("> f1", 0));
    EXPECT_TRUE(is_gcommand("#define", 0));
    EXPECT_TRUE(is_gcommand("TE(60)", 0));
    EXPECT_TRUE(is_gcommand("x sr(1)", 2));
    EXPECT_FALSE(is_gcommand("$x", 0));
    EXPECT_FALSE(is_gcommand("i1", 0));
    EXPECT_FALSE(is_gcommand("r", 0));
    EXPECT_FALSE(is_gcommand("", 0));
}

TEST_F(Commands, StatementCommands) {
    EXPECT_EQ(names_accepted(is_command),
              (std::vector<std::string>{"db", "dv", "ex", "ho", "in", "mo", "ms", "no", "op", "pf", "ra",
                                        "rd", "re", "rh", "rs", "rw", "s2", "se"}));
    EXPECT_TRUE(is_command("#", 0));
    EXPECT_TRUE(is_command("Ra(", 0));
    EXPECT_FALSE(is_command(">", 0));
    EXPECT_FALSE(is_command("", 0));
}

TEST_F(Commands, DxStandsForExOnlyWithItsParenthesis) {
    EXPECT_TRUE(is_command("dx(1 [p2])", 0));
    EXPECT_TRUE(is_command("dx \t (1 [p2])", 0));
    EXPECT_TRUE(is_command("DX(", 0));
    EXPECT_FALSE(is_command("dx3", 0));
    EXPECT_FALSE(is_command("dx", 0));
}

TEST_F(Commands, OutputSpecifiers) {
    EXPECT_EQ(names_accepted(is_output_specifier),
              (std::vector<std::string>{"bn", "db", "hz", "in", "od", "op", "re", "tr", "xx"}));
    EXPECT_TRUE(is_output_specifier("Xx)", 0));
}

}  // namespace
}  // namespace vorn::test
