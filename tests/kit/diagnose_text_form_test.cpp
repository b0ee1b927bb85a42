#include "kit/diagnose/text_form.h"

#include <gtest/gtest.h>

#include "kit/diagnose/from_messages.h"
#include "table_sources.h"

namespace vorn::kit {

namespace {

std::string text_of(const std::string& score, const TextStyle& style = {}) {
    const ScoreRun run = test::run_text(score);
    std::string text;
    for (const Diagnostic& diagnostic : from_messages(run)) text += text_form(diagnostic, run.map, style);
    return text;
}

const std::string BLOCK = "i1 = 4 0 4 {\np2 1\np3 1\n";

// A diagnostic of `text` with bytes [begin, end) marked.
std::string form_of(const std::string& text, std::uint64_t begin, std::uint64_t end,
                    const TextStyle& style = {}, std::uint64_t repeats = 1) {
    SourceMap map;
    map.add_file("a\x1B.vorn", text);
    Diagnostic diagnostic;
    diagnostic.code = "E27";
    diagnostic.text = "Bad.";
    diagnostic.span = {0, begin, end};
    diagnostic.repeats = repeats;
    return text_form(diagnostic, map, style);
}

}  // namespace

TEST(TextForm, MarksTheWordAndGivesAdvice) {
    EXPECT_EQ(text_of(BLOCK + "p4 60 c4 62 }\n"),
              "in.vorn:4:7: error: Data is out of bounds. [E27]\n"
              "p4 60 c4 62 }\n"
              "      ^^\n"
              "help: write `no` before note names\n");
}

TEST(TextForm, CountsCharactersAndKeepsTabs) {
    EXPECT_EQ(text_of(BLOCK + "p4\t/* \xC3\xB6 */\t60 c4 }\n"),
              "in.vorn:4:15: error: Data is out of bounds. [E27]\n"
              "p4\t/* \xC3\xB6 */\t60 c4 }\n"
              "  \t       \t   ^^\n"
              "help: write `no` before note names\n");
}

// A circle of macros comes out of hundreds of calls.
TEST(TextForm, ShowsTheBeginningOfALongChainOfCalls) {
    const std::string text = text_of("#define A #$B $B#\n#define B #$A $A#\n" + BLOCK + "p4 $A }\n");
    EXPECT_NE(
        text.find("in the expansion of $A, in that of $B, in that of $A, in that of $B, in that of $A, and "),
        std::string::npos);
    EXPECT_LT(text.size(), 1000U);
}

TEST(TextForm, ShowsTheExpansionWithItsOwnMarks) {
    EXPECT_EQ(text_of("#define LOW #no c3 h3#\n#define TUNE #$LOW c4#\n" + BLOCK + "p4 $TUNE }\n"),
              "in.vorn:6:4: error: Value out of bounds or syntax error. [E23]\n"
              "p4 $TUNE }\n"
              "   ^^^^^\n"
              "in the expansion of $TUNE, in that of $LOW:\n"
              "p4 no c3 h3 c4 }\n"
              "         ^^\n"
              "help: the note below c is `b`: write `b3`\n");
}

TEST(TextForm, MarksTheRightLineOfAnExpansionOfSeveral) {
    EXPECT_EQ(text_of("#define TUNE #no c3\nh3 d3\ne3#\n" + BLOCK + "p4 $TUNE }\n"),
              "in.vorn:7:4: error: Value out of bounds or syntax error. [E23]\n"
              "p4 $TUNE }\n"
              "   ^^^^^\n"
              "in the expansion of $TUNE:\n"
              "p4 no c3\n"
              "h3 d3\n"
              "^^\n"
              "e3 }\n"
              "help: the note below c is `b`: write `b3`\n");
}

TEST(TextForm, SaysWhatToWriteWhereAdviceDoesNot) {
    EXPECT_EQ(text_of("i1 = 4 0,5 4,5 {\n"),
              "in.vorn:1:8: error: Missing i-block initiator ({). [E30]\n"
              "i1 = 4 0,5 4,5 {\n"
              "       ^^^\n"
              "help: decimals are written with a point: 0.5, not 0,5\n"
              "help: write `0.5 4.5` instead of `0,5 4,5`\n");
}

TEST(TextForm, TellsASkippedBlockWhereItsMinusStands) {
    EXPECT_EQ(text_of("i-1 = 4 0 4 {\np2 1\np3 1\np4 60 }\n"),
              "in.vorn:1:1: warning: I-block skipped! (i-no < 0) [W2]\n"
              "i-1 = 4 0 4 {\n"
              "^^^\n"
              "help: remove the minus to hear the block\n");
}

TEST(TextForm, TellsFurtherPlaces) {
    EXPECT_EQ(text_of(BLOCK + "p4 60\ni2 = 3 4 4 {\n"),
              "in.vorn:5:1: error: Data is out of bounds. [E27]\n"
              "i2 = 3 4 4 {\n"
              "^^\n"
              "in.vorn:1:1: note: the block of line 1 is still open\n"
              "i1 = 4 0 4 {\n"
              "^^\n"
              "help: write `}` before this new block\n");
}

TEST(TextForm, TellsWeightsThatDoNotMakeOne) {
    EXPECT_NE(text_of(BLOCK + "p4 ra(T .5 60 .4 72) }\n").find("add up to 0.9; 0.1 is missing"),
              std::string::npos);
    EXPECT_NE(text_of(BLOCK + "p4 rw(T .5 [1 2] .1 1 .7 [1 2] .1 1) }\n").find("1.2, which is 0.2 too much"),
              std::string::npos);
    EXPECT_NE(text_of(BLOCK + "p4 mo(T .2 e 1 2 .2 3 4) }\n").find("add up to 0.4; 0.6 is missing"),
              std::string::npos);
}

TEST(TextForm, CutsLongLinesAroundTheMark) {
    const std::string text = std::string(200, 'a') + "bcd" + std::string(200, 'e');
    EXPECT_EQ(form_of(text, 200, 203), "a\x1B.vorn:1:201: error: Bad. [E27]\n..." + std::string(60, 'a') +
                                           "bcd" + std::string(97, 'e') + "...\n" + std::string(63, ' ') +
                                           "^^^\n");
}

TEST(TextForm, CutsBetweenCharacters) {
    std::string text;
    while (text.size() < 400) text += "\xC3\xB6";  // two bytes each
    const std::string form = form_of("x" + text, 201, 203);
    EXPECT_NE(form.find("\n...\xC3\xB6"), std::string::npos) << form;
    EXPECT_NE(form.find("\xC3\xB6...\n"), std::string::npos) << form;
}

TEST(TextForm, EscapesWhatATerminalWouldObey) {
    const TextStyle style = {false, true};
    EXPECT_EQ(form_of("\x1B[2J c4", 4, 5, style),
              "a\\x1B.vorn:1:5: error: Bad. [E27]\n\\x1B[2J c4\n       ^\n");
    EXPECT_EQ(form_of("a \x1B", 2, 3, style), "a\\x1B.vorn:1:3: error: Bad. [E27]\na \\x1B\n  ^^^^\n");
}

TEST(TextForm, TellsRepeats) {
    EXPECT_NE(form_of("a", 0, 1, {}, 4'294'967'295).find("[E27] (4,294,967,295 times)\n"), std::string::npos);
    EXPECT_NE(form_of("a", 0, 1, {}, 12).find("(12 times)"), std::string::npos);
    EXPECT_EQ(form_of("a", 0, 1).find("times"), std::string::npos);
}

TEST(TextForm, ColorsWhenAskedTo) {
    const TextStyle style = {true, true};
    EXPECT_EQ(form_of("a", 0, 1, style),
              "\x1B[1ma\\x1B.vorn:1:1:\x1B[0m \x1B[1;31merror:\x1B[0m Bad. [E27]\na\n\x1B[1;31m^\x1B[0m\n");
}

TEST(TextForm, TakesADiagnosticOfNoPlace) {
    SourceMap map;
    Diagnostic diagnostic;
    diagnostic.level = Level::WARNING;
    diagnostic.code = "W1";
    diagnostic.text = "Odd.";
    EXPECT_EQ(text_form(diagnostic, map), "warning: Odd. [W1]\n");
}

}  // namespace vorn::kit
