#include "generators/ho.h"

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;
using test::Values;

class GetHoData : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        HoData data;
        const int result = get_HO_data(data, score.reader);
        rest = score.rest();
        value = data.value;
        return result;
    }

    float value = 0;
};

using MakeHo = test::DdfBlock;

TEST_F(GetHoData, ReadsOneValueInTheInputType) {
    EXPECT_EQ(read("(4 60) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(value, 60.0F);
    EXPECT_EQ(read("(-8, c4 ; middle\n)", CODE_NO), 0);
    EXPECT_EQ(value, 48.0F);
    LAST_VAL = 7;
    EXPECT_EQ(read("(4 z)"), 0);
    EXPECT_EQ(value, 7.0F);
}

TEST_F(GetHoData, BadValueHasTheMessageOfRw) {
    EXPECT_EQ(read("(4 foo)"), 52);
    EXPECT_EQ(rest, "foo)");
    EXPECT_EQ(read("(4)"), 52);
    EXPECT_EQ(read("(4 [60])"), 52);
}

TEST_F(GetHoData, NothingMayFollowTheValue) {
    EXPECT_EQ(read("(4 60 61)"), error::HOLD_WITHOUT_PARENTHESIS);
    EXPECT_EQ(rest, "61)");
}

TEST_F(GetHoData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "60"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME, error::BAD_WALK_RANGE,
                          error::HOLD_WITHOUT_PARENTHESIS};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

TEST_F(MakeHo, FillsEveryEvent) {
    begin_values(5);
    EXPECT_EQ(run(DdfKind::HO, "(T 60)"), 0);
    EXPECT_EQ(column(4), Values({60, 60, 60, 60, 60}));
}

// There is nothing to choose, but the sequence moves on as for all functions.
TEST_F(MakeHo, OneDrawPerEventForTheWeightEvenHere) {
    begin_values(5);
    EXPECT_EQ(run(DdfKind::HO, "(-5 60)"), 0);
    EXPECT_EQ(draws(), 10);  // with one for the deviation
}

}  // namespace
}  // namespace vorn
