#include "preproc/constant_call.h"

#include "unit/preproc_fixture.h"

namespace {

using vorn::test::Line;

class ConstantCall : public vorn::test::PreprocessorTest {
protected:
    // The text after expanding the one reference whose "~" stands at `start`.
    std::string expand_at(std::int32_t start, const std::string& text, int expected = 0) {
        Line line(text, start + 1);
        EXPECT_EQ(vorn::expand_variables(line.text, line.pos, 4), expected) << text;
        pos = line.pos;
        return line.text;
    }

    std::int32_t pos = -1;
};

TEST_F(ConstantCall, ValueTakesThePlaceOfTheReference) {
    run("#const BAR 2.5\n");
    EXPECT_EQ(expand_at(1, "[~BAR]"), "[2.500]");
    EXPECT_EQ(pos, 1);
    EXPECT_EQ(messages(), "\n\tExpanding const \"BAR\" (   2.50) into line 4...");
    EXPECT_EQ(expand_at(0, "~BAR(1)"), "2.500(1)") << "no group goes with it";
}

TEST_F(ConstantCall, LongestNameMatches) {
    run("#const A 1\n#const AB 2\n");
    EXPECT_EQ(expand_at(0, "~AB"), "2.000");
    expand_at(0, "~ABC", 1000);
}

TEST_F(ConstantCall, UnknownNameStopsBehindTheName) {
    expand_at(2, "x ~no y", 1000);
    EXPECT_EQ(pos, 5);
    EXPECT_EQ(messages(), "\n\nERROR: Line 4: There is no constant \"no\" in your input file!\n");
}

TEST_F(ConstantCall, ReferenceWithoutALetterReportsTheEmptyName) {
    for (const char* text : {"~ x", "~", "~1", "~~A", "~_a"}) {
        expand_at(0, text, 1000);
        EXPECT_EQ(pos, 1) << text;
        EXPECT_EQ(messages(), "\n\nERROR: Line 4: There is no constant \"\" in your input file!\n");
    }
}

TEST_F(ConstantCall, EquationGivesWayToItsValue) {
    EXPECT_EQ(expand_at(0, "~[1 + 2]]"), "3.000]");
    EXPECT_EQ(pos, 0);
    EXPECT_EQ(messages(), "\n\tExpanding const \"equation\" (   3.00) into line 4...");
}

TEST_F(ConstantCall, DigitOfATimeVariableStaysBehindTheValue) {
    vorn::LAST_IB_DUR = 10;
    vorn::CUM_TIME = 25.5;
    vorn::TEMPO = 120;
    EXPECT_EQ(expand_at(0, "~@1"), "10.0001");
    EXPECT_EQ(expand_at(1, " ~@2x"), " 25.5002x");
    EXPECT_EQ(expand_at(0, "~@3"), "20.0003");
    EXPECT_EQ(expand_at(0, "~@4 "), "51.0004 ");
    EXPECT_EQ(messages(),
              "\n\tExpanding const \"@1 (Last IB Time)\" (  10.00) into line 4..."
              "\n\tExpanding const \"@2 (Cumulative Time)\" (  25.50) into line 4..."
              "\n\tExpanding const \"@3 (Last IB Time [BEATS])\" (  20.00) into line 4..."
              "\n\tExpanding const \"@4 (Cumulative Time [BEATS])\" (  51.00) into line 4...");
}

TEST_F(ConstantCall, OtherTimeVariablesAreRefused) {
    for (const char* text : {"~@0", "~@5", "~@", "~@ 1", "~@x"}) {
        expand_at(0, text, 106);
        EXPECT_EQ(pos, 2) << text;
    }
}

TEST_F(ConstantCall, NothingIsPrintedWhenMessagesAreSuppressed) {
    run("#const A 1\n");
    vorn::SUPRESS = 1;
    EXPECT_EQ(expand_at(0, "~A"), "1.000");
    EXPECT_EQ(expand_at(0, "~[?]").substr(0, 2), "0.");
    EXPECT_EQ(messages(), "");
}

TEST_F(ConstantCall, ExpansionMayFillTheLineToItsLastByte) {
    run("#const A 1\n");
    const std::string rest(4090, '.');
    EXPECT_EQ(expand_at(0, "~A" + rest), "1.000" + rest);
    EXPECT_EQ(expand_at(0, "~A." + rest, 89), "~A." + rest);
    EXPECT_EQ(pos, 2) << "behind the reference";
}

TEST_F(ConstantCall, SkipMovesOverNameEquationOrAt) {
    struct Row {
        const char* text;
        std::int32_t pos;
    };
    for (const Row& row : {Row{"~ab_1 c", 5}, Row{"~[1+2]3", 6}, Row{"~[1", 3}, Row{"~@1", 2}, Row{"~", 1}}) {
        std::int32_t at = 0;
        vorn::skip_vname_or_eq(row.text, at);
        EXPECT_EQ(at, row.pos) << row.text;
    }
}

}  // namespace
