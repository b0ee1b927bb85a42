#include "preproc/macro_definition.h"

#include "preproc/macro_scan.h"
#include "unit/preproc_fixture.h"

namespace {

class MacroDefinition : public vorn::test::PreprocessorTest {
protected:
    // The body that a score defines for a macro, or the error of the score.
    std::string body_of(const char* name, const std::string& score) {
        const auto outcome = run(score);
        if (outcome.result != 0) return "error " + std::to_string(outcome.result);
        const vorn::Macro* macro = vorn::find_macro(vorn::whole_name(name));
        return macro == nullptr ? "none" : macro->body;
    }

    int arguments_of(const char* name) { return vorn::find_macro(vorn::whole_name(name))->argument_count; }
};

TEST_F(MacroDefinition, NameFormalArgumentsAndBody) {
    EXPECT_EQ(body_of("TRILL", "#define TRILL(a'b) #$a $b $a $b#\n"), "$a $b $a $b");
    ASSERT_EQ(arguments_of("TRILL"), 2);
    EXPECT_STREQ(vorn::macro_list->argument_names[0], "a");
    EXPECT_STREQ(vorn::macro_list->argument_names[1], "b");
}

TEST_F(MacroDefinition, CommaAndQuoteSeparateFormalsAlike) {
    EXPECT_EQ(run("#define M(a, b) #$a-$b#\n $M(1'2)\n").lines, "1-2");
    EXPECT_EQ(run("#define M(a'b) #$a-$b#\n $M(1'2)\n").lines, "1-2");
    EXPECT_EQ(run("#define M( a b ) #$a-$b#\n $M(1'2)\n").lines, "1-2");
    EXPECT_EQ(run("#define M(a, b,) #$a-$b#\n $M(1'2)\n").lines, "1-2");
}

TEST_F(MacroDefinition, EmptyBody) { EXPECT_EQ(body_of("E", "#define E ##\n"), ""); }

TEST_F(MacroDefinition, RestOfTheLineGoesBackToTheReader) {
    EXPECT_EQ(run("#define A #1# rest\n").lines, "rest");
    EXPECT_EQ(run("#define A #1# #define B #2#\n $A$B\n").lines, "12");
}

TEST_F(MacroDefinition, DefineUndefNeedOneMatchingLetter) {
    EXPECT_EQ(body_of("A", "#dxxxxx A #1#\n"), "1");
    EXPECT_EQ(body_of("A", "#define A #1#\n#uxxxx A\n"), "none");
    EXPECT_EQ(run("#defineA #1#\n").result, 80);
    EXPECT_EQ(run("#define A #1#\n#undefA\n").result, 80);
    EXPECT_EQ(run("#undef\n").result, 91) << "a line end leaves a blank behind the keyword";
    EXPECT_EQ(run("#undef").result, 80);
}

TEST_F(MacroDefinition, BadKeywordRestsOnTheOffendingCharacter) {
    EXPECT_EQ(run("#defineA #1#\n").reader.pos, 7);
    EXPECT_EQ(run("#zzzzz A\n").reader.pos, 1);
}

TEST_F(MacroDefinition, NameMustBeginWithALetter) {
    EXPECT_EQ(run("#define 1A #1#\n").result, 88);
    EXPECT_EQ(run("#define 1A #1#\n").reader.pos, 8);
    EXPECT_EQ(run("#define _A #1#\n").result, 88);
    EXPECT_EQ(run("#define\n").result, 88);
}

TEST_F(MacroDefinition, NameMayStandBehindACommentOrOnTheNextLine) {
    EXPECT_EQ(body_of("A", "#define /* not B */ A #1#\n"), "1");
    EXPECT_EQ(body_of("A", "#define ; not B\n\n  A\n #1#\n"), "1");
}

TEST_F(MacroDefinition, ParenthesisMustFollowTheNameDirectly) {
    EXPECT_EQ(run("#define M (a) #$a#\n").result, 81);
    EXPECT_EQ(run("#define M (a) #$a#\n").reader.pos, 10);
}

TEST_F(MacroDefinition, FormalsMustBeginWithALetter) {
    EXPECT_EQ(run("#define M(1) #x#\n").result, 88);
    EXPECT_EQ(run("#define M(a,1) #x#\n").result, 88);
    EXPECT_EQ(run("#define M(a,,b) #x#\n").result, 88);
}

TEST_F(MacroDefinition, EmptyListOfFormalsIsRefused) {
    EXPECT_EQ(run("#define M() #x#\n").result, 88);
    EXPECT_EQ(run("#define M() #x#\n").reader.pos, 10);
}

TEST_F(MacroDefinition, FormalsMayRunOverLinesAndComments) {
    EXPECT_EQ(run("#define M(a ; first\n /* second */ b\n)\n#$a-$b#\n $M(1'2)\n").lines, "1-2");
}

TEST_F(MacroDefinition, LineEndBehindTheSeparatorDoesNotEndTheList) {
    EXPECT_EQ(run("#define M(a,\n) #x#\n").result, 88);
}

TEST_F(MacroDefinition, FormalNameGoesOnBehindTheEndOfALineCutInPieces) {
    // "#define M(" and 4085 letters fill the first piece of the line.
    const std::string name(5000, 'n');
    const std::string score = "#define M(" + name + ") #x#\n";
    EXPECT_EQ(body_of("M", score), "x");
    ASSERT_EQ(arguments_of("M"), 1);
    EXPECT_EQ(name, vorn::macro_list->argument_names[0]);
}

TEST_F(MacroDefinition, OneHundredAndTwentyEightFormalsAreAccepted) {
    std::string formals = "a1";
    for (int at = 2; at <= 128; ++at) formals += ",a" + std::to_string(at);
    EXPECT_EQ(body_of("M", "#define M(" + formals + ") #x#\n"), "x");
    EXPECT_EQ(arguments_of("M"), 128);
}

TEST_F(MacroDefinition, OneHundredAndTwentyNineFormalsAreRefused) {
    std::string formals = "a1";
    for (int at = 2; at <= 129; ++at) formals += ",a" + std::to_string(at);
    const auto outcome = run("#define M(" + formals + ") #x#\n");
    EXPECT_EQ(outcome.result, 87);
    EXPECT_STREQ(outcome.reader.text + outcome.reader.pos, "a129) #x# ");
}

TEST_F(MacroDefinition, DuplicateFormalsAreNotDetectedHere) {
    EXPECT_EQ(body_of("M", "#define M(a,a) #x#\n"), "x");
}

TEST_F(MacroDefinition, BodyMustBeginWithAHash) {
    EXPECT_EQ(run("#define M x\n").result, 81);
    EXPECT_EQ(run("#define M x\n").reader.pos, 10);
    EXPECT_EQ(run("#define M\n").result, 81);
}

TEST_F(MacroDefinition, BodyOverThreeLinesKeepsTwoLineFeeds) {
    // Each line ends in the blank that its line feed has become.
    EXPECT_EQ(body_of("M", "#define M #one\ntwo\nthree# rest\n"), "one \ntwo \nthree");
}

TEST_F(MacroDefinition, CallsAndConstantsInABodyAreNotExpandedAtDefinition) {
    EXPECT_EQ(body_of("M", "#const C 5\n#define A #1#\n#define M #$A ~C\n$A ~C\n$A ~C#\n"),
              "$A ~C \n$A ~C \n$A ~C");
}

TEST_F(MacroDefinition, HashInACommentDoesNotEndTheBody) {
    EXPECT_EQ(body_of("M", "#define M #1 /* # */ 2 ; # \n 3#\n"), "1 /* # */ 2 ; #  \n 3");
    EXPECT_EQ(body_of("M", "#define M #1 /* #\n # */ 2#\n"), "1 /* # \n # */ 2");
    EXPECT_EQ(body_of("M", "#define M #1 /* ; */#\n"), "1 /* ; */");
}

TEST_F(MacroDefinition, BlockCommentsDoNotNestInABody) {
    EXPECT_EQ(body_of("M", "#define M #1 /* /* */#\n"), "1 /* /* */");
}

TEST_F(MacroDefinition, EndOfInputInABody) {
    EXPECT_EQ(run("#define M #1\n2\n").result, 8);
    EXPECT_EQ(run("#define M #1").result, 8);
    EXPECT_EQ(run("#define M #").result, 8);
}

TEST_F(MacroDefinition, BodyOf4095CharactersIsAccepted) {
    // Blank and line feed of the first line, then 4093 letters.
    const std::string letters(4093, 'b');
    EXPECT_EQ(body_of("M", "#define M #\n" + letters + "#\n"), " \n" + letters);
}

TEST_F(MacroDefinition, BodyOf4096CharactersIsRefused) {
    const auto outcome = run("#define M #\n" + std::string(4094, 'b') + "#\n");
    EXPECT_EQ(outcome.result, 1000);
    EXPECT_EQ(messages(),
              "\n\nERROR: Line 2: The macro body has exceeded the maximum number\n"
              "of characters allowed (4096).\n");
    EXPECT_EQ(outcome.reader.pos, 4093);
}

TEST_F(MacroDefinition, LineEndsCountTowardsTheBodysLimit) {
    // Every line, the first included, adds a blank and a line feed: the 4096th
    // character is the line feed of the 2048th line.
    const auto outcome = run("#define M #\n" + std::string(4093, '\n') + "#\n");
    EXPECT_EQ(outcome.result, 1000);
    EXPECT_EQ(outcome.reader.line, 2048U);
}

TEST_F(MacroDefinition, NameOf5000CharactersIsAnError) {
    EXPECT_EQ(run("#define " + std::string(5000, 'n') + " #x#\n").result, 81);
}

TEST_F(MacroDefinition, NameTwiceIsRefused) {
    EXPECT_EQ(run("#define A #1#\n#define A #2#\n").result, 84);
    EXPECT_EQ(body_of("A", "#define A #1#\n#undef A\n#define A #2#\n"), "2");
}

TEST_F(MacroDefinition, UndefOfAnUnknownName) {
    EXPECT_EQ(run("#define A #1#\n#undef B2! \n").result, 1000);
    EXPECT_EQ(messages(), "\n\nERROR: Line 2: There is no macro \"B2!\" in your input file!\n");
    EXPECT_EQ(run("#define A #1#\n#undef \n").result, 1000);
    EXPECT_EQ(messages(), "\n\nERROR: Line 2: There is no macro \"\" in your input file!\n");
}

TEST_F(MacroDefinition, UndefWithoutAnyMacro) {
    EXPECT_EQ(run("#undef A\n").result, 91);
    EXPECT_EQ(run("#define A #1#\n#undef A\n#undef A\n").result, 91);
}

TEST_F(MacroDefinition, UndefRemovesOneMacro) {
    EXPECT_EQ(run("#define A #1#\n#define B #2#\n#undef A\n $B\n").lines, "2");
    EXPECT_EQ(run("#define A #1#\n#define B #2#\n#undef A\n $A\n").result, 1000);
}

TEST_F(MacroDefinition, EndifAndOtherWordsWithEAreConsumedWithoutEffect) {
    // Behind a command, where the line buffer has not taken the "#endif".
    EXPECT_EQ(run("#if(1)\n#define A #1# #endif\n").result, 0);
    EXPECT_FALSE(vorn::ifdef_match());
    EXPECT_EQ(run("#exit\n").lines, "exit");
}

TEST_F(MacroDefinition, IfWithABlankBeforeTheParenthesisIsRefused) {
    EXPECT_EQ(run("#if (1)\n").result, 114);
    EXPECT_EQ(run("#if (1)\n").reader.pos, 1);
}

TEST_F(MacroDefinition, IfBehindACommandIsReadWithoutEffect) {
    EXPECT_EQ(run("#define A #1# #if(0)\nx\n").lines, "x");
    EXPECT_TRUE(vorn::ifdef_match());
    EXPECT_EQ(run("#define A #1# #if(-1)\n").result, 115);
    EXPECT_EQ(run("#define A #1# #if(1\n").result, 116);
}

TEST_F(MacroDefinition, ConditionalsActInsideABody) {
    EXPECT_EQ(body_of("M", "#define M #1\n#if(0)\n2\n#endif\n3#\n"), "1 \n \n3");
    EXPECT_EQ(body_of("M", "#define M #1\n#if(1)\n2\n#endif\n3#\n"), "1 \n \n2 \n \n3");
}

TEST_F(MacroDefinition, TenThousandMacrosAreDefinedCalledAndRemovedAtOnce) {
    std::string score;
    for (int at = 0; at < 10000; ++at) {
        const std::string name = "M" + std::to_string(at);
        score += "#define " + name + " #" + std::to_string(at) + "#\n $" + name + "\n";
    }
    for (int at = 0; at < 10000; ++at) score += "#undef M" + std::to_string(at) + "\n";
    vorn::SUPRESS = 1;
    const auto outcome = run(score);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.lines.substr(0, 10), "0\n1\n2\n3\n4\n");
    EXPECT_EQ(vorn::macro_list, nullptr);
}

}  // namespace
