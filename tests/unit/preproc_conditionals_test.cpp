#include "preproc/conditionals.h"

#include "unit/preproc_fixture.h"

namespace {

using vorn::test::Line;

class Conditionals : public vorn::test::PreprocessorTest {
protected:
    std::string lines_of(const std::string& score) {
        const auto outcome = run(score);
        return outcome.result == 0 ? outcome.lines : "error " + std::to_string(outcome.result);
    }

    // Reads a condition from a text that stands behind "#".
    int condition(const std::string& text) {
        Line line(text);
        const int result = vorn::get_if(line.text, line.pos, 1, value);
        pos = line.pos;
        rest = line.text + line.pos;
        return result;
    }

    float value = -1;
    std::int32_t pos = -1;
    std::string rest;
};

TEST_F(Conditionals, ConditionIsANumberInParentheses) {
    EXPECT_EQ(condition("if(1)x"), 0);
    EXPECT_EQ(value, 1.0F);
    EXPECT_EQ(rest, "x");
    EXPECT_EQ(condition("if( \t2.5 \t) "), 0);
    EXPECT_EQ(value, 2.5F);
    EXPECT_EQ(condition("if(0.0001)"), 0);
    EXPECT_EQ(value, 0.0001F);
}

TEST_F(Conditionals, ParenthesisMustFollowDirectly) {
    EXPECT_EQ(condition("if (1)"), 114);
    EXPECT_EQ(pos, 0);
    EXPECT_EQ(condition("i"), 114);
    EXPECT_EQ(condition("iff(1)"), 114);
}

TEST_F(Conditionals, MinusOneAndPointFiveAreRejected) {
    EXPECT_EQ(condition("if(-1)"), 115);
    EXPECT_EQ(pos, 3);
    EXPECT_EQ(condition("if(.5)"), 115);
    EXPECT_EQ(condition("if(+1)"), 115);
    EXPECT_EQ(condition("if()"), 115);
    EXPECT_EQ(condition("if( "), 115);
    EXPECT_EQ(value, -1.0F) << "the value is left alone";
}

TEST_F(Conditionals, MissingParenthesisBehindTheValue) {
    EXPECT_EQ(condition("if(2"), 116);
    EXPECT_EQ(value, 2.0F) << "the value has been stored";
    EXPECT_EQ(condition("if(2 x)"), 116);
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(condition("if(1e3)"), 116);
}

TEST_F(Conditionals, ValueMayBeAMacroOrAConstant) {
    run("#define ON #1#\n#const OFF 0\n#define F(a) #$a.5#\n#define C #~OFF#\n#define D #$ON#\n");
    EXPECT_EQ(condition("if($ON)"), 0);
    EXPECT_EQ(value, 1.0F);
    EXPECT_EQ(condition("if( ~OFF )"), 0);
    EXPECT_EQ(value, 0.0F);
    EXPECT_EQ(condition("if($F(3))"), 0);
    EXPECT_EQ(value, 3.5F);
    EXPECT_EQ(condition("if(~[2 * 4])"), 0);
    EXPECT_EQ(value, 8.0F);
    EXPECT_EQ(condition("if($C)"), 0) << "the constant that a macro yields is expanded";
    EXPECT_EQ(value, 0.0F);
    EXPECT_EQ(condition("if($D)"), 115) << "a call that a macro yields is not";
    EXPECT_EQ(condition("if($NO)"), 1000);
    EXPECT_EQ(condition("if(~NO)"), 1000);
    EXPECT_EQ(condition("if(~[1)"), 107);
    EXPECT_EQ(condition("if($F)"), 85);
}

TEST_F(Conditionals, FalseBlockIsDropped) {
    EXPECT_EQ(lines_of("a\n#if(0)\nb\n#define A #1#\ni1 = {\n/* c */\n$nothing ~nothing\n#endif\nd\n"),
              "a\nd");
    EXPECT_EQ(lines_of("#if(0.0)\nb\n#endif\nd\n"), "d");
    EXPECT_EQ(vorn::IF_MATCH, 0);
    EXPECT_FALSE(vorn::in_if0());
}

TEST_F(Conditionals, TrueBlockIsKept) {
    EXPECT_EQ(lines_of("a\n#if(1)\nb\n#endif\nd\n"), "a\nb\nd");
    EXPECT_EQ(lines_of("#if(0.0001)\nb\n#endif\nd\n"), "b\nd");
    EXPECT_TRUE(vorn::ifdef_match());
}

TEST_F(Conditionals, WhiteSpaceMayPrecedeTheHash) { EXPECT_EQ(lines_of(" \t#if(0)\nb\n  #endif\nd\n"), "d"); }

TEST_F(Conditionals, BlocksNest) {
    EXPECT_EQ(lines_of("#if(0)\na\n#if(1)\nb\n#endif\nc\n#endif\nd\n"), "d");
    EXPECT_EQ(lines_of("#if(1)\na\n#if(0)\nb\n#endif\nc\n#endif\nd\n"), "a\nc\nd");
    EXPECT_EQ(lines_of("#if(0)\n#if(0)\n#if(0)\n#endif\n#endif\na\n#endif\nd\n"), "d");
    EXPECT_TRUE(vorn::ifdef_match());
}

TEST_F(Conditionals, SecondEndifIsMismatched) {
    const auto outcome = run("#if(1)\n#endif\n#endif\n");
    EXPECT_EQ(outcome.result, 118);
    EXPECT_EQ(outcome.reader.pos, 6);
    EXPECT_EQ(lines_of("#endif\n"), "error 118");
    EXPECT_EQ(lines_of("#if(0)\n#endif\n#endif\n"), "error 118");
}

TEST_F(Conditionals, EndifWithOtherLetters) {
    vorn::Reader reader;
    std::strcpy(reader.text, "endi");
    EXPECT_EQ(vorn::do_endif(reader), 113);
    EXPECT_EQ(reader.pos, 0);
}

TEST_F(Conditionals, TrueBlockLeftOpenIsFoundAtTheEnd) {
    EXPECT_EQ(lines_of("#if(1)\na\n"), "a");
    EXPECT_FALSE(vorn::ifdef_match());
}

TEST_F(Conditionals, FalseBlockLeftOpenReachesTheEndOfInput) {
    for (const char* score : {"#if(0)\na\n", "#if(0)\na", "#if(0)\n", "#if(0)", "#if(0)\n#if(1)\n#endif\n"}) {
        EXPECT_EQ(lines_of(score), "error 117") << score;
    }
    EXPECT_EQ(run("#if(0)\nab\n").reader.pos, 3);
}

TEST_F(Conditionals, MalformedIfIsNotReportedAndTheOldValueDecides) {
    EXPECT_EQ(lines_of("#if(x)\na\n#endif\nb\n"), "b") << "0 before the first condition";
    EXPECT_EQ(lines_of("#if(1)\n#endif\n#if(-1)\na\n#endif\nb\n"), "-1)\na\nb");
    EXPECT_EQ(lines_of("#if(0)\n#endif\n#if(-1)\na\n#endif\nb\n"), "b");
    EXPECT_EQ(lines_of("#if(2\na\n#endif\nb\n"), "a\nb") << "the value counts without its parenthesis";
}

TEST_F(Conditionals, FailedExpansionInAConditionIsPrintedAndTheRunGoesOn) {
    EXPECT_EQ(lines_of("#if(1)\n#endif\n#if($NO)\na\n#endif\nb\n"), ")\na\nb");
    EXPECT_EQ(messages(), "\n\nERROR: Line 3: There is no macro \"NO\" in your input file!\n");
}

TEST_F(Conditionals, TextBehindATrueConditionIsHandedOn) {
    EXPECT_EQ(lines_of("#if(1) rest $A\na\n#endif\n"), "rest $A\na");
}

TEST_F(Conditionals, TextBehindAFalseConditionIsSkipped) {
    EXPECT_EQ(lines_of("#if(0) rest\na\n#endif\nb\n"), "b");
    EXPECT_EQ(lines_of("#if(0) a #endif b\nc\n"), "b\nc");
}

TEST_F(Conditionals, RestBehindTheClosingEndifIsUnexpandedButParsed) {
    EXPECT_EQ(lines_of("#const C 1\n#define A #1#\n#if(0)\n#endif $A ~C\n"), "$A ~C");
    EXPECT_EQ(lines_of("#if(1)\n#endif $A ~C\n"), "$A ~C");
}

TEST_F(Conditionals, EndifAnywhereInASkippedLineCounts) {
    EXPECT_EQ(lines_of("#if(0)\nx y #endif z\nb\n"), "z\nb");
    EXPECT_EQ(lines_of("#if(0)\nx #if(1) y #endif z #endif u\n"), "u");
}

TEST_F(Conditionals, OtherHashesInSkippedTextAreSkipped) {
    EXPECT_EQ(lines_of("#if(0)\n# #define #if #endi f ## #e#endif u\n"), "u");
}

TEST_F(Conditionals, EndifInACommentOfSkippedTextDoesNotEndIt) {
    EXPECT_EQ(lines_of("#if(0)\n; #endif a\nb\n#endif c\n"), "c");
    EXPECT_EQ(lines_of("#if(0)\n/* #endif a\n#endif b */ #endif c\n"), "c");
    EXPECT_EQ(lines_of("#if(0)\n/* #if(1) */\n; #if(1)\n#endif c\n"), "c");
}

TEST_F(Conditionals, SlashStarBehindSemicolonInSkippedTextOpensABlockComment) {
    EXPECT_EQ(lines_of("#if(0)\n; /*\n#endif a\n*/ #endif b\n"), "b");
}

TEST_F(Conditionals, SemicolonInABlockCommentOfSkippedTextHidesTheRestOfTheLine) {
    EXPECT_EQ(lines_of("#if(0)\n/* ; */ #endif a\n#endif b\n"), "b");
}

TEST_F(Conditionals, EndifNotFirstOnItsLineIsConsumedWithoutEffect) {
    EXPECT_EQ(lines_of("#if(1)\n#define A #1# #endif\nb\n"), "b");
    EXPECT_FALSE(vorn::ifdef_match());
}

TEST_F(Conditionals, ConditionalsActInsideBlockComments) {
    EXPECT_EQ(lines_of("/* a\n#if(0)\nb\n#endif\nc */\n"), "/* a\nc */");
}

TEST_F(Conditionals, SkippedLinesAreCounted) { EXPECT_EQ(run("#if(0)\na\nb\n#endif\nc\n").reader.line, 5U); }

TEST_F(Conditionals, SkippedTextLeavesCommentsAndDefinitionsAsTheyWere) {
    EXPECT_EQ(lines_of("#define A #1#\n#if(0)\n/* # \n*/ #endif\n $A\n"), "1");
}

}  // namespace
