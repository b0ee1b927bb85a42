#include "preproc/macro_call.h"

#include "unit/preproc_fixture.h"

namespace {

using vorn::test::Line;

class MacroCall : public vorn::test::PreprocessorTest {
protected:
    // The text after expanding the one call whose "$" stands at `start`.
    std::string expand_at(std::int32_t start, const std::string& text, int expected = 0) {
        Line line(text, start + 1);
        vorn::ExpansionBudget budget;
        EXPECT_EQ(vorn::expand_macro(line.text, line.pos, 1, budget), expected) << text;
        pos = line.pos;
        return line.text;
    }

    // Lines left of definitions and calls, or the error.
    std::string lines_of(const std::string& score) {
        const auto outcome = run(score);
        return outcome.result == 0 ? outcome.lines : "error " + std::to_string(outcome.result);
    }

    std::int32_t pos = -1;
};

TEST_F(MacroCall, BodyTakesThePlaceOfTheCall) {
    run("#define M #body#\n");
    EXPECT_EQ(expand_at(1, "[$M]"), "[body]");
    EXPECT_EQ(pos, 1);
}

TEST_F(MacroCall, ArgumentsReplaceTheFormalsInTheBody) {
    EXPECT_EQ(lines_of("#define TRILL(a'b) #$a $b $a $b#\n$TRILL(c4'e4)\n"), "c4 e4 c4 e4");
}

TEST_F(MacroCall, MacroWithoutFormalsYieldsItsBodyAndThatIsScannedAgain) {
    EXPECT_EQ(lines_of("#define N #5#\n#define M #$N#\n $M\n"), "5");
}

TEST_F(MacroCall, LongestNameMatches) {
    EXPECT_EQ(lines_of("#define a #1#\n#define ab #2#\n $ab $a\n"), "2 1");
    EXPECT_EQ(lines_of("#define a #1#\n#define b #2#\n $ab\n"), "error 1000");
    EXPECT_NE(messages().find("There is no macro \"ab\" in"), std::string::npos);
}

TEST_F(MacroCall, UnknownNameStopsBehindTheName) {
    expand_at(2, "x $no(1)", 1000);
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(messages(), "\n\nERROR: Line 1: There is no macro \"no\" in your input file!\n");
}

TEST_F(MacroCall, CallWithoutALetterReportsTheEmptyName) {
    expand_at(2, "x $(1)", 1000);
    EXPECT_EQ(pos, 3);
    EXPECT_EQ(messages(), "\n\nERROR: Line 1: There is no macro \"\" in your input file!\n");
    expand_at(0, "$", 1000);
    expand_at(0, "$1", 1000);
}

TEST_F(MacroCall, SeparatorsAreQuoteOrHashNotComma) {
    run("#define M(a,b) #[$a][$b]#\n");
    EXPECT_EQ(expand_at(0, "$M(1'2)"), "[1][2]");
    EXPECT_EQ(expand_at(0, "$M(1#2)"), "[1][2]");
    EXPECT_EQ(expand_at(0, "$M(1,1'2,2)"), "[1,1][2,2]");
    expand_at(0, "$M(1,2)", 86);
    EXPECT_EQ(pos, 7);
}

TEST_F(MacroCall, HashIsTextInTheLastArgument) {
    run("#define M(a) #[$a]#\n");
    EXPECT_EQ(expand_at(0, "$M(1#2)"), "[1#2]");
}

TEST_F(MacroCall, ArgumentsAreReadVerbatimBlanksIncluded) {
    run("#define M(a'b) #[$a][$b]#\n");
    EXPECT_EQ(expand_at(0, "$M( 1 /* ; */ '\t)"), "[ 1 /* ; */ ][\t]");
    EXPECT_EQ(expand_at(0, "$M(')"), "[][]");
}

TEST_F(MacroCall, LastArgumentEndsAtTheFirstParenthesisButTheBalancedGroupIsRemoved) {
    run("#define F(a) #[$a]#\n");
    EXPECT_EQ(expand_at(1, "p$F(g(x) y) z"), "p[g(x] z");
    EXPECT_EQ(expand_at(1, "p$F(g(x) z"), "p[g(x]") << "an open group reaches to the end of the line";
}

TEST_F(MacroCall, BlankBeforeTheParenthesisIsAccepted) {
    EXPECT_EQ(lines_of("#define M(a) #[$a]#\n $M (x).\n"), "[x] (x).");
    EXPECT_EQ(lines_of("#define M(a) #[$a]#\n $M \t(x).\n"), "[x] \t(x).");
}

TEST_F(MacroCall, MacroWithoutFormalsSwallowsADirectlyFollowingGroup) {
    EXPECT_EQ(lines_of("#define PI #3.14#\n $PI(3) 4\n"), "3.14 4");
    EXPECT_EQ(lines_of("#define PI #3.14#\n $PI((3)(4))5\n"), "3.145");
    EXPECT_EQ(lines_of("#define PI #3.14#\n $PI (3)\n"), "3.14 (3)");
    EXPECT_EQ(lines_of("#define M(a) #$a(1)!#\n $M(x)\n"), "x!") << "an argument, too";
}

TEST_F(MacroCall, MissingParenthesis) {
    run("#define M(a) #$a#\n");
    expand_at(0, "$M x", 85);
    EXPECT_EQ(pos, 3);
    expand_at(0, "$M  ", 85);
    EXPECT_EQ(pos, 4);
}

TEST_F(MacroCall, TooFewArgumentsOrAnOpenList) {
    run("#define M(a'b) #$a#\n");
    for (const char* text : {"$M(", "$M(1", "$M(1)", "$M(1'", "$M(1'2"}) {
        expand_at(0, text, 86);
        EXPECT_EQ(pos, static_cast<std::int32_t>(std::strlen(text)));
    }
}

TEST_F(MacroCall, QuoteInTheLastArgument) {
    run("#define M(a) #$a#\n");
    expand_at(0, "$M(1'2)", 82);
    EXPECT_EQ(pos, 4);
}

TEST_F(MacroCall, DuplicateFormalsAreDetectedOnlyAtTheCall) {
    run("#define M(a'a) #$a#\n");
    expand_at(0, "$M(1'2)", 84);
    EXPECT_EQ(pos, 7);
}

TEST_F(MacroCall, ArgumentsComeBeforeMacrosOfTheSameName) {
    EXPECT_EQ(lines_of("#define a #macro#\n#define M(a) #[$a]#\n $M(1) $a\n"), "[1] macro");
}

TEST_F(MacroCall, MacrosCallMacrosWithArguments) {
    EXPECT_EQ(lines_of("#define UP(n) #<$n>#\n#define M(a) #x$UP($a)y#\n $M(1)\n"), "x<1>y");
}

TEST_F(MacroCall, InsertedTextBeginningWithACallIsSteppedOverInNestedScans) {
    run("#define N #5#\n#define M(a) #[$a]#\n");
    EXPECT_EQ(expand_at(0, "$M($N)"), "[$N]");
    EXPECT_EQ(expand_at(0, "$M(x$N)"), "[x5]") << "not first, so expanded here";
    EXPECT_EQ(lines_of("#define N #5#\n#define M(a) #[$a]#\n $M($N)\n"), "[5]")
        << "the scan of the line meets it later";
}

TEST_F(MacroCall, GroupBehindASteppedOverNameIsSteppedOverToo) {
    run("#define M(a'b) #$a($b)$b#\n");
    // "$a" takes "($b)" with it; "$x(y", which has come for it, opens a group that
    // reaches over the last "$b".
    EXPECT_EQ(expand_at(0, "$M($x(y'2)"), "$x(y$b");
    run("#define G #$x($b)#\n#define M(b) #$G-$b#\n");
    EXPECT_EQ(expand_at(0, "$M(2)"), "$x($b)-2");
}

TEST_F(MacroCall, EmptyInsertedTextDoesNotBeginWithTheCallBehindIt) {
    run("#define M(a'b) #$a$b#\n");
    EXPECT_EQ(expand_at(0, "$M('7)"), "7");
}

TEST_F(MacroCall, ArgumentPassedOnToACallThatBeginsWithItStaysUnexpanded) {
    // "$n" becomes "$a", with which the inserted text begins; the line then
    // looks for a macro "a".
    EXPECT_EQ(lines_of("#define SAME(n) #$n#\n#define M(a) #$SAME($a)#\n $M(1)\n"), "error 1000");
    EXPECT_EQ(lines_of("#define SAME(n) # $n#\n#define M(a) #$SAME($a)#\n $M(1)\n"), "1");
}

TEST_F(MacroCall, MacroCalledInABodySeesTheCallersArguments) {
    EXPECT_EQ(lines_of("#define INNER #<$a>#\n#define M(a) #$INNER#\n $M(1)\n"), "<1>");
}

TEST_F(MacroCall, CallsInCommentsOfABodyAreExpandedToo) {
    EXPECT_EQ(lines_of("#define M(a) #/* $a */#\n $M(1)\n"), "/* 1 */");
}

TEST_F(MacroCall, UnknownNameInABodyIsReportedFromTheLine) {
    run("#define M(a) #$nowhere#\n");
    messages();
    expand_at(0, "$M(1) x", 1000);
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(messages(), "\n\nERROR: Line 1: There is no macro \"nowhere\" in your input file!\n");
}

TEST_F(MacroCall, EachExpansionIsAnnouncedInnermostFirst) {
    run("#define N #5#\n#define M(a) #x$a$N#\n");
    expand_at(0, "$M(1)");
    EXPECT_EQ(messages(),
              "\n\tExpanding macro \"a\" into line 1..."
              "\n\tExpanding macro \"N\" into line 1..."
              "\n\tExpanding macro \"M\" into line 1...");
    vorn::SUPRESS = 1;
    expand_at(0, "$M(1)");
    EXPECT_EQ(messages(), "");
}

TEST_F(MacroCall, ExpansionMayFillTheLineToItsLastByte) {
    run("#define M #" + std::string(4000, 'm') + "#\n");
    const std::string rest(95, '.');
    EXPECT_EQ(expand_at(0, "$M" + rest), std::string(4000, 'm') + rest);
    EXPECT_EQ(expand_at(0, "$M" + rest + ".", 89), "$M" + rest + ".");
    EXPECT_EQ(pos, 2) << "behind the call";
}

TEST_F(MacroCall, BodyOutgrowingTheLineIsRefused) {
    run("#define M(a) #$a$a#\n");
    const std::string argument(2047, 'x');
    EXPECT_EQ(expand_at(0, "$M(" + argument + ")"), argument + argument);
    expand_at(0, "$M(" + argument + "x)", 89);
}

// A chain of macros L1 to L<length>, each calling the next within its body.
std::string chain(int length) {
    std::string score;
    for (int at = 1; at < length; ++at) {
        score += "#define L" + std::to_string(at) + "(a) #-$L" + std::to_string(at + 1) + "($a)#\n";
    }
    return score + "#define L" + std::to_string(length) + "(a) #-$a#\n";
}

TEST_F(MacroCall, TwoHundredLevelsOfCallsAreAccepted) {
    EXPECT_EQ(lines_of(chain(200) + " $L1(x)\n"), std::string(200, '-') + "x");
}

TEST_F(MacroCall, TwoHundredAndOneLevelsAreRefused) {
    EXPECT_EQ(lines_of(chain(201) + " $L1(x)\n"), "error 89");
    EXPECT_EQ(lines_of(chain(201) + " $L2(x)\n"), std::string(200, '-') + "x");
}

TEST_F(MacroCall, RecursiveMacrosEndAtOnce) {
    EXPECT_EQ(lines_of("#define A #$A#\n $A\n"), "error 89");
    EXPECT_EQ(lines_of("#define A #$B#\n#define B #$A#\n $A\n"), "error 89");
    EXPECT_EQ(lines_of("#define A #x$A#\n $A\n"), "error 89");
    EXPECT_EQ(lines_of("#define M(a) #$M($a)#\n $M(1)\n"), "error 89");
    EXPECT_EQ(lines_of("#define M(a) #$N($a)$N($a)#\n#define N(a) #$M($a)$M($a)#\n $M(1)\n"), "error 89");
    EXPECT_EQ(lines_of("#define M(a) #$a#\n $M(x$a)\n"), "error 89");
}

TEST_F(MacroCall, TenThousandExpansionsInOneLineAreAccepted) {
    std::string score = "#define E ##\n#define H #";
    for (int at = 0; at < 99; ++at) score += "$E";
    score += "#\n ";
    for (int at = 0; at < 100; ++at) score += "$H";
    vorn::SUPRESS = 1;
    EXPECT_EQ(lines_of(score + " x\n"), "x");
    EXPECT_EQ(lines_of(score + " x\n $E y\n"), "x\ny") << "each line has its own count";
    EXPECT_EQ(lines_of(score + "$E\n"), "error 89");
}

TEST_F(MacroCall, SkipNameMovesOverNameAndBalancedGroup) {
    struct Row {
        const char* text;
        std::int32_t pos;
    };
    for (const Row& row : {Row{"$ab(1(2)3)4", 10}, Row{"$ab (1)", 3}, Row{"$ab(1", 5}, Row{"$", 1},
                           Row{"$(1)", 4}, Row{"$a)", 2}, Row{"", 0}}) {
        std::int32_t at = 0;
        vorn::skip_name(row.text, at);
        EXPECT_EQ(at, row.pos) << row.text;
    }
}

}  // namespace
