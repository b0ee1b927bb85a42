#include "preproc/equation.h"

#include "unit/preproc_fixture.h"

namespace {

class Equation : public vorn::test::PreprocessorTest {
protected:
    void SetUp() override {
        PreprocessorTest::SetUp();
        run("#const A 2\n#const BAR 2.5\n#const x_1 0.001\n#const THIRD 0.33333333\n");
    }

    double value_of(const std::string& text) {
        double value = -999;
        std::int32_t pos = 0;
        EXPECT_EQ(vorn::parse_vequation(value, text.c_str(), pos, 1), 0) << text;
        EXPECT_EQ(text.substr(static_cast<std::size_t>(pos)), "") << text;
        return value;
    }

    // The error of a text and the place where reading stopped.
    std::string error_of(const std::string& text) {
        double value = 0;
        std::int32_t pos = 0;
        const int result = vorn::parse_vequation(value, text.c_str(), pos, 1);
        return std::to_string(result) + " at " + std::to_string(pos);
    }
};

TEST_F(Equation, OneTerm) {
    EXPECT_EQ(value_of("[3]"), 3);
    EXPECT_EQ(value_of("[ \t.5\n]"), 0.5);
    EXPECT_EQ(value_of("[.]"), 0);
    EXPECT_EQ(value_of("[A]"), 2);
    EXPECT_EQ(value_of("[x_1]"), 0.001);
}

TEST_F(Equation, Operators) {
    EXPECT_EQ(value_of("[1 + 2]"), 3);
    EXPECT_EQ(value_of("[1-2]"), -1);
    EXPECT_EQ(value_of("[BAR*A]"), 5);
    EXPECT_EQ(value_of("[BAR / A]"), 1.25);
    EXPECT_EQ(value_of("[7 % 4]"), 3);
}

TEST_F(Equation, StrictlyFromLeftToRight) {
    EXPECT_EQ(value_of("[2 + 3 * 4]"), 20);
    EXPECT_EQ(value_of("[20 - 2 / 3 % 4]"), 2);
}

TEST_F(Equation, SignedNumberDirectlyBehindAnOperator) {
    EXPECT_EQ(value_of("[5 * -2]"), -10);
    EXPECT_EQ(value_of("[5 --2]"), 7);
    EXPECT_EQ(value_of("[5 + +2]"), 7);
    EXPECT_EQ(value_of("[5 * -.5]"), -2.5);
    EXPECT_EQ(error_of("[5 * - 2]"), "500 at 6") << "the digits must follow the sign at once";
    EXPECT_EQ(error_of("[5 * -A]"), "500 at 6");
    EXPECT_EQ(error_of("[5 * -"), "500 at 6");
}

TEST_F(Equation, LeadingMinusIsAnOperator) {
    EXPECT_EQ(error_of("[-2 + 3]"), "108 at 7");
    EXPECT_EQ(error_of("[-2]"), "108 at 3");
    EXPECT_EQ(error_of("[+2]"), "108 at 3");
}

TEST_F(Equation, TermsAndOperatorsAreOnlyCounted) {
    EXPECT_EQ(value_of("[2 3 +]"), 5);
    EXPECT_EQ(value_of("[* 2 3]"), 6);
    EXPECT_EQ(value_of("[2 3 4 - *]"), -4);
    EXPECT_EQ(error_of("[2 3]"), "108 at 4");
    EXPECT_EQ(error_of("[2 +]"), "108 at 4");
    EXPECT_EQ(error_of("[2 * / 3]"), "108 at 8");
    EXPECT_EQ(error_of("[]"), "108 at 1");
    EXPECT_EQ(error_of("[+]"), "108 at 2");
}

TEST_F(Equation, RemainderTakesTheSignOfTheFirstOperand) {
    EXPECT_EQ(value_of("[0 - 7 % 4]"), -3);
    EXPECT_EQ(value_of("[7.5 % -2]"), 1.5);
    EXPECT_EQ(value_of("[7 % 0]"), 0);
}

TEST_F(Equation, DivisionByZero) {
    EXPECT_EQ(error_of("[1 / 0]"), "59 at 6");
    EXPECT_EQ(error_of("[1 / -0]"), "59 at 7");
    EXPECT_EQ(error_of("[1 / 0 3]"), "108 at 8") << "the count is looked at first";
}

TEST_F(Equation, ConstantsKeepTheirFullValue) {
    EXPECT_EQ(value_of("[THIRD * 3]"), 0.33333333 * 3);
    EXPECT_EQ(error_of("[2 + x3]"), "1000 at 7");
    EXPECT_EQ(messages(), "\n\nERROR: Line 1: There is no constant \"x3\" in your input file!\n");
}

TEST_F(Equation, NumberAndNameMayTouch) { EXPECT_EQ(value_of("[3A+]"), 5); }

TEST_F(Equation, TimeVariablesOneAndTwo) {
    vorn::LAST_IB_DUR = 10;
    vorn::CUM_TIME = 25.5;
    EXPECT_EQ(value_of("[@1]"), 10);
    EXPECT_EQ(value_of("[@2 - @1]"), 15.5);
}

TEST_F(Equation, TimeVariablesThreeAndFourAreRefused) {
    EXPECT_EQ(error_of("[@3]"), "106 at 2");
    EXPECT_EQ(error_of("[@4]"), "106 at 2");
    EXPECT_EQ(error_of("[@ 1]"), "106 at 2");
    EXPECT_EQ(error_of("[@"), "106 at 2");
}

TEST_F(Equation, RandomTermIsTheSourceModulo32767) {
    // The default sequence begins 1804289383, 846930886; divided by 32767 they leave
    // 7295 (of 55064 * 32767 = 1804282088) and 2237 (of 25847 * 32767 = 846928649).
    EXPECT_EQ(value_of("[?]"), double{7295.0F / 32767.0F});
    EXPECT_EQ(value_of("[?]"), double{2237.0F / 32767.0F});
}

TEST_F(Equation, RandomTermIsPrinted) {
    value_of("[?]");
    EXPECT_EQ(messages(), "\n\tLine 1: '?' evaluated at =    0.22");
    vorn::SUPRESS = 1;
    value_of("[?]");
    EXPECT_EQ(messages(), "");
}

TEST_F(Equation, IllegalCharacter) {
    EXPECT_EQ(error_of("[2 ; 3]"), "107 at 3");
    EXPECT_EQ(error_of("[(2)]"), "107 at 1");
    EXPECT_EQ(error_of("[~A]"), "107 at 1");
    EXPECT_EQ(error_of("[2 + $A]"), "107 at 5");
    EXPECT_EQ(error_of("[\xff]"), "107 at 1");
}

TEST_F(Equation, EndOfTheLine) {
    EXPECT_EQ(error_of("["), "105 at 1");
    EXPECT_EQ(error_of("[2"), "105 at 2");
    EXPECT_EQ(error_of("[2 + "), "105 at 5");
    EXPECT_EQ(error_of("[A"), "105 at 2");
}

TEST_F(Equation, AsManyTermsAsALineHolds) {
    vorn::SUPRESS = 1;
    std::string text = "[";
    for (int at = 0; at < 2000; ++at) text += ".+";
    EXPECT_EQ(value_of(text + "5]"), 5);
    EXPECT_EQ(error_of("[" + std::string(4093, '?') + "]"), "108 at 4094");
    EXPECT_EQ(error_of("[" + std::string(4094, '*')), "105 at 4095");
}

}  // namespace
