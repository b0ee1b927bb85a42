#include "preproc/macro_scan.h"

#include "preproc/comment_state.h"
#include "unit/preproc_fixture.h"

namespace {

class MacroScan : public vorn::test::PreprocessorTest {
protected:
    // Scans one line, as it comes from the line buffer.
    std::string scan(const std::string& text) {
        marks = {};
        std::memcpy(reader.text, text.c_str(), text.size() + 1);
        reader.pos = 0;
        result = vorn::parse_macros(reader, marks);
        return reader.text;
    }

    // "^" under every marked position of the last line.
    std::string marked() const {
        std::string row;
        for (std::size_t at = 0; at < std::strlen(reader.text); ++at) row += marks.marked[at] ? '^' : ' ';
        return row;
    }

    // Whether a call behind the text is expanded.
    bool expands_behind(const std::string& text) { return scan(text + " $A") == text + " 1"; }

    void define(const std::string& score) { run(score); }

    vorn::Reader reader;
    vorn::DefinitionMarks marks;
    int result = -1;
};

TEST_F(MacroScan, LineWithoutSpecialCharactersIsLeftAtOnce) {
    EXPECT_EQ(scan("  p3 re 1, 2 / ; <3 4> (x) "), "  p3 re 1, 2 / ; <3 4> (x) ");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(reader.pos, 0);
    EXPECT_TRUE(marks.plain);
    for (const char* text : {"a $", "a #", "a ~", "a *"}) {
        scan(text);
        EXPECT_FALSE(marks.plain) << text;
        vorn::reset_macro_scan();
    }
}

TEST_F(MacroScan, LeavesThePositionAtTheStart) {
    define("#define A #1#\n");
    EXPECT_EQ(scan("x $A y"), "x 1 y");
    EXPECT_EQ(reader.pos, 0);
    EXPECT_EQ(result, 0);
}

TEST_F(MacroScan, InsertedTextIsScannedAgain) {
    define("#define B #2#\n#define A #$B$B#\n");
    EXPECT_EQ(scan(" $A$B"), " 222");
}

TEST_F(MacroScan, CallInTheFirstColumnIsRescannedOneCharacterLater) {
    define("#define B #2#\n#define A #$B#\n#define C # $B#\n#define E ##\n");
    EXPECT_EQ(scan("$A"), "$B");
    EXPECT_EQ(scan(" $A"), " 2");
    EXPECT_EQ(scan("$C"), " 2");
    EXPECT_EQ(scan("$E$B"), "$B") << "an empty body lets the next character slip";
    EXPECT_EQ(scan("$E"), "");
    EXPECT_EQ(result, 0);
}

TEST_F(MacroScan, CallsInCommentsAreLeftAlone) {
    define("#define A #1#\n");
    EXPECT_EQ(scan(" ; $A"), " ; $A");
    EXPECT_EQ(vorn::IN_COMMENT, 0) << "a line comment ends with its line";
    EXPECT_EQ(scan(" /* $A */ $A"), " /* $A */ 1");
    EXPECT_EQ(scan(" /* $A"), " /* $A");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
    EXPECT_EQ(scan(" $A ; "), " $A ; ");
    EXPECT_EQ(vorn::IN_COMMENT, 1) << "a line comment in a block comment ends nothing";
    EXPECT_EQ(scan(" $A */ $A"), " $A */ 1");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(MacroScan, BlockCommentsDoNotNest) {
    define("#define A #1#\n");
    EXPECT_TRUE(expands_behind("/* /* */"));
}

TEST_F(MacroScan, SlashStarSlashOpensAndCloses) {
    define("#define A #1#\n");
    EXPECT_TRUE(expands_behind("/*/"));
}

TEST_F(MacroScan, SlashStarInsideALineCommentOpens) {
    define("#define A #1#\n");
    scan("; /* x");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
    EXPECT_FALSE(expands_behind("x"));
}

TEST_F(MacroScan, StarSlashInsideALineCommentCloses) {
    define("#define A #1#\n");
    EXPECT_TRUE(expands_behind("; */"));
}

TEST_F(MacroScan, HashUndefConstEndifAndIfEndTheScanOfTheLine) {
    define("#define A #1#\n");
    for (const char* text : {"#u", "#c", "#e", "#i", " x #undef", "#const", "#if (1)", "x #endif"}) {
        EXPECT_FALSE(expands_behind(text)) << text;
        EXPECT_EQ(vorn::IN_MACRO_DEF, 0) << text;
        EXPECT_EQ(marked().find('^'), std::string::npos) << text;
    }
    EXPECT_EQ(scan(" $A #u $A"), " 1 #u $A");
}

TEST_F(MacroScan, CommentOpenedBehindSuchAHashIsNotSeen) {
    scan("#const A 1 /* open");
    EXPECT_EQ(vorn::IN_COMMENT, 0);
}

TEST_F(MacroScan, DefinitionTextIsMarkedUpToItsThirdHash) {
    scan(" #define A #x# y");
    EXPECT_EQ(marked(), " ^^^^^^^^^^^^   ");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
}

TEST_F(MacroScan, CallsBehindADefinitionAreExpanded) {
    define("#define A #1#\n");
    EXPECT_EQ(scan("#define B #$A# $A"), "#define B #$A# 1");
}

TEST_F(MacroScan, DefinitionGoesOnOverLines) {
    scan("#define A");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 1);
    EXPECT_EQ(marked(), "^^^^^^^^^");
    scan(" $x ~y # $x");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 2);
    EXPECT_EQ(marked(), "^^^^^^^^^^^");
    scan("$x # ~y");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
    EXPECT_EQ(marked(), "^^^    ");
}

