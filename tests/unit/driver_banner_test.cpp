#include "driver/banner.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "input/run_flags.h"
#include "support/message_capture.h"
#include "support/run_case.h"

namespace {

std::string banner() {
    vorn::test::MessageCapture messages;
    vorn::print_info("a b.vorn", "out", "run.log", "run.exp");
    const std::string text = messages.text();
    vorn::reset_run_flags();
    return text;
}

TEST(Banner, TellsVersionAndBuild) {
    const std::regex first_line(
        "\nVorn \\(2\\.1\\.2, (Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [ 123][0-9] 20[0-9]{2}, "
        "[012][0-9]:[0-5][0-9]:[0-5][0-9]\\)\n");
    const std::string text = banner();
    EXPECT_TRUE(std::regex_search(text, first_line, std::regex_constants::match_continuous)) << text;
}

TEST(Banner, NamesInputAndOutput) {
    EXPECT_EQ(vorn::test::without_chance(banner()),
              "\nVorn (2.1.2, DATE, TIME)\n"
              "\n\nInput\t= \"a b.vorn\"\nOutput\t= \"out\" [Csound score-file]\n");
    vorn::MKMIDI = 1;
    EXPECT_EQ(vorn::test::without_chance(banner()),
              "\nVorn (2.1.2, DATE, TIME)\n"
              "\n\nInput\t= \"a b.vorn\"\nOutput\t= \"out\" [MIDI file (type 1)]\n");
}

TEST(Banner, NamesLogAndExpansionFileOnlyWhenThereAreAny) {
    vorn::MKLOG = 1;
    EXPECT_EQ(vorn::test::without_chance(banner()),
              "\nVorn (2.1.2, DATE, TIME)\n"
              "\n\nInput\t= \"a b.vorn\"\nOutput\t= \"out\" [Csound score-file]\nLog \t= \"run.log\"\n");
    vorn::MKEXP = 1;
    EXPECT_EQ(vorn::test::without_chance(banner()),
              "\nVorn (2.1.2, DATE, TIME)\n"
              "\n\nInput\t= \"a b.vorn\"\nOutput\t= \"out\" [Csound score-file]\nMExp\t= \"run.exp\"\n");
    vorn::MKLOG = 1;
    vorn::MKEXP = 1;
    EXPECT_EQ(vorn::test::without_chance(banner()),
              "\nVorn (2.1.2, DATE, TIME)\n"
              "\n\nInput\t= \"a b.vorn\"\nOutput\t= \"out\" [Csound score-file]\n"
              "Log \t= \"run.log\"\nMExp\t= \"run.exp\"\n");
}

TEST(Banner, IsNotSilencedByTheFlag) {
    vorn::SUPRESS = 1;
    EXPECT_NE(banner(), "");
}

}  // namespace
