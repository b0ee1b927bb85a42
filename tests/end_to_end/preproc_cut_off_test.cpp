// Definitions, calls, conditions and equations cut off behind each of their
// tokens: at the end of a line, where a "}" stands on the next line, and at the
// end of the file. Both must name the mistake and show where reading stopped.

#include <gtest/gtest.h>

#include <string>

#include "support/run_case.h"

namespace vorn::test {
namespace {

constexpr const char* BAD_DEFINE = "Error in macro \"#define\" or \"#undef\" statement.";  // 80
constexpr const char* NO_BODY = "Macro body must be enclosed in #s";                       // 81
constexpr const char* NO_PARENTHESIS = "Error in macro call: missing (.";                  // 85
constexpr const char* BAD_CALL = "Error in macro syntax. (Bad # of arguments?)";           // 86
constexpr const char* BAD_NAME =
    "Macro name (or argument name) must start with an alphabetic character.";                        // 88
constexpr const char* UNENDED = "\"const\" equations must be contained on a single line, sorry :(";  // 105
constexpr const char* BAD_TIME = "\"@\" must be followed by a 1, 2, 3, or 4";                        // 106
constexpr const char* BAD_CONSTANT = "Constant name must start with an alphabetic character.";       // 109
constexpr const char* BAD_IF =                                                                       // 114
    "Error in \"#if\" Statement. \n(N.B. #if and #endif must be isolated to their own lines \n"
    "with no other data than whitespace.)";
constexpr const char* IF_UNENDED =  // 117
    "Reached EOF. \"#if\" statement is missing \"#endif\"? \n(N.B. #if and #endif must be isolated\n"
    "to their own lines with no other data than whitespace.)";
constexpr const char* IF_OPEN =  // 119
    "\"#if\" statement: missing an \"#endif\"? \n(N.B. #if and #endif must be isolated to their own\n"
    " lines with no other data than whitespace.)";
constexpr const char* BAD_REAL = "Expecting a digit or decimal point in floating-point number.";  // 500
constexpr const char* INVALID = "Invalid G-block command or character.";                          // 22
constexpr const char* NO_BLOCK = "\n\n\t(N.B. No I-Block Data Written)";

// The first two lines of every score.
constexpr const char* DEFINITIONS = "#define M(a'b) #$a$b#\n#const C 2\n";
constexpr int CUT_LINE = 3;

// What standard error must hold: a message and the line that it shows.
struct Outcome {
    std::string before;  // what precedes the message
    std::string message;
    enum Place { SAME_LINE, NEXT_LINE, NONE } place;
    int column;  // of the caret
};

Outcome at(int column, const char* message) { return {"", message, Outcome::SAME_LINE, column}; }
Outcome next(const char* message, int column = 0) { return {"", message, Outcome::NEXT_LINE, column}; }

Outcome behind(const std::string& before, Outcome outcome) {
    outcome.before = before;
    return outcome;
}

Outcome no_end_of_body() {
    return {"", "\nERROR: EOF reached: missing macro body end (#).\n\n", Outcome::NONE, 0};
}

std::string missing(const std::string& kind, const std::string& name) {
    return "\n\nERROR: Line 3: There is no " + kind + " \"" + name + "\" in your input file!\n";
}

// A name that is not there: the message without number, then the echo alone.
Outcome unknown(int column, const std::string& kind, const std::string& name) {
    return {missing(kind, name), "", Outcome::SAME_LINE, column};
}

std::string expected_messages(const Outcome& outcome, const std::string& cut_line) {
    if (outcome.place == Outcome::NONE) return outcome.before + outcome.message;
    const bool same = outcome.place == Outcome::SAME_LINE;
    std::string expected = outcome.before;
    if (!outcome.message.empty()) {
        expected += "\n\nERROR: Line " + std::to_string(same ? CUT_LINE : CUT_LINE + 1) + ":" +
                    outcome.message + "\n";
    }
    return expected + (same ? cut_line : "} ") + "\n" +
           std::string(static_cast<std::size_t>(outcome.column), ' ') + "^\n";
}

struct Row {
    std::string text;
    Outcome at_line_end;
    Outcome at_the_end;
};

void expect_messages(const std::string& score, const Outcome& outcome, const std::string& cut_line) {
    const WorkFolder folder;
    folder.write("in.vorn", score);
    const RunResult result = run_in_process(folder, {"-s", "in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 1) << score;
    EXPECT_EQ(behind_banner(result.err), expected_messages(outcome, cut_line)) << score;
}

template <std::size_t count>
void expect_all(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        // A line end leaves a blank, and so does a "#" or "#i" at the end of the file.
        const bool blank = row.text == "#" || row.text == "#i";
        expect_messages(DEFINITIONS + row.text + "\n}\n", row.at_line_end, row.text + " ");
        expect_messages(DEFINITIONS + row.text, row.at_the_end, row.text + (blank ? " " : ""));
    }
}

TEST(CutOff, Definition) {
    const Row rows[] = {
        {"#", at(1, BAD_DEFINE), at(1, BAD_DEFINE)},
        {"#d", at(3, BAD_DEFINE), at(2, BAD_DEFINE)},
        {"#defin", at(7, BAD_DEFINE), at(6, BAD_DEFINE)},
        {"#define", next(BAD_NAME), at(7, BAD_DEFINE)},
        {"#define ", next(BAD_NAME), at(8, BAD_NAME)},
        {"#define N", next(NO_BODY), at(9, NO_BODY)},
        {"#define N(", next(BAD_NAME), at(10, BAD_NAME)},
        {"#define N(a", next(BAD_NAME), at(11, BAD_NAME)},
        {"#define N(a'", next(BAD_NAME), at(12, BAD_NAME)},
        {"#define N(a'b", next(BAD_NAME), at(13, BAD_NAME)},
        {"#define N(a'b)", next(NO_BODY), at(14, NO_BODY)},
        {"#define N(a'b) #", no_end_of_body(), no_end_of_body()},
        {"#define N(a'b) #$a", no_end_of_body(), no_end_of_body()},
        {"#define N(a'b) #$a /*", no_end_of_body(), no_end_of_body()},
        {"#define N(a'b) #$a ; #", no_end_of_body(), no_end_of_body()},
    };
    expect_all(rows);
}

TEST(CutOff, Undefinition) {
    const Row rows[] = {
        {"#u", at(3, BAD_DEFINE), at(2, BAD_DEFINE)},
        {"#unde", at(6, BAD_DEFINE), at(5, BAD_DEFINE)},
        {"#undef", unknown(7, "macro", ""), at(6, BAD_DEFINE)},
        {"#undef ", unknown(8, "macro", ""), unknown(7, "macro", "")},
        {"#undef N", unknown(8, "macro", "N"), unknown(8, "macro", "N")},
    };
    expect_all(rows);
}

TEST(CutOff, MacroCall) {
    const Row rows[] = {
        {"> $", unknown(3, "macro", ""), unknown(3, "macro", "")},
        {"> $M", at(5, NO_PARENTHESIS), at(4, NO_PARENTHESIS)},
        {"> $M(", at(6, BAD_CALL), at(5, BAD_CALL)},
        {"> $M(1", at(7, BAD_CALL), at(6, BAD_CALL)},
        {"> $M(1'", at(8, BAD_CALL), at(7, BAD_CALL)},
        {"> $M(1'2", at(9, BAD_CALL), at(8, BAD_CALL)},
        {"$M(1'", at(6, BAD_CALL), at(5, BAD_CALL)},
    };
    expect_all(rows);
}

TEST(CutOff, Condition) {
    const Row rows[] = {
        {"#i", at(1, BAD_IF), at(1, BAD_IF)},
        {"#if", at(1, BAD_IF), at(1, BAD_IF)},
        // Malformed and so false, as no condition has been true yet.
        {"#if(", next(IF_UNENDED, 2), at(4, IF_UNENDED)},
        {"#if(0", next(IF_UNENDED, 2), at(5, IF_UNENDED)},
        {"#if(0)", next(IF_UNENDED, 2), at(6, IF_UNENDED)},
        {"#if($", behind(missing("macro", ""), next(IF_UNENDED, 2)),
         behind(missing("macro", ""), at(5, IF_UNENDED))},
        {"#if(~", behind(missing("constant", ""), next(IF_UNENDED, 2)),
         behind(missing("constant", ""), at(5, IF_UNENDED))},
        {"#if(1", next(INVALID), behind(NO_BLOCK, at(5, IF_OPEN))},
        {"#if(1)", next(INVALID), behind(NO_BLOCK, at(6, IF_OPEN))},
    };
    expect_all(rows);
}

TEST(CutOff, EndOfACondition) {
    const Row rows[] = {
        {"#e", at(1, INVALID), at(1, INVALID)},
        {"#endi", at(1, INVALID), at(1, INVALID)},
    };
    expect_all(rows);
}

TEST(CutOff, Constant) {
    const Row rows[] = {
        {"#c", at(3, BAD_DEFINE), at(2, BAD_DEFINE)},
        {"#cons", at(6, BAD_DEFINE), at(5, BAD_DEFINE)},
        {"#const", next(BAD_CONSTANT), at(6, BAD_DEFINE)},
        {"#const ", next(BAD_CONSTANT), at(7, BAD_CONSTANT)},
        {"#const A", at(9, BAD_REAL), at(8, BAD_REAL)},
        {"#const A -", at(10, BAD_REAL), at(10, BAD_REAL)},
    };
    expect_all(rows);
}

TEST(CutOff, Reference) {
    const Row rows[] = {
        {"> ~", unknown(3, "constant", ""), unknown(3, "constant", "")},
        {"> ~@", at(4, BAD_TIME), at(4, BAD_TIME)},
        {"> ~[", at(5, UNENDED), at(4, UNENDED)},
        {"> ~[1", at(6, UNENDED), at(5, UNENDED)},
        {"> ~[1 +", at(8, UNENDED), at(7, UNENDED)},
        {"> ~[1 + -", at(9, BAD_REAL), at(9, BAD_REAL)},
        {"> ~[1 + C", at(10, UNENDED), at(9, UNENDED)},
        {"> ~[?", at(6, UNENDED), at(5, UNENDED)},
        {"> ~[@", at(5, BAD_TIME), at(5, BAD_TIME)},
        {"> ~[@1", at(7, UNENDED), at(6, UNENDED)},
    };
    expect_all(rows);
}

TEST(CutOff, Include) {
    const std::string no_bar = "\n\nInclude filename must be preceeded by a |.\n";
    const auto bad_name = [](const std::string& name) {
        return "\nBad include file name: \"" + name + "\"\n\n";
    };
    const auto printed = [](const std::string& text) { return Outcome{text, "", Outcome::NONE, 0}; };
    const Row rows[] = {
        {"#include", printed(no_bar), printed(no_bar)},
        {"#include ", printed(no_bar), printed(no_bar)},
        // The name goes on to the end of the file, line ends left out.
        {"#include |", printed(bad_name("}")), printed(bad_name(""))},
        {"#include |a", printed(bad_name("a}")), printed(bad_name("a"))},
        {"#include |a|", printed(bad_name("a")), printed(bad_name("a"))},
    };
    expect_all(rows);
    // "#in" and what goes on like the word vanish, with the character behind them.
    for (const char* text : {"#in", "#inc", "#includ"}) {
        expect_messages(std::string(DEFINITIONS) + text + "\n}\n", at(0, INVALID), "} ");
    }
}

}  // namespace
}  // namespace vorn::test
