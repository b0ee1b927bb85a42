#include "preproc/names.h"

#include "unit/preproc_fixture.h"

namespace {

class Names : public vorn::test::PreprocessorTest {
protected:
    static std::string name_at(const std::string& text, std::int32_t& pos) {
        const vorn::Name name = vorn::read_name(text.c_str(), pos);
        return {name.start, name.length};
    }
};

constexpr vorn::NameErrors ERRORS = {"constant name", 109, 102};

TEST_F(Names, ALetterThenLettersDigitsAndUnderscores) {
    std::int32_t pos = 1;
    EXPECT_EQ(name_at("$aB_9z(", pos), "aB_9z");
    EXPECT_EQ(pos, 6);
}

TEST_F(Names, EmptyWhereNoLetterStands) {
    for (const char* text : {"", "1a", "_a", " a", "\xe4"}) {
        std::int32_t pos = 0;
        EXPECT_EQ(name_at(text, pos), "");
        EXPECT_EQ(pos, 0);
    }
}

TEST_F(Names, SameNameComparesWholeNames) {
    EXPECT_TRUE(vorn::same_name(vorn::Name{"abc", 2}, "ab"));
    EXPECT_FALSE(vorn::same_name(vorn::Name{"abc", 2}, "abc"));
    EXPECT_FALSE(vorn::same_name(vorn::Name{"abc", 3}, "ab"));
    EXPECT_FALSE(vorn::same_name(vorn::Name{"a", 1}, "A"));
}

TEST_F(Names, DefinedNameIsCopied) {
    char* copy = nullptr;
    std::int32_t pos = 0;
    ASSERT_EQ(vorn::read_defined_name(copy, ERRORS, "ab 1", pos, 1), 0);
    EXPECT_STREQ(copy, "ab");
    EXPECT_EQ(pos, 2);
    delete[] copy;
}

TEST_F(Names, DefinedNameMustBeginWithALetter) {
    char* copy = nullptr;
    std::int32_t pos = 0;
    EXPECT_EQ(vorn::read_defined_name(copy, ERRORS, "1b", pos, 1), 109);
    EXPECT_EQ(pos, 0);
}

TEST_F(Names, DefinedNameOf4095CharactersIsAccepted) {
    char* copy = nullptr;
    std::int32_t pos = 0;
    const std::string name(4095, 'n');
    ASSERT_EQ(vorn::read_defined_name(copy, ERRORS, name.c_str(), pos, 1), 0);
    EXPECT_EQ(name, copy);
    delete[] copy;
}

TEST_F(Names, DefinedNameOf4096CharactersIsRefused) {
    char* copy = nullptr;
    std::int32_t pos = 0;
    EXPECT_EQ(vorn::read_defined_name(copy, ERRORS, std::string(4096, 'n').c_str(), pos, 7), 1000);
    EXPECT_EQ(messages(),
              "\n\nERROR: Line 7: The constant name has exceeded the maximum number\n"
              "of characters allowed (4096).\n");
    EXPECT_EQ(copy, nullptr);
}

TEST_F(Names, UnknownNameIsReportedWithItsKind) {
    EXPECT_EQ(vorn::report_unknown("constant", vorn::Name{"abc", 2}, 3), 1000);
    EXPECT_EQ(messages(), "\n\nERROR: Line 3: There is no constant \"ab\" in your input file!\n");
}

}  // namespace
