// Every input notation written under every output type, and read inside every
// generator that reads values. The outcomes follow from the value v in
// semitones, 0 being 16.35159783 Hz and 48 octave 8:
//
//     re  v                      op  octave + pitch class / 100
//     in  v rounded, halves up   od  octave + pitch class / 12
//     db  20 log10 of in         tr  2^(v / 12)
//     hz  16.35159783 2^(v / 12) bn  hz / (44100 / 4096), rounded

#include <gtest/gtest.h>

#include <string>

#include "support/run_case.h"

namespace vorn::test {
namespace {

constexpr const char* OUTPUTS[] = {"re", "in", "db", "hz", "op", "od", "tr", "bn"};

struct Row {
    const char* input;
    const char* text;
    const char* written[8];
};

constexpr Row ROWS[] = {
    {"no", "a4", {"   57.000", "   57", "35.1", "  440.00000", " 8.090", "8.75", "26.908686", "   41"}},
    {"no", "bf3", {"   46.000", "   46", "33.3", "  233.08188", " 7.100", "7.83", "14.254379", "   22"}},
    {"nox", "c+4", {"   48.500", "   49", "33.8", "  269.29178", " 8.005", "8.04", "16.468836", "   25"}},
    {"op", "8.07", {"   55.000", "   55", "34.8", "  391.99542", " 8.070", "8.58", "23.972914", "   36"}},
    {"opx", "8.075", {"   55.500", "   56", "35.0", "  403.48178", " 8.075", "8.62", "24.675373", "   37"}},
    {"re", "60.25", {"   60.250", "   60", "35.6", "  530.86200", " 9.002", "9.02", "32.465450", "   49"}},
    {"in", "60.5", {"   61.000", "   61", "35.7", "  554.36523", " 9.010", "9.08", "33.902821", "   51"}},
    {"db", "40", {"   99.000", "   99", "39.9", " 4978.03174", "12.030", "12.25", "304.437012", "  462"}},
    {"rh", "4.", {"    1.500", "    2", " 6.0", "   17.83154", " 4.015", "4.12", "1.090508", "    2"}},
    {"re", "0", {"    0.000", "    0", "-inf", "   16.35160", " 4.000", "4.00", "1.000000", "    2"}},
};

// A block of one event whose P4 to P11 are the same value under all output types.
std::string block_of(const Row& row) {
    std::string block = "i1=11 0 -1 {\np2 re 1\np3 re 1\n";
    int pfield = 4;
    for (const char* output : OUTPUTS) {
        block += "p" + std::to_string(pfield++) + "(" + output + ") " + row.input + " " + row.text + "\n";
    }
    return block + "}\n";
}

std::string line_of(const Row& row, int number) {
    std::string line = "\n;I-block #" + std::to_string(number) + " (i1):\ni1    0.000  1.000 ";
    for (const char* written : row.written) line += std::string(written) + " ";
    return line + "\n";
}

TEST(NotationConversions, EveryInputTypeUnderEveryOutputType) {
    std::string score;
    std::string expected;
    int number = 0;
    for (const Row& row : ROWS) {
        score += block_of(row);
        expected += line_of(row, ++number);
    }
    const WorkFolder folder;
    folder.write("in.vorn", score);
    RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.files["out.sco"], expected + "\ne\n");
}

// Each generator yields its one value, so the seven events of the block are equal.
TEST(NotationConversions, EveryInputTypeInsideEveryGenerator) {
    const struct {
        const char* input;
        const char* text;
        const char* written;
    } values[] = {
        {"no", "a4", "   57.000"},     {"nox", "c+4", "   48.500"},  {"op", "8.07", "   55.000"},
        {"opx", "8.075", "   55.500"}, {"op", "-8.07", "  -55.000"}, {"re", "-60.25", "  -60.250"},
        {"in", "60.5", "   61.000"},   {"db", "40.9", "   99.000"},  {"rh", "-4.,8", "   -2.000"},
    };
    for (const auto& [input, text, written] : values) {
        const std::string v = text;
        const WorkFolder folder;
        folder.write("in.vorn", "i1=4 0 -7 {\np2 re 1\np3 re 1\np4 " + std::string(input) + " ra(-1 1 " + v +
                                    ") rw(-1 1 [" + v + " " + v + "] .5 " + v + ") mo(-1 1 f " + v + " " + v +
                                    ") se(-1 1 [" + v + "])\nms(-1 1 f [" + v + "] " + v + ") s2(-1 1 " + v +
                                    " ) ho(-1 " + v + ")\n}\n");
        std::string expected = "\n;I-block #1 (i1):";
        for (int start = 0; start < 7; ++start) {
            expected += "\ni1    " + std::to_string(start) + ".000  1.000 " + written + " ";
        }
        RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
        EXPECT_EQ(result.status, 0) << input << result.err;
        EXPECT_EQ(result.files["out.sco"], expected + "\n\ne\n") << input;
    }
}

}  // namespace
}  // namespace vorn::test
