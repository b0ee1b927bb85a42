#include "preproc/includes.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "support/failing_reads.h"
#include "support/run_case.h"
#include "unit/preproc_fixture.h"

namespace {

class Includes : public vorn::test::PreprocessorTest {
protected:
    void SetUp() override {
        PreprocessorTest::SetUp();
        before_ = std::filesystem::current_path();
        std::filesystem::current_path(folder.path());
    }

    void TearDown() override {
        vorn::test::failing_file.clear();
        std::filesystem::current_path(before_);
        PreprocessorTest::TearDown();
    }

    // What a main file becomes; the result is in `result`.
    std::string copy(const std::string& main) {
        folder.write("main", main);
        std::FILE* in = std::fopen("main", "r");
        std::FILE* out = std::fopen("copy", "w");
        count = 0;
        result = vorn::parse_includes(in, out, count);
        std::fclose(in);
        std::fclose(out);
        return folder.read("copy");
    }

    vorn::test::WorkFolder folder;
    int result = -1;
    int count = 0;

private:
    std::filesystem::path before_;
};

TEST_F(Includes, InputWithoutHashIsCopiedByteForByte) {
    std::string bytes;
    for (int round = 0; round < 20; ++round) {
        for (int byte = 0; byte < 256; ++byte) {
            if (byte != '#') bytes += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(copy(bytes), bytes);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(copy(""), "");
    EXPECT_EQ(result, 0);
}

TEST_F(Includes, DirectiveIsReplacedByTheFilesText) {
    folder.write("strings.def", "#define A #1#\n");
    EXPECT_EQ(copy("x\n#include |strings.def| ; shared strings\ny\n"),
              "x\n#define A #1#\n ; shared strings\ny\n");
    EXPECT_EQ(messages(), "\n\tOpening include file \"strings.def\"...");
    EXPECT_EQ(count, 2);
}

TEST_F(Includes, OpeningIsAnnouncedAlsoWhenMessagesAreSuppressed) {
    folder.write("a", "");
    vorn::SUPRESS = 1;
    copy("#include |a|");
    EXPECT_EQ(messages(), "\n\tOpening include file \"a\"...");
}

TEST_F(Includes, IncludedFilesIncludeFurtherFiles) {
    folder.write("a", "a1 #include|b| a2");
    folder.write("b", "b");
    EXPECT_EQ(copy("[#include |a|]"), "[a1 b a2]");
}

TEST_F(Includes, WhiteSpaceBeforeTheBarMayHoldLineEnds) {
    folder.write("a", "A");
    EXPECT_EQ(copy("#include\n\n \t|a|!"), "A!");
}

TEST_F(Includes, DirectivesInCommentsAreText) {
    folder.write("a", "A");
    EXPECT_EQ(copy("/* #include |a| */ #include |a|"), "/* #include |a| */ A");
    EXPECT_EQ(copy("; #include |a|\n#include |a|"), "; #include |a|\nA");
}

TEST_F(Includes, GreaterThanAnywhereCountsAsACommentStart) {
    folder.write("a", "A");
    EXPECT_EQ(copy("> f1 #include |a|\n"), "> f1 #include |a|\n");
    EXPECT_EQ(copy("<1 2> #include |a|\n#include |a|"), "<1 2> #include |a|\nA");
}

TEST_F(Includes, BlockCommentsNest) {
    folder.write("a", "A");
    EXPECT_EQ(copy("/* /* */ #include |a| */ #include |a|"), "/* /* */ #include |a| */ A");
}

TEST_F(Includes, SemicolonRightBehindASlashClearsTheLineFlag) {
    folder.write("a", "A");
    EXPECT_EQ(copy("; x /; #include |a|"), "; x /; A");
    EXPECT_EQ(copy("; x /> #include |a|"), "; x /> A");
    EXPECT_EQ(copy("/; #include |a|"), "/; A");
}

TEST_F(Includes, BlockCommentIsCountedInsideALineComment) {
    folder.write("a", "A");
    EXPECT_EQ(copy("; /* \n#include |a| */ #include |a|"), "; /* \n#include |a| */ A");
}

TEST_F(Includes, SlashStarSlashOpensAndCloses) {
    folder.write("a", "A");
    EXPECT_EQ(copy("/*/ #include |a|"), "/*/ A");
}

TEST_F(Includes, HashHidesACommentStart) {
    folder.write("a", "A");
    EXPECT_EQ(copy("#; #include |a|"), "#; A");
    EXPECT_EQ(copy("#> #include |a|"), "#> A");
}

TEST_F(Includes, CharacterBehindHashIBypassesCommentTracking) {
    folder.write("a", "A");
    EXPECT_EQ(copy("#i; #include |a|"), "#i; A");
    EXPECT_EQ(copy("#i/* #include |a|"), "#i/* A") << "the \"i\" is the previous character";
}

TEST_F(Includes, CharacterBehindAHashIsRememberedAsThePreviousOne) {
    folder.write("a", "A");
    EXPECT_EQ(copy("#/* #include |a|"), "#/* #include |a|");
}

TEST_F(Includes, DoubleHashIncludeIsText) {
    folder.write("a", "A");
    EXPECT_EQ(copy("##include |a|"), "##include |a|");
    EXPECT_EQ(copy("###include |a|"), "##A");
}

TEST_F(Includes, OtherWordsWithHashIPassThrough) {
    EXPECT_EQ(copy("#if(1)\n#i;x\n#endif\n"), "#if(1)\n#i;x\n#endif\n");
}

TEST_F(Includes, HashInxVanishes) {
    EXPECT_EQ(copy("a#inxb"), "ab");
    EXPECT_EQ(copy("a#inc\nb"), "ab");
    EXPECT_EQ(copy("a#inclb"), "a");
    EXPECT_EQ(copy("a#includxb"), "ab");
    EXPECT_EQ(copy("a#incl"), "a");
    EXPECT_EQ(result, 0);
}

TEST_F(Includes, HashAtTheEndIsFollowedByTheByte255) {
    EXPECT_EQ(copy("x#"), "x#\xff");
    EXPECT_EQ(copy("x#i"), "x#i\xff");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(copy("x#in"), "x");
}

TEST_F(Includes, DepthAndFlagAreClearedBehindAnInclude) {
    // The included file's own comment state does not reach back either.
    folder.write("a", "/* open ; ");
    folder.write("b", "B");
    EXPECT_EQ(copy("#include |a| #include |b|"), "/* open ;  B");
}

TEST_F(Includes, MissingBarStopsTheRun) {
    EXPECT_EQ(copy("x#include a.sco"), "x");
    EXPECT_EQ(result, 1);
    EXPECT_EQ(messages(), "\n\nInclude filename must be preceeded by a |.\n");
    copy("#include");
    EXPECT_EQ(result, 1);
    copy("#include \n");
    EXPECT_EQ(result, 1);
}

TEST_F(Includes, NameOf255CharactersIsAccepted) {
    const std::string directory(200, 'd');
    const std::string name = directory + "/" + std::string(54, 'f');
    std::filesystem::create_directory(directory);
    folder.write(name, "A");
    EXPECT_EQ(copy("#include |" + name + "|"), "A");
    EXPECT_EQ(result, 0);
}

TEST_F(Includes, NameOf256CharactersIsRefused) {
    copy("#include |" + std::string(256, 'f') + "|");
    EXPECT_EQ(result, 999);
    EXPECT_EQ(messages(), "\nERROR: Include filename has exceeded maximum\nlength of 255 characters.\n\n");
}

TEST_F(Includes, LineFeedInANameIsCountedButNotStored) {
    folder.write("abc", "A");
    EXPECT_EQ(copy("#include |ab\nc|"), "A");
    const std::string name(255, 'f');
    copy("#include |" + name.substr(0, 9) + "\n" + name.substr(9) + "|");
    EXPECT_EQ(result, 999);
}

TEST_F(Includes, UnterminatedNameEndsWithTheInput) {
    folder.write("abc", "A");
    EXPECT_EQ(copy("x#include |abc"), "xA");
    EXPECT_EQ(result, 0);
}

TEST_F(Includes, FileThatCannotBeOpenedStopsTheRun) {
    EXPECT_EQ(copy("x#include |no.such|y"), "x");
    EXPECT_EQ(result, 999);
    EXPECT_EQ(messages(), "\nBad include file name: \"no.such\"\n\n");
    copy("#include ||");
    EXPECT_EQ(result, 999);
    EXPECT_EQ(messages(), "\nBad include file name: \"\"\n\n");
}

TEST_F(Includes, DirectoryIsABadFileName) {
    std::filesystem::create_directory("folder");
    copy("#include |folder|");
    EXPECT_EQ(result, 999);
    EXPECT_EQ(messages(), "\nBad include file name: \"folder\"\n\n");
}

TEST_F(Includes, FileThatTheCheckRefusesIsNotCopied) {
    folder.write("a", "A");
    folder.write("main", "x#include |a|y");
    std::FILE* const in = std::fopen("main", "r");
    std::FILE* const out = std::fopen("copy", "w");
    EXPECT_EQ(
        vorn::parse_includes(in, out, count,
                             [](const vorn::WatchedSource&, const vorn::MessagePlace&) { return false; }),
        999);
    std::fclose(in);
    std::fclose(out);
    EXPECT_EQ(folder.read("copy"), "x");
    EXPECT_EQ(messages(), "") << "the check has told why";
}

TEST_F(Includes, AReadErrorIsNoEndOfAFile) {
    folder.write("a", "A");
    folder.write("b", "[#include |a|]");
    vorn::test::failing_file = "a";
    EXPECT_EQ(copy("x#include |b|y"), "x[A");
    EXPECT_EQ(result, 999);
    EXPECT_EQ(messages(),
              "\n\tOpening include file \"b\"..."
              "\n\tOpening include file \"a\"..."
              "\nERROR: Can't open \"a\".\n\n");
}

TEST_F(Includes, AReadErrorInADirectiveIsToldOfItsOwnFile) {
    for (const char* text : {"A#include |no.su", "A#include ", "A#incl", "A#i", "A#"}) {
        SCOPED_TRACE(text);
        folder.write("a", text);
        vorn::test::failing_file = "a";
        copy("x#include |a|y");
        EXPECT_EQ(result, 999);
        EXPECT_EQ(messages(), "\n\tOpening include file \"a\"...\nERROR: Can't open \"a\".\n\n");
    }
}

// Its message is the caller's: only that knows the name.
TEST_F(Includes, AReadErrorOfTheMainFileIsLeftInItsStream) {
    folder.write("main", "x#include |no.su");
    vorn::test::failing_file = "main";
    std::FILE* const in = std::fopen("main", "r");
    std::FILE* const out = std::fopen("copy", "w");
    EXPECT_EQ(vorn::parse_includes(in, out, count), 0);
    EXPECT_NE(std::ferror(in), 0);
    EXPECT_EQ(messages(), "");
    std::fclose(in);
    std::fclose(out);
}

TEST_F(Includes, AWriteErrorEndsTheCopyingAndIsLeftInItsStream) {
    folder.write("main", "x#include |/dev/zero|#include |/dev/zero|");
    std::FILE* const in = std::fopen("main", "r");
    std::FILE* const full = std::fopen("/dev/full", "w");
    EXPECT_EQ(vorn::parse_includes(in, full, count), 0);
    EXPECT_NE(std::ferror(full), 0);
    EXPECT_EQ(count, 2) << "nothing is opened that cannot be copied";
    EXPECT_EQ(messages(), "\n\tOpening include file \"/dev/zero\"...");
    std::fclose(in);
    std::fclose(full);
}

// What a stream without a file gives: a directive, whose bar never comes.
struct Blanks {
    std::string begin;
    std::int64_t left;  // characters, `begin` included

    static ssize_t read(void* cookie, char* bytes, std::size_t size) {
        auto* blanks = static_cast<Blanks*>(cookie);
        const auto got = std::min(static_cast<std::int64_t>(size), blanks->left);
        std::memset(bytes, ' ', static_cast<std::size_t>(got));
        blanks->begin.copy(bytes, size);
        blanks->begin.clear();
        blanks->left -= got;
        return got;
    }
};

int copy_blanks(std::int64_t length) {
    Blanks blanks{"#include", length};
    std::FILE* const in = fopencookie(&blanks, "r", {Blanks::read, nullptr, nullptr, nullptr});
    std::FILE* const out = std::fopen("/dev/null", "w");
    int count = 0;
    const int result = vorn::parse_includes(in, out, count);
    std::fclose(in);
    std::fclose(out);
    return result;
}

TEST_F(Includes, WhatIsNoRegularFileHasALimitedLength) {
    EXPECT_EQ(copy_blanks(vorn::MAX_ENDLESS_LENGTH), 1);
    EXPECT_EQ(messages(), "\n\nInclude filename must be preceeded by a |.\n");
    EXPECT_EQ(copy_blanks(vorn::MAX_ENDLESS_LENGTH + 1), 999);
    EXPECT_EQ(messages(), "\nERROR: A device or pipe has more than 100000000 characters.\n\n");
}

TEST_F(Includes, ADeviceWithoutAnEndHasALimitedLength) {
    std::FILE* const in = std::fopen("/dev/zero", "r");
    std::FILE* const out = std::fopen("/dev/null", "w");
    EXPECT_EQ(vorn::parse_includes(in, out, count), 999);
    EXPECT_EQ(messages(), "\nERROR: A device or pipe has more than 100000000 characters.\n\n");
    std::fclose(in);
    std::fclose(out);
}

TEST_F(Includes, ARegularFileMayHaveAnyLength) {
    folder.write("main", "");
    std::filesystem::resize_file("main", vorn::MAX_ENDLESS_LENGTH + 2);
    std::FILE* const in = std::fopen("main", "r");
    std::FILE* const out = std::fopen("/dev/null", "w");
    EXPECT_EQ(vorn::parse_includes(in, out, count), 0);
    EXPECT_EQ(messages(), "");
    std::fclose(in);
    std::fclose(out);
}

TEST_F(Includes, CounterIsABudgetOfTwelveNeverLowered) {
    folder.write("a", "A");
    std::string main;
    for (int at = 0; at < 11; ++at) main += "#include |a|";
    EXPECT_EQ(copy(main), "AAAAAAAAAAA");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(count, 12);
    messages();
    EXPECT_EQ(copy(main + "#include |a|"), "AAAAAAAAAAA");
    EXPECT_EQ(result, 1);
    const std::string printed = messages();
    EXPECT_NE(printed.find("\"a\"...\n\nToo many embedded include files! (Max = 12)\n"), std::string::npos);
}

TEST_F(Includes, FileThatIncludesItselfEndsWithTooManyFiles) {
    copy("x#include |main|");
    EXPECT_EQ(result, 1);
    std::string expected;
    for (int at = 0; at < 12; ++at) expected += "\n\tOpening include file \"main\"...";
    EXPECT_EQ(messages(), expected + "\n\nToo many embedded include files! (Max = 12)\n");
}

TEST_F(Includes, FailureInANestedFileIsPassedUp) {
    folder.write("a", "A#include |no.such|");
    EXPECT_EQ(copy("x#include |a|y"), "xA");
    EXPECT_EQ(result, 999);
}

TEST_F(Includes, DirectiveLeavesAHashOrSlashBehindItAlone) {
    // The closing bar is the previous character: "*" behind it opens nothing.
    folder.write("a", "/");
    folder.write("b", "B");
    EXPECT_EQ(copy("#include |a|* #include |b|"), "/* B");
}

}  // namespace