TEST_F(MacroScan, HashInACommentOfADefinitionIsNotCounted) {
    scan("#define A #1 /* # */ ; #");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 2);
    EXPECT_EQ(vorn::IN_COMMENT, 0);
    scan("/* #");
    EXPECT_EQ(vorn::IN_COMMENT, 1);
    scan("# */ #");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
}

TEST_F(MacroScan, StrayHashOpensADefinitionOverFollowingLines) {
    define("#define A #1#\n");
    EXPECT_EQ(scan(" 5 # 6 $A"), " 5 # 6 $A");
    EXPECT_FALSE(expands_behind("next"));
    scan("# #");
    EXPECT_TRUE(expands_behind("after two more"));
}

TEST_F(MacroScan, HashInACommentIsNoDefinition) {
    scan("/* # */ ; #");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
}

TEST_F(MacroScan, HashAsFormalSeparatorMiscounts) {
    // The "#" of the list is the second, that of the body's start the third.
    define("#define a #7#\n");
    EXPECT_EQ(scan("#define M(x#b) #$a#"), "#define M(x#b) #7#");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 1);
    EXPECT_EQ(marked(), "^^^^^^^^^^^^^^^  ^");
    vorn::reset_macro_scan();
    EXPECT_EQ(scan("#define M(x'b) #$a#"), "#define M(x'b) #$a#");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
}

TEST_F(MacroScan, GreaterThanForbidsDefinitionsButNotCalls) {
    define("#define A #1#\n");
    EXPECT_EQ(scan("> f1 # $A"), "> f1 # 1");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
    EXPECT_EQ(scan("<1 2> #u $A"), "<1 2> #u 1") << "nor does such a hash end the scan";
}

TEST_F(MacroScan, GreaterThanAtColumn85DoesNotClearTheFlag) {
    for (const int column : {84, 85, 86}) {
        scan(std::string(static_cast<std::size_t>(column), ' ') + "> #d");
        EXPECT_EQ(vorn::IN_MACRO_DEF, column == 85 ? 1 : 0) << column;
        vorn::reset_macro_scan();
    }
}

TEST_F(MacroScan, GreaterThanInACommentForbidsDefinitionsToo) {
    scan("/* > */ #d");
    EXPECT_EQ(vorn::IN_MACRO_DEF, 0);
}

TEST_F(MacroScan, ErrorStopsWhereReadingStopped) {
    scan("x $nothing y");
    EXPECT_EQ(result, 1000);
    EXPECT_EQ(reader.pos, 10);
}

}  // namespace
