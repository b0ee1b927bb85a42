// From a command code to its handler inside a statement.

#include "blocks/statement_commands.h"

#include <string>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"

namespace vorn::test {
namespace {

class StatementCommands : public BlockTest {
protected:
    // Runs a command of P4 in a block of four events on what stands behind its name.
    int run(int code, const std::string& text) {
        reset_event_list();
        make_events(4, 5);
        P_NO = 4;
        reset_pfield();
        Statement statement;
        statement.cursor = LUT = note_list;
        feed(text);
        return do_commands(code, reader, statement);
    }
};

TEST_F(StatementCommands, Settings) {
    EXPECT_EQ(run(CODE_RD, "(.5)"), 0);
    EXPECT_EQ(MAX_DEV, 0.5F);
    EXPECT_EQ(run(CODE_DV, "(.25)"), 0);
    EXPECT_EQ(MAX_DEV2, 0.25F);
    EXPECT_EQ(run(CODE_PF, "(2)"), 0);
    EXPECT_EQ(PFACTOR, 2);
    EXPECT_EQ(run(CODE_SR, "(8000)"), 0);
    EXPECT_EQ(SRATE, 8000U);
    EXPECT_EQ(run(CODE_RS, "(70000)"), 29);
}

TEST_F(StatementCommands, GeneratorsAreReachedByTheirCodes) {
    EXPECT_EQ(run(CODE_HO, "(-4 60)"), 0);
    EXPECT_EQ(pfield(4), "60 60 60 60");
    for (const int code : {CODE_RA, CODE_RW, CODE_MO, CODE_SE, CODE_EX, CODE_MS, CODE_HO, CODE_S2}) {
        EXPECT_EQ(run(code, "60"), 36) << code;
    }
}

TEST_F(StatementCommands, CodesWithoutAHandler) {
    for (const int code :
         {CODE_TE, CODE_HZ, CODE_XX, CODE_TR, CODE_BN, CODE_DIRECT, CODE_MACRO, CODE_CONST, NO_COMMAND}) {
        EXPECT_EQ(run(code, "(1)"), 20) << code;
    }
}

}  // namespace
}  // namespace vorn::test
