#include "generators/ex.h"

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::DRAW_ONE;
using test::DRAW_ZERO;
using test::draws_left;
using test::ScoreText;
using test::set_next_draws;
using test::Values;

// P6 of a block of eight p-fields in which P2 to P5 have been read.
class Equations : public test::DdfBlock {
protected:
    Equations() { begin(); }

    void begin() {
        begin_values(3, 0, 8);
        DID_P[4] = DID_P[5] = 1;
        const ListNode* node = note_list;
        for (int i = 1; i <= 3; ++i) {
            node = node->next;
            node->pf[0] = static_cast<float>(10 * i);  // P4 10 20 30
            node->pf[1] = static_cast<float>(i - 2);   // P5 -1 0 1
        }
        begin_statement(6);
    }

    int read(const std::string& text) {
        ScoreText score(text);
        ExData data;
        const int result = get_EX_data(data, score.reader);
        rest = score.rest();
        return result;
    }

    // P6 of all three events under one equation.
    Values results_of(const std::string& equation) {
        reset_program();
        SUPRESS = 1;
        begin();
        EXPECT_EQ(run(DdfKind::EX, "(-3 1 " + equation + ")"), 0) << equation;
        return column(6);
    }
};

using GetExData = Equations;
using MakeEx = Equations;

TEST_F(GetExData, ReadsEquationsAndReferences) {
    EXPECT_EQ(read("(-3 .25 [p4 + 2 * 3] , .25 P4 .25 i[2/3 - p2] .25 F [ 5 ] ) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(messages(), "");
}

TEST_F(GetExData, TermsOfAnEquation) {
    ScoreText score("(-3 .5 i [ -1.5+p4 % 3 ] .5 p5)");
    ExData data;
    EXPECT_EQ(get_EX_data(data, score.reader), 0);
    ASSERT_EQ(data.equation.size(), 2U);
    EXPECT_TRUE(data.equation[0].rounded);
    EXPECT_EQ(data.equation[0].first_term, 0U);
    EXPECT_EQ(data.equation[0].term_count, 3U);
    EXPECT_FALSE(data.equation[1].rounded);
    EXPECT_EQ(data.equation[1].first_term, 3U);
    EXPECT_EQ(data.equation[1].term_count, 1U);
    EXPECT_FALSE(data.terms[0].is_pfield);
    EXPECT_EQ(data.terms[0].constant, -1.5F);
    EXPECT_TRUE(data.terms[1].is_pfield);
    EXPECT_EQ(data.terms[1].operation, Operation::ADD);
    EXPECT_EQ(data.terms[1].pfield, 4);
    EXPECT_EQ(data.terms[2].operation, Operation::REMAINDER);
    EXPECT_EQ(data.terms[2].constant, 3.0F);
    EXPECT_EQ(data.terms[3].pfield, 5);
}

TEST_F(GetExData, P2IsError57BeforeTheParenthesisIsRead) {
    begin_statement(2);
    EXPECT_EQ(read("foo"), error::BAD_PFIELD_REFERENCE);
    EXPECT_EQ(rest, "foo");
}

TEST_F(GetExData, P3IsWarning24) {
    begin_statement(3);
    EXPECT_EQ(read("(-3 1 p2)"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Be aware of p3 codes when using the EX command!\n(-3 1 p2)\n^\n");
}

TEST_F(GetExData, ReferencesAreToOtherPFieldsReadBefore) {
    for (const char* reference : {"p0", "p1", "p6", "p7", "p9", "p128", "p-4"}) {
        EXPECT_EQ(read(std::string("(-3 1 ") + reference + ")"), error::BAD_PFIELD_REFERENCE) << reference;
        EXPECT_EQ(rest, ")");
        EXPECT_EQ(read(std::string("(-3 1 [1 + ") + reference + "])"), error::BAD_PFIELD_REFERENCE)
            << reference;
    }
    DID_P[7] = 1;
    EXPECT_EQ(read("(-3 1 p7)"), 0);
    DID_P[6] = 1;
    EXPECT_EQ(read("(-3 1 p6)"), error::BAD_PFIELD_REFERENCE);
}

TEST_F(GetExData, ReferenceWithoutNumber) {
    EXPECT_EQ(read("(-3 1 p)"), error::BAD_PFIELD_NUMBER);
    EXPECT_EQ(read("(-3 1 [2 * px])"), error::BAD_PFIELD_NUMBER);
    EXPECT_EQ(rest, "x])");
}

TEST_F(GetExData, AReferenceMustOccurByTheEndOfTheFirstSubRange) {
    EXPECT_EQ(read("(-3 1 [5] )"), error::EQUATION_WITHOUT_PFIELD);
    EXPECT_EQ(rest, ")");
    EXPECT_EQ(read("(-3 .5 [5] .5 p4)"), error::EQUATION_WITHOUT_PFIELD);
    EXPECT_EQ(rest, ".5 p4)");
    EXPECT_EQ(read("(-3 .5 p4 .5 [5])"), 0);
    EXPECT_EQ(read("(-3 .5 [5 + p4] .25 [5 * 3] .25 [1])"), 0);
}

TEST_F(GetExData, EquationsNeedBracketsUnlessTheyAreAReference) {
    for (const char* text : {"(-3 1 5)", "(-3 1 foo)", "(-3 1 i 5)", "(-3 1)", "(-3)", "(-3 foo)"}) {
        EXPECT_EQ(read(text), error::BAD_EQUATION_DATA) << text;
    }
}

TEST_F(GetExData, OperandsAreNumbersOrReferences) {
    for (const char* text : {"(-3 1 [])", "(-3 1 [p4 + ])", "(-3 1 [p4 + * 2])", "(-3 1 [x])", "(-3 1 [p4 +",
                             "(-3 1 [p4 + ; sum\n 2])", "(-3 1 [/* c */ p4])", "(-3 1 [p4 /* c */ + 2])"}) {
        EXPECT_EQ(read(text), error::BAD_VALUE) << text;
    }
}

TEST_F(GetExData, OperationsAreFiveMarks) {
    for (const char* text :
         {"(-3 1 [p4 p5])", "(-3 1 [p4 ^ 2])", "(-3 1 [p4 & 2])", "(-3 1 [p4 ; c\n + 2])"}) {
        EXPECT_EQ(read(text), error::BAD_OPERATION) << text;
    }
    EXPECT_EQ(read("(-3 1 [p4 + 2 - 3 * 4 / 5 % 6])"), 0);
}

TEST_F(GetExData, AnEquationStandsOnOneLine) {
    EXPECT_EQ(read("(-3 1 [p4\n + 2])"), error::BAD_OPERATION);
    EXPECT_EQ(rest, "");
    EXPECT_EQ(read("(-3 1 [p4 + 2"), error::BAD_OPERATION);
    EXPECT_EQ(read("(-3 1 [p4 +\n 2])"), error::BAD_VALUE);
    EXPECT_EQ(read("(-3\n1\ni\n[p4 + 2]\n)"), 0);
}

TEST_F(GetExData, DivisionByAConstantZeroIsSeenAtOnce) {
    EXPECT_EQ(read("(-3 1 [p4 / 0])"), error::DIVISION_BY_ZERO);
    EXPECT_EQ(rest, "])");
    EXPECT_EQ(read("(-3 1 [p4 / 0.0])"), error::DIVISION_BY_ZERO);
    EXPECT_EQ(read("(-3 1 [p4 / .1])"), 0);
    EXPECT_EQ(read("(-3 1 [0 / p4])"), 0);
    EXPECT_EQ(read("(-3 1 [p4 * 0])"), 0);
}

TEST_F(GetExData, DivisionByAPFieldIsWarning22) {
    EXPECT_EQ(read("(-3 1 [1 / p4 / p5])"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:EX Command: Division by a pfield may / by 0!\n"
              "(-3 1 [1 / p4 / p5])\n             ^\n"
              "\n\nWARNING: Line 1:EX Command: Division by a pfield may / by 0!\n"
              "(-3 1 [1 / p4 / p5])\n                  ^\n");
    EXPECT_EQ(read("(-3 1 [p4 / 2 * p5 % p4])"), 0);
    EXPECT_EQ(messages(), "");
}

TEST_F(GetExData, EquationsMayBeLongerThanALineOfOperations) {
    std::string text = "(-3 1 [p4";
    for (int i = 0; i < 500; ++i) text += "+1";
    EXPECT_EQ(run(DdfKind::EX, text + "])"), 0);
    EXPECT_EQ(column(6), Values({510, 520, 530}));
}

TEST_F(GetExData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "i", "[", "p4", "+", "2", "]", ".5", "p", "4"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,      error::BAD_EQUATION_DATA,
                          error::BAD_EQUATION_DATA,       error::BAD_EQUATION_DATA, error::BAD_VALUE,
                          error::BAD_OPERATION,           error::BAD_VALUE,         error::BAD_OPERATION,
                          error::BAD_EQUATION_DATA,       error::BAD_EQUATION_DATA, error::BAD_PFIELD_NUMBER,
                          error::BAD_EQUATION_DATA};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

TEST_F(MakeEx, CopiesAndDoubles) {
    EXPECT_EQ(results_of("p4"), Values({10, 20, 30}));
    EXPECT_EQ(results_of("[p4]"), Values({10, 20, 30}));
    EXPECT_EQ(results_of("[p4 * 2]"), Values({20, 40, 60}));
}

TEST_F(MakeEx, EveryOperation) {
    EXPECT_EQ(results_of("[p4 + 2]"), Values({12, 22, 32}));
    EXPECT_EQ(results_of("[p4 - p5]"), Values({11, 20, 29}));
    EXPECT_EQ(results_of("[p4 * p5]"), Values({-10, 0, 30}));
    EXPECT_EQ(results_of("[3 / p4]"), Values({3.0F / 10, 3.0F / 20, 3.0F / 30}));
    EXPECT_EQ(results_of("[p4 % 7]"), Values({3, 6, 2}));
    EXPECT_EQ(results_of("[0 - p4 % 7]"), Values({-3, -6, -2}));
}

TEST_F(MakeEx, NoPrecedence) {
    EXPECT_EQ(results_of("[p4 + 2 * 3]"), Values({36, 66, 96}));
    EXPECT_EQ(results_of("[2 - p5 * p4 / 5]"), Values({6, 8, 6}));
}

TEST_F(MakeEx, RemainderByZeroIsZero) {
    EXPECT_EQ(results_of("[p4 % 0]"), Values({0, 0, 0}));
    EXPECT_EQ(results_of("[p4 % p5]"), Values({0, 0, 0}));
}

TEST_F(MakeEx, IntegerFlagRoundsHalvesUp) {
    EXPECT_EQ(results_of("I[p4 / 3]"), Values({3, 7, 10}));
    EXPECT_EQ(results_of("i[p4 / 20]"), Values({1, 1, 2}));
    EXPECT_EQ(results_of("i[0 - p4 / 4]"), Values({-2, -5, -7}));  // -2.5, -5, -7.5
    EXPECT_EQ(results_of("f[p4 / 4]"), Values({2.5F, 5, 7.5F}));
}

TEST_F(MakeEx, P2IsSecondsAndP3TheDuration) {
    const ListNode* node = note_list->next;
    const_cast<ListNode*>(node)->dur = 0.75F;
    EXPECT_EQ(run(DdfKind::EX, "(-3 1 [p2 * 100 + p3])"), 0);
    EXPECT_EQ(column(6), Values({0.75F, 101, 201}));
}

TEST_F(MakeEx, OperandsAreOfTheEventAboutToBeFilled) {
    statement.cursor = note_list->next;  // P6 of the first event is done
    EVENT_NO = 1;
    EXPECT_EQ(run(DdfKind::EX, "(-2 1 p4)"), 0);
    EXPECT_EQ(column(6), Values({0, 20, 30}));
}

// Under a pending mark the event that will be copied is the one just filled.
TEST_F(MakeEx, UnderAPendingMarkOperandsAreOfTheEventThatIsCopied) {
    statement.cursor = note_list->next;
    EVENT_NO = 1;
    EVENTS = 4;
    IS_FUSED = 1;
    EXPECT_EQ(run(DdfKind::EX, "(-3 1 [p4 + 1])"), 0);
    EXPECT_EQ(column(6), Values({0, 11, 21, 31}));
    EXPECT_EQ(column(4), Values({10, 10, 20, 30}));
    EXPECT_EQ(codes(), Values({0, 1, 0, 0}));
}

TEST_F(MakeEx, DivisionByAPFieldOfZeroEndsTheFunction) {
    SUPRESS = 1;
    EXPECT_EQ(run(DdfKind::EX, "(-3 1 [10 / p5])"), error::DIVISION_BY_ZERO_PFIELD);
    EXPECT_EQ(column(6), Values({-10, 0, 0}));  // the first event keeps its value
    EXPECT_EQ(EVENT_NO, 1);
}

TEST_F(MakeEx, ChoosesAmongEquations) {
    set_next_draws({DRAW_ZERO, 0, DRAW_ONE, 0, DRAW_ZERO, 0});
    EXPECT_EQ(run(DdfKind::EX, "(-3 .5 p4 .5 [7])"), 0);
    EXPECT_EQ(column(6), Values({10, 7, 30}));
    EXPECT_EQ(draws_left(), 0);
}

// The common path rounds for integer input and deviates; LAST_VAL is undeviated.
TEST_F(MakeEx, ResultTakesTheCommonPath) {
    IN_TYPE = CODE_IN;
    MAX_DEV = 0.5F;
    set_next_draws({0, DRAW_ZERO, 0, DRAW_ONE, 0, DRAW_ZERO});
    EXPECT_EQ(run(DdfKind::EX, "(-3 1 [p4 / 4])"), 0);
    EXPECT_EQ(column(6), Values({2.25F, 6.25F, 6}));  // 3, 5, 8, less or more a quarter
    EXPECT_EQ(LAST_VAL, 8.0F);
}

}  // namespace
}  // namespace vorn
