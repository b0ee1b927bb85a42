#include "preproc/comment_state.h"
#include "unit/preproc_fixture.h"

namespace {

class ConstantScan : public vorn::test::PreprocessorTest {
protected:
    void SetUp() override {
        PreprocessorTest::SetUp();
        vorn::SUPRESS = 1;
        run("#const A 1\n#const BAR 2.5\n#define M #7#\n");
    }

    // A line after both of its scans.
    std::string scan(const std::string& text) {
        vorn::DefinitionMarks marks;
        std::memcpy(reader.text, text.c_str(), text.size() + 1);
        reader.pos = 0;
        result = vorn::parse_macros(reader, marks);
        if (result == 0) result = vorn::parse_variables(reader, marks);
        return reader.text;
    }

    vorn::Reader reader;
    int result = -1;
};

TEST_F(ConstantScan, ReferencesAreExpandedInPlace) {
    EXPECT_EQ(scan("p3 re ~A ~[A * 2]~BAR"), "p3 re 1.000 2.0002.500");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(reader.pos, 0);
}

TEST_F(ConstantScan, ReferenceInTheFirstColumn) { EXPECT_EQ(scan("~A~A"), "1.0001.000"); }

TEST_F(ConstantScan, MacrosComeFirst) { EXPECT_EQ(scan(" ~[$M + A]"), " 8.000"); }

TEST_F(ConstantScan, ReferencesInCommentsAreLeftAlone) {
    EXPECT_EQ(scan("~A ; ~A"), "1.000 ; ~A");
    EXPECT_EQ(scan("~A /* ~A */ ~A"), "1.000 /* ~A */ 1.000");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(ConstantScan, LineThatOpensACommentIsNotExpandedAtAll) {
    EXPECT_EQ(scan("~A /* ~A"), "~A /* ~A");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
    EXPECT_EQ(scan("~A"), "~A");
}

TEST_F(ConstantScan, ReferencesBeforeAClosingMarkAreExpanded) {
    scan("/*");
    EXPECT_EQ(scan("~A */ ~A"), "1.000 */ 1.000");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(ConstantScan, BlockCommentsDoNotNest) { EXPECT_EQ(scan("/* /* */ ~A */"), "/* /* */ 1.000 */"); }

TEST_F(ConstantScan, DefinitionTextIsLeftAlone) {
    EXPECT_EQ(scan("#define N #~A ~[2]# ~A"), "#define N #~A ~[2]# 1.000");
    EXPECT_EQ(run("#const A 1\n#define N #~A\n~A#\n $N\n").lines, "1.000 \n1.000");
}

TEST_F(ConstantScan, MarksStayWhereTheMacroScanHasSetThem) {
    // Positions 3 to 16 are marked. The first "~A" grows by three characters and moves
    // the body's "~A" from 15 to 18.
    EXPECT_EQ(scan("~A #define N # ~A# "), "1.000 #define N # 1.000# ");
}

TEST_F(ConstantScan, CommentBehindAHashThatEndsTheMacroScanIsSeen) {
    EXPECT_EQ(scan("#const B ~A /* open"), "#const B 1.000 /* open");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
}

TEST_F(ConstantScan, ErrorStopsWhereReadingStopped) {
    scan("x ~nothing y");
    EXPECT_EQ(result, 1000);
    EXPECT_EQ(reader.pos, 10);
}

}  // namespace
