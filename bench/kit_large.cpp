// The tools of the kit on a score of a million events: processor time (user and
// system) and peak memory an event, all together. One row a tool.
//
// The block has six p-fields: uneven starts, durations, decibels, note names
// written as hertz, and a generator, so that no two events in a row are alike.
//
//     bench_kit_large            1,000,000 events
//     bench_kit_large 100000     as many as said
//
// Status 1 when a tool takes longer or more memory than it may.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "measure.h"

namespace {

constexpr int ROUNDS = 3;             // the quickest counts
constexpr double SECONDS_TARGET = 2;  // for a million events
constexpr double BYTES_TARGET = 200;  // an event, the program itself included
constexpr double TARGET_EVENTS = 1e6;

struct Tool {
    const char* name;
    std::vector<std::string> words;  // between the score and the output's name
    const char* output;
};

const Tool TOOLS[] = {
    {"events", {"-o"}, "out.json"},
    {"events", {"-o"}, "out.csv"},
    {"midi", {"--quiet"}, "out.mid"},
    {"picture", {"-o"}, "out.svg"},
};

void write_score(std::uint64_t events, const std::string& name) {
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::fprintf(file,
                 "rs(1)\ni1 = 6 0 -%llu {\np2 .11 .23 .37 .08\np3 .9 1.1 .5\np4(db) db 60 66 72 78 81\n"
                 "p5(hz) no c4 e g b5 d f a6 c\np6 <.1 .25 .333 .5 .75 .875>\n}\n",
                 static_cast<unsigned long long>(events));
    std::fclose(file);
}

Cost quickest(const Tool& tool, const Workplace& place) {
    std::vector<std::string> command = {VORNKIT_PROGRAM, tool.name, place.file("in.vorn")};
    command.insert(command.end(), tool.words.begin(), tool.words.end());
    command.push_back(place.file(tool.output));
    Cost best = run(command);
    for (int round = 1; round < ROUNDS; ++round) {
        const Cost cost = run(command);
        best.seconds = std::min(best.seconds, cost.seconds);
        best.bytes = std::max(best.bytes, cost.bytes);
    }
    return best;
}

bool measure(const Tool& tool, const Workplace& place, std::uint64_t events) {
    const Cost cost = quickest(tool, place);
    const auto count = static_cast<double>(events);
    const double size = static_cast<double>(std::filesystem::file_size(place.file(tool.output)));
    std::printf("%-8s %-9s %8.3f %12.1f %12.1f\n", tool.name, tool.output, cost.seconds, cost.bytes / count,
                size / count);
    std::fflush(stdout);
    return cost.seconds < SECONDS_TARGET * std::max(1.0, count / TARGET_EVENTS) &&
           cost.bytes / count < BYTES_TARGET;
}

}  // namespace

int main(int argc, char** argv) {
    const Workplace place;
    const std::uint64_t events = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1'000'000;
    write_score(events, place.file("in.vorn"));
    std::printf("%llu events, targets %.0f seconds a million and %.0f bytes an event\n",
                static_cast<unsigned long long>(events), SECONDS_TARGET, BYTES_TARGET);
    std::printf("%-8s %-9s %8s %12s %12s\n", "tool", "output", "seconds", "bytes/event", "file/event");
    bool well = true;
    for (const Tool& tool : TOOLS) well = measure(tool, place, events) && well;
    return well ? 0 : 1;
}
