// Global blocks: what stands between instrument blocks.

#include "blocks/gblock.h"

#include <cstdio>
#include <string>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"
#include "generators/random.h"
#include "input/run_flags.h"
#include "output/output_file.h"
#include "output/tempo_map.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class Gblock : public BlockTest {
protected:
    void SetUp() override { ASSERT_TRUE(open_output(fout, std::tmpfile())); }
    void TearDown() override { EXPECT_TRUE(close_output(fout)); }

    // Reads global blocks from the beginning of a text.
    int read(const std::string& text) {
        open(text);
        return parse_gblock(reader);
    }

    // What has been written to the score so far.
    static std::string score() { return {fout.data, fout.used}; }
};

TEST_F(Gblock, EndsAtTheFirstI) {
    EXPECT_EQ(read("\n \t \n  i1=3 0 4{"), 0);
    EXPECT_EQ(rest(), "i1=3 0 4{");
    EXPECT_EQ(reader.line, 3U);
    EXPECT_EQ(read("instruments"), 0);
    EXPECT_EQ(rest(), "instruments");
}

TEST_F(Gblock, OnlyALowerCaseI) { EXPECT_EQ(read("I1=3 0 4{"), 22); }

TEST_F(Gblock, EndOfInput) {
    for (const char* text : {"", "\n\n", "; only a comment", "/* one\n more */\n", "sr(48000)"}) {
        EXPECT_EQ(read(text), END_OF_INPUT) << text;
    }
}

TEST_F(Gblock, AlwaysReadsAFreshLine) {
    feed("i1 rest of the line\ni2");
    EXPECT_EQ(parse_gblock(reader), 0);
    EXPECT_EQ(rest(), "i2");
}

TEST_F(Gblock, OtherCharactersAreRefused) {
    for (const char* text : {"x", "1", "{", "}", "ra(1 1 [1])", "re", "f1 0 1024", "\x80", "p"}) {
        EXPECT_EQ(read(text), 22) << text;
        EXPECT_EQ(reader.pos, 0);
    }
}

TEST_F(Gblock, CommandsFollowEachOther) {
    EXPECT_EQ(read("  te(90) rs(3)sr(48000)\n rd(.5)  TE(100) i1"), 0);
    EXPECT_EQ(TEMPO_LIST[0].start_tempo, 100);
    EXPECT_EQ(rand(), reference_sequence(3, 1)[0]);
    EXPECT_EQ(SRATE, 48000U);
    EXPECT_EQ(MAX_DEV, 0.5F);
    EXPECT_EQ(rest(), "i1");
}

TEST_F(Gblock, CommandBehindACommentIsRefused) {
    EXPECT_EQ(read("/* seed */ rs(3)"), 22);
    EXPECT_EQ(rest(), "rs(3)");
    EXPECT_EQ(read("te(90) /* seed */ rs(3)"), 22);
    EXPECT_EQ(read("/* seed\n is */ rs(3)"), 22);
    EXPECT_EQ(read("/* seed\n is */\nrs(3) i1"), 0);
    EXPECT_EQ(read("te(90) ; rs(3)\n i1"), 0);
}

TEST_F(Gblock, BlockBehindAComment) {
    EXPECT_EQ(read("/* one */ /* two\n lines */ i1=3"), 0);
    EXPECT_EQ(rest(), "i1=3");
}

TEST_F(Gblock, CommentLeftOpen) {
    EXPECT_EQ(read("/* never closed\n\n"), 3);
    EXPECT_EQ(read("/* /* closed once */\ni1"), 3);
}

TEST_F(Gblock, FactorIsRecognisedOnlyToBeRefused) {
    EXPECT_EQ(read("pf(2)"), 47);
    EXPECT_EQ(rest(), "(2)");
    EXPECT_EQ(PFACTOR, 1);
}

TEST_F(Gblock, ErrorsOfTheSettingsTravelUp) {
    EXPECT_EQ(read("rs(65536)"), 29);
    EXPECT_EQ(read("sr(x)"), 65);
    EXPECT_EQ(read("rd(101)"), 28);
    EXPECT_EQ(read("te(5000)"), 46);
    EXPECT_EQ(read("sr(48000"), 19);
    EXPECT_EQ(read("tempo"), 96);
}

TEST_F(Gblock, DirectOutput) {
    EXPECT_EQ(read("> f1 0 4096 10 1\n  >t 0 60 ; no comment here\n>\ni1"), 0);
    EXPECT_EQ(score(), "\n f1 0 4096 10 1 \nt 0 60 ; no comment here \n ");
}

TEST_F(Gblock, DirectOutputBehindACommand) {
    EXPECT_EQ(read("rs(3) > rs(4)\ni1"), 0);
    EXPECT_EQ(score(), "\n rs(4) ");
}

TEST_F(Gblock, NoDirectOutputIntoAMidiFile) {
    MKMIDI = 1;
    EXPECT_EQ(read("> f1 0 4096 10 1\ni1"), 0);
    EXPECT_EQ(score(), "");
    EXPECT_EQ(rest(), "i1");
}

TEST_F(Gblock, TemposAreShownWhenABlockBegins) {
    SHOW_TEMPOS = 1;
    EXPECT_EQ(read("; none yet\n"), END_OF_INPUT);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(read("te(90)\ni1"), 0);
    EXPECT_EQ(messages(),
              "\n  Stored Tempos (There are 1 defs):"
              "\n\t1: Stime    0.00, Etime 1000.00, Stempo   90.00, Etempo   90.00, Type F\n");
}

TEST_F(Gblock, CodesThatAreNoGlobalCommand) {
    feed("(1)");
    for (const int code : {CODE_EX, CODE_DB, CODE_DV, CODE_HZ, CODE_HO, CODE_IN,   CODE_MO, CODE_SE,
                           CODE_NO, CODE_OP, CODE_PF, CODE_OD, CODE_RE, CODE_RH,   CODE_RA, CODE_RW,
                           CODE_MS, CODE_XX, CODE_S2, CODE_TR, CODE_BN, NO_COMMAND}) {
        EXPECT_EQ(do_gcommand(code, reader), 47) << code;
    }
}

}  // namespace
}  // namespace vorn::test
