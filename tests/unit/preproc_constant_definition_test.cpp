#include "preproc/constant_definition.h"

#include "unit/preproc_fixture.h"

namespace {

class ConstantDefinition : public vorn::test::PreprocessorTest {
protected:
    // The value that a score defines for the newest constant.
    double value_of(const std::string& score) {
        const auto outcome = run(score);
        EXPECT_EQ(outcome.result, 0) << score;
        return vorn::var_list == nullptr ? -999 : vorn::var_list->value;
    }

    int result_of(const std::string& score) { return run(score).result; }
};

TEST_F(ConstantDefinition, NameAndValue) {
    EXPECT_EQ(value_of("#const BAR 2.5\n"), 2.5);
    EXPECT_STREQ(vorn::var_list->name, "BAR");
    EXPECT_EQ(value_of("#const A -.5\n"), -0.5);
    EXPECT_EQ(value_of("#const A +3\n"), 3);
}

TEST_F(ConstantDefinition, ValueIsReadInDoublePrecision) {
    EXPECT_EQ(value_of("#const A 0.1234567890123\n"), 0.1234567890123);
    EXPECT_EQ(value_of("#const A 16777217\n"), 16777217.0);
}

TEST_F(ConstantDefinition, RestOfTheLineGoesBackToTheReader) {
    EXPECT_EQ(run("#const A 1 rest\n").lines, "rest");
    EXPECT_EQ(run("#const A 1e3\n").lines, "e3");
}

TEST_F(ConstantDefinition, NameMayStandBehindACommentOrOnTheNextLine) {
    EXPECT_EQ(value_of("#const /* not B */ A 1\n"), 1);
    EXPECT_EQ(value_of("#const ; not B\n\n A 1\n"), 1);
}

TEST_F(ConstantDefinition, ValueMustStandOnTheLineOfTheName) { EXPECT_EQ(result_of("#const A\n 1\n"), 500); }

TEST_F(ConstantDefinition, ConstNeedsOneMatchingLetter) {
    EXPECT_EQ(value_of("#cxxxx A 1\n"), 1);
    EXPECT_EQ(value_of("#c n s A 2\n"), 2);
}

TEST_F(ConstantDefinition, BadConstUsesTheTextOfMacros) {
    EXPECT_EQ(result_of("#constA 1\n"), 80);
    EXPECT_EQ(result_of("#con\n"), 80);
    EXPECT_EQ(result_of("#const"), 80);
    EXPECT_EQ(run("#constA 1\n").reader.pos, 6);
}

TEST_F(ConstantDefinition, NameMustBeginWithALetter) {
    EXPECT_EQ(result_of("#const 1A 1\n"), 109);
    EXPECT_EQ(run("#const 1A 1\n").reader.pos, 7);
    EXPECT_EQ(result_of("#const _A 1\n"), 109);
    EXPECT_EQ(result_of("#const\n"), 109);
}

TEST_F(ConstantDefinition, MacroAsValueIsRefused) {
    EXPECT_EQ(result_of("#define M #1#\n#const A $M\n"), 103);
    EXPECT_EQ(run("#define M #1#\n#const A $M\n").reader.pos, 9);
}

TEST_F(ConstantDefinition, ValueMustBeANumber) {
    EXPECT_EQ(result_of("#const A x\n"), 500);
    EXPECT_EQ(result_of("#const A -x\n"), 500);
    EXPECT_EQ(result_of("#const A(4)\n"), 500);
    EXPECT_EQ(result_of("#const A"), 500);
    EXPECT_EQ(run("#const A x\n").reader.pos, 9);
}

TEST_F(ConstantDefinition, NameTwiceIsRefused) { EXPECT_EQ(result_of("#const A 1\n#const A 2\n"), 100); }

TEST_F(ConstantDefinition, ConstantsPassThroughTheirTextOfThreeDecimals) {
    EXPECT_EQ(value_of("#const THIRD 0.33333\n#const COPY ~THIRD\n"), 0.333);
    EXPECT_EQ(value_of("#const BAR 2.5\n#const HALF ~[BAR / 2]\n"), 1.25);
    EXPECT_EQ(value_of("#const A ~[1 / 3]\n"), 0.333);
}

TEST_F(ConstantDefinition, OtherCommandsAreLeftAlone) {
    vorn::Reader reader;
    std::strcpy(reader.text, "define A #1#");
    EXPECT_EQ(vorn::parse_var(reader), 0);
    EXPECT_EQ(reader.pos, 0);
}

TEST_F(ConstantDefinition, NameOf5000CharactersIsAnError) {
    EXPECT_EQ(result_of("#const " + std::string(5000, 'n') + " 1\n"), 500);
}

TEST_F(ConstantDefinition, TenThousandConstantsAreDefinedAndUsedAtOnce) {
    std::string score;
    for (int at = 0; at < 10000; ++at) {
        const std::string name = "C" + std::to_string(at);
        score += "#const " + name + " " + std::to_string(at) + "\n ~" + name + "\n";
    }
    vorn::SUPRESS = 1;
    const auto outcome = run(score);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.lines.substr(0, 18), "0.000\n1.000\n2.000\n");
}

}  // namespace
