// vornkit check on a score of 1,000 lines: processor time (user and system), the
// start of the program included. The quickest of several runs counts.
//
//     bench_kit_check
//
// Status 1 when it takes longer than it may.

#include <algorithm>
#include <cstdio>
#include <string>

#include "measure.h"

namespace {

constexpr int LINES = 1000;
constexpr int BLOCK_LINES = 6;
constexpr int ROUNDS = 20;
constexpr double TARGET = 0.020;  // seconds

// Blocks of twenty events with loops and generators; the last one has a mistake.
void write_score(const std::string& name) {
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    for (int line = BLOCK_LINES; line <= LINES; line += BLOCK_LINES) {
        const char* const pitch = line + BLOCK_LINES > LINES ? "c4" : "ra(T 1 [60 72])";
        std::fprintf(file, "i1 = 5 %d -20 {\np2 .5\np3 .9\np4 %s\np5 < 9000 7000 >\n}\n", line, pitch);
    }
    std::fclose(file);
}

}  // namespace

int main() {
    const Workplace place;
    write_score(place.file("in.vorn"));
    const std::string command = "\"$0\" check \"$1\" >\"$2\"; test $? -eq 1";
    double best = 1e9;
    for (int round = 0; round < ROUNDS; ++round) {
        const Cost cost =
            run({"sh", "-c", command, VORNKIT_PROGRAM, place.file("in.vorn"), place.file("out")});
        best = std::min(best, cost.seconds);
    }
    std::printf("check of %d lines %.4f seconds of the processor  (target %.3f)\n", LINES, best, TARGET);
    return best < TARGET ? 0 : 1;
}
