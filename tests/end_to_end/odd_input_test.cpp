#include <gtest/gtest.h>

#include <string>

#include "support/run_case.h"

// Texts that no composer means to write: each ends with a clear outcome, whole
// messages included.

namespace vorn::test {
namespace {

const std::string SCORE = "i1 = 3 0 1 {\np2 1\np3 1\n}\n";
const std::string OUTPUT = "\n;I-block #1 (i1):\ni1    0.000  1.000 \n\ne\n";
const std::string NOTHING =
    "\n\n\t(N.B. No I-Block Data Written)"
    "\n\nGlobal cumulative duration of all i-blocks =    0.00 (secs)\n\n";

RunResult run(const std::string& score, const Arguments& arguments = {"in.vorn", "out.sco"}) {
    const WorkFolder folder;
    folder.write("in.vorn", score);
    return run_as_program(folder, arguments);
}

void expect_error(const std::string& score, const std::string& message) {
    const RunResult result = run(score);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(behind_banner(result.err), message);
    EXPECT_EQ(result.out, "");
}

void expect_line_error(const std::string& score, const std::string& line_and_text, const std::string& echo,
                       std::size_t caret) {
    expect_error(score,
                 "\n\nERROR: Line " + line_and_text + "\n" + echo + "\n" + std::string(caret, ' ') + "^\n");
}

void expect_score(const std::string& score, const std::string& output) {
    const RunResult result = run(score);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.files.at("out.sco"), output);
}

TEST(OddInput, EmptyFile) {
    const RunResult result = run("");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(behind_banner(result.err), NOTHING);
    EXPECT_EQ(result.files.at("out.sco"), "\ne\n");
}

TEST(OddInput, CommentWithoutLineFeed) {
    const RunResult result = run("; nothing");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(behind_banner(result.err), NOTHING);
    EXPECT_EQ(result.files.at("out.sco"), "\ne\n");
}

TEST(OddInput, ScoreWithoutFinalLineFeed) { expect_score(SCORE.substr(0, SCORE.size() - 1), OUTPUT); }

TEST(OddInput, SingleCharacters) {
    expect_line_error("i", "1:Bad i-number.", "i", 1);
    expect_line_error("}", "1:Invalid G-block command or character.", "}", 0);
    expect_line_error("/", "1:Invalid G-block command or character.", "/", 0);
    expect_line_error("p", "1:Invalid G-block command or character.", "p", 0);
    expect_error("/*", "\nERROR: Comments seemed to be mismatched... reached EOF.\n\n");
    expect_score(";", "\ne\n");
    expect_score("\n", "\ne\n");
}

TEST(OddInput, BytesAbove127AreNoCommands) {
    expect_line_error("; c\n\xc3\xa9\n", "2:Invalid G-block command or character.", "\xc3\xa9 ", 0);
    expect_line_error("\x80", "1:Invalid G-block command or character.", "\x80", 0);
}

TEST(OddInput, BytesAbove127AreNoValues) {
    expect_line_error("i1 = 3 0 1 {\np2 \xe9\n", "2:Data is out of bounds.", "p2 \xe9 ", 3);
    expect_line_error("i1 = 3 0 1 {\np2 1\xb2\n", "2:Data is out of bounds.", "p2 1\xb2 ", 4);
    expect_line_error("i\xb9 = 3 0 1 {\n", "1:Bad i-number.", "i\xb9 = 3 0 1 { ", 1);
}

TEST(OddInput, BytesAbove127PassThroughCommentsAndDirectOutput) {
    expect_score("; \xc3\xa9\n> f1 \xe9\n" + SCORE, "\n f1 \xe9 " + OUTPUT);
}

TEST(OddInput, Byte255IsABlank) {
    expect_score(
        "\xff; c\ni1\xff=\xff"
        "3\xff"
        "0 1 {p2 1 p3 1}\xff\n",
        OUTPUT);
}

TEST(OddInput, NulByteIsNoCommand) {
    using namespace std::string_literals;
    expect_line_error("\0; c\n"s, "1:Invalid G-block command or character.", "\x1a; c ", 0);
    expect_line_error("i1 = 3 0 1 {\np2 1 \0 1\n"s, "2:Data is out of bounds.", "p2 1 \x1a 1 ", 5);
}

TEST(OddInput, NulByteInACommentHidesNothing) {
    using namespace std::string_literals;
    expect_score("/* a\0b */ \n"s + SCORE, OUTPUT);
    expect_line_error("/* a\0 */ oops\n"s, "1:Invalid G-block command or character.", "/* a\x1a */ oops ", 9);
}

TEST(OddInput, CarriageReturnsAreBlanks) {
    expect_score("; c\r\ni1 = 3 0 1 {\r\np2 1\r\np3 1\r\n}\r\n", OUTPUT);
    expect_line_error("; c\r\noops\r\n", "2:Invalid G-block command or character.", "oops  ", 0);
    expect_score("; a comment\roops", "\ne\n");
}

// 24 pieces of 4095 characters make 98280, which leaves 1720 for the 25th.
TEST(OddInput, LineOf100000BlanksComesInPiecesEachCounted) {
    const std::string blanks(100000, ' ');
    expect_line_error(blanks + "oops\n", "25:Invalid G-block command or character.",
                      std::string(1720, ' ') + "oops ", 1720);
    expect_score(blanks + SCORE, OUTPUT);
}

TEST(OddInput, CommentOf100000CharactersEndsWithItsFirstPiece) {
    const std::string piece(4095, 'x');
    expect_line_error(";" + std::string(100000, 'x') + "\n", "2:Invalid G-block command or character.", piece,
                      0);
    expect_score("/*" + std::string(100000, 'x') + "*/\n" + SCORE, OUTPUT);
}

TEST(OddInput, DataListOf100000Characters) {
    std::string list = "p4 ";
    for (int i = 0; i < 50000; ++i) list += "7 ";
    const RunResult result = run("i1 = 4 0 -50000 {\np2 1\np3 1\n" + list + "}\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(behind_banner(result.err),
              "\n\n50000 events generated in block #1 (i1).\n"
              "Total i-block duration: 50000.00 (secs), 49999.00 (beats)\n"
              "Cumulative i-block duration: 50000.00 (secs)\n"
              "\n\nGlobal cumulative duration of all i-blocks = 50000.00 (secs)\n\n");
    const std::string& score = result.files.at("out.sco");
    EXPECT_TRUE(score.ends_with("\ni1 49998.000  1.000     7.000 \ni1 49999.000  1.000     7.000 \n\ne\n"));
}

// --- a score with something of everything, cut and changed ---

const std::string PIECE =
    "; of everything something\n"
    "#define CHORD(a'b) #$a : $b#\n"
    "#const LOUD 7000\n"
    "te(90) rs(3)\n"
    "> f1 0 4096 10 1\n"
    "#if(1)\n"
    "i1 = 6, 0, 4 { /* a /* nested */ comment */\n"
    "p2 rh 4 8 8 / x2\n"
    "p3 1 .5 402\n"
    "p4 < ~LOUD 5000 > rd(.1)\n"
    "p5(op) no c4 $CHORD(e4'g4) r\n"
    "p6(re5) ra(T 1 [1 2]) rw(-2 1 1 5 .1 2)\n"
    "}\n"
    "#endif\n"
    "i-2 = 3 0 1 { p2 1 }\n";

// Success tells of no error; failure tells of one, and never of an unnamed one.
void expect_clear_outcome(const std::string& score) {
    const WorkFolder folder;
    folder.write("in.vorn", score);
    const RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    const bool told = result.err.find("ERROR:") != std::string::npos;
    EXPECT_EQ(result.status, told ? 1 : 0) << score << result.err;
    EXPECT_EQ(result.err.find("Unspecified"), std::string::npos) << score << result.err;
    if (result.status == 0) {
        EXPECT_TRUE(result.files.at("out.sco").ends_with("\ne\n")) << score;
    }
}

TEST(OddInput, PieceIsInOrder) {
    const RunResult result = run(PIECE);
    EXPECT_EQ(result.status, 0) << result.err;
}

TEST(OddInput, EveryCutHasAClearOutcome) {
    for (std::size_t size = 0; size < PIECE.size(); ++size) expect_clear_outcome(PIECE.substr(0, size));
}

TEST(OddInput, EveryLostCharacterHasAClearOutcome) {
    for (std::size_t at = 0; at < PIECE.size(); ++at) {
        expect_clear_outcome(PIECE.substr(0, at) + PIECE.substr(at + 1));
    }
}

TEST(OddInput, EveryChangedCharacterHasAClearOutcome) {
    using namespace std::string_literals;
    const std::string odd = "\0\xff{}()<>[]/*#$~;:'x-0zr\n"s;
    for (std::size_t at = 0; at < PIECE.size(); ++at) {
        std::string changed = PIECE;
        changed[at] = odd[at % odd.size()];
        expect_clear_outcome(changed);
        changed[at] = odd[(at * 7 + 3) % odd.size()];
        expect_clear_outcome(changed);
    }
}

TEST(OddInput, TwoRunsInOneProcessGiveTheSameBytes) {
    const WorkFolder folder;
    folder.write("in.vorn", PIECE);
    const Arguments arguments = {"-lrun.log", "-xrun.exp", "in.vorn", "out.sco"};
    const RunResult first = run_in_process(folder, arguments);
    const RunResult second = run_in_process(folder, arguments);
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(first.err, second.err);
    EXPECT_EQ(first.out, second.out);
    EXPECT_EQ(first.files, second.files);
    EXPECT_EQ(first.files.size(), 4U);
}

}  // namespace
}  // namespace vorn::test
