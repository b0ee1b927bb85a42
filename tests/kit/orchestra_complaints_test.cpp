#include "kit/orchestra/complaints.h"

#include <gtest/gtest.h>

#include "kit/diagnose/text_form.h"
#include "tests/kit/table_sources.h"

// Lines as Csound 6.18 prints them lead to the block that wrote the event.

namespace vorn::kit {
namespace {

constexpr const char* SCORE =
    "> f2 0 1024 77 1\n"
    "i1 = 5 0 -3 {\np2 1\np3 1\np4 0\np5 440\n}\n"
    "i1 = 5 10 -2 {\np2 1\np3 1\np4 0\np5 440\n}\n"
    "> s\n"
    "i1 = 6 0 -1 {\np2 1\np3 1\np4 0\np5 440\np6 1\n}\n"
    "> i9 0 1\n";

std::string told(const std::string& output) {
    const ScoreRun run = test::run_text(SCORE);
    EXPECT_EQ(run.status, 0);
    std::string text;
    const PerformanceReport report = read_performance(output, run);
    for (const Diagnostic& diagnostic : report.diagnostics) {
        const std::string form = text_form(diagnostic, run.map);
        text += form.substr(0, form.find('\n') + 1);
    }
    for (const std::string& line : report.other_lines) text += line + "\n";
    return text;
}

TEST(Complaints, LeadFromInstrumentAndTimeToTheBlock) {
    EXPECT_EQ(
        told("SECTION 1:\n\x1b[m\t  B 10.000 - note deleted. instr 1(200) undefined\x1b[m\n"
             "\x1b[m\t  B 11.001 - note deleted. instr 1(200) undefined\x1b[m\n"),
        "in.vorn:8:1: error: instr 1 is not defined in the orchestra; 2 events are left out, the first at "
        "10.000 [Csound]\n");
}

TEST(Complaints, GiveTheReasonOfARefusedNote) {
    EXPECT_EQ(
        told(
            "SECTION 1:\nINIT ERROR in instr 1 (opcode oscili.a) line 6: \x1b[mInvalid ftable no. 77.000000\n"
            " from file a.orc (1),\x1b[ma1\toscili.a\tp4\tp5\t77\t0\t\n"
            "\t  B  2.000 - note deleted.  i1 had 1 init errors\n"),
        "in.vorn:2:1: error: Invalid ftable no. 77.000000 (oscili, line 6 of the orchestra); an event is "
        "left "
        "out, at 2.000 [Csound]\n");
}

TEST(Complaints, CountTimesAnewInEachSection) {
    EXPECT_EQ(told("SECTION 1:\nSECTION 2:\n\t  B  0.000 - note deleted. instr 1(200) undefined\n"),
              "in.vorn:15:1: error: instr 1 is not defined in the orchestra; an event is left out, at 0.000 "
              "[Csound]\n");
}

TEST(Complaints, LeadToLinesThatGoToCsoundAsTheyAre) {
    const std::string tables = told("ftable 2: \x1b[millegal gen number\n");
    EXPECT_EQ(tables.substr(0, 10), "in.vorn:1:");
    EXPECT_NE(tables.find("error: ftable 2: illegal gen number [Csound]"), std::string::npos);
    EXPECT_EQ(told("SECTION 2:\n  B  0.000 - note deleted. instr 9(200) undefined\n").substr(0, 11),
              "in.vorn:22:");
}

TEST(Complaints, FindTheBlockOfAWarningByItsPfields) {
    EXPECT_EQ(told("WARNING: \x1b[minstr 1 uses 5 p-fields but is given 6\x1b[m\n"),
              "in.vorn:15:1: warning: instr 1 uses 5 p-fields, the events have 6 [Csound]\n");
}

TEST(Complaints, HandOnWhatIsSaidOfTheOrchestra) {
    EXPECT_EQ(
        told("error: syntax error, unexpected T_IDENT  (token \"oscilli\")\n from file b.orc (1), line 6:\n"
             " >>> a1 oscilli <<<\nParsing failed due to invalid input!\ncannot compile orchestra\n"
             "end of score.\n1 errors in performance\n"),
        "error: syntax error, unexpected T_IDENT  (token \"oscilli\")\nfrom file b.orc (1), line 6:\n"
        ">>> a1 oscilli <<<\nParsing failed due to invalid input!\ncannot compile orchestra\n");
}

TEST(Complaints, ReadPeakAndClippedSamples) {
    const PerformanceReport report = read_performance(
        "0dBFS level = 32768.0,\x1b[m A4 tuning = 440.0\nend of score.\t\t   overall amps:\x1b[m  16384.0  "
        "65536.0\n"
        "\t   overall samples out of range:\x1b[m        0\x1b[m       12\x1b[m\n",
        test::run_text(SCORE));
    EXPECT_DOUBLE_EQ(report.peak, 2);
    EXPECT_EQ(report.clipped, 12U);
    EXPECT_FALSE(report.lacks_device);
}

TEST(Complaints, KnowAMissingDeviceAndAFullDisk) {
    const ScoreRun run = test::run_text(SCORE);
    EXPECT_TRUE(read_performance(" *** Cannot open device 'default' for audio output: No such file\n", run)
                    .lacks_device);
    EXPECT_TRUE(read_performance("(disk may be full...\n", run).disk_is_full);
}

}  // namespace
}  // namespace vorn::kit
