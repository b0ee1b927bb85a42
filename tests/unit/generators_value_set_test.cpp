#include "generators/value_set.h"

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;

class GetValueSet : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        const int result = get_value_set(values, size, score.reader);
        rest = score.rest();
        return result;
    }

    test::Values all() const { return {values.data(), values.data() + values.size()}; }

    GrowingArray<float> values;
    std::uint32_t size = 99;
};

TEST_F(GetValueSet, PlainValueIsASetOfOne) {
    EXPECT_EQ(read("60 62"), 0);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(all(), test::Values({60}));
    EXPECT_EQ(rest, " 62");
}

TEST_F(GetValueSet, BracketsHoldAnyNumberOfValues) {
    EXPECT_EQ(read("[ 60, 62 / 64 /* three */ 65 ; four\n 67]x"), 0);
    EXPECT_EQ(size, 5U);
    EXPECT_EQ(all(), test::Values({60, 62, 64, 65, 67}));
    EXPECT_EQ(rest, "x");
}

TEST_F(GetValueSet, SetsStandOneBehindTheOther) {
    EXPECT_EQ(read("[1 2]"), 0);
    EXPECT_EQ(read("3"), 0);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(all(), test::Values({1, 2, 3}));
}

TEST_F(GetValueSet, ValuesAreReadInTheInputType) {
    EXPECT_EQ(read("[bf3 c4 r]", CODE_NO), 0);
    EXPECT_EQ(all(), test::Values({46, 48, -1}));
}

TEST_F(GetValueSet, LargeSetsAreWhole) {
    std::string text = "[";
    for (int i = 0; i < 5000; ++i) text += std::to_string(i) + "\n";
    EXPECT_EQ(read(text + "]"), 0);
    EXPECT_EQ(size, 5000U);
    for (std::size_t i = 0; i < 5000; ++i) ASSERT_EQ(values[i], static_cast<float>(i));
}

TEST_F(GetValueSet, UnreadableAndMissingValues) {
    EXPECT_EQ(read("foo"), error::MISSING_VALUE);
    EXPECT_EQ(read(""), error::MISSING_VALUE);
    for (const char* text : {"[]", "[ ]", "[", "[60", "[60 foo]", "[60)", "[60,,62]"}) {
        EXPECT_EQ(read(text), error::BAD_BRACKET_VALUE) << text;
    }
}

}  // namespace
}  // namespace vorn
