// The whole program on one block of literal loops, beside a loop of fprintf
// calls that prints the same lines and does nothing else.
//
// The block has eight p-fields, every one a loop "<" ... ">" of its own length,
// so that the lines do not repeat. Its values come from a seeded generator and
// have at most three decimals, which a float division reads back exactly as the
// block's reader does. Times are those of the processor (user and system).
//
//     bench_literal_block            10,000 to 10,000,000 events, then the comparison
//     bench_literal_block 500000     the comparison alone, of that many events

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "measure.h"

namespace {

constexpr std::size_t PFIELDS = LINE_VALUES + 1;
constexpr int ROUNDS = 5;            // of the comparison; the quickest counts
constexpr double BYTES_TARGET = 64;  // peak memory per event beyond 4 bytes for each p-field
constexpr double RATIO_TARGET = 1.0 / 3.0;

// One loop of the block: values in thousandths, from low to high.
struct LoopShape {
    std::size_t length;
    int low;
    int high;
};

// P2 to P8.
constexpr LoopShape LOOPS[] = {
    {97, 50, 1000},     {31, 100, 2000}, {251, 0, 32'000'000}, {64, 0, 9000},
    {101, -1000, 1000}, {7, 0, 500},     {1009, 0, 127'000},
};

struct Block {
    std::vector<int> loops[PFIELDS - 1];
};

Block make_block() {
    std::mt19937 random(2024);
    Block block;
    for (std::size_t i = 0; i < PFIELDS - 1; ++i) {
        const LoopShape& shape = LOOPS[i];
        const auto span = static_cast<unsigned>(shape.high - shape.low);
        for (std::size_t k = 0; k < shape.length; ++k) {
            block.loops[i].push_back(shape.low + static_cast<int>(random() % span));
        }
    }
    return block;
}

void write_score(const Block& block, std::uint64_t events, const std::string& name) {
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::fprintf(file, "i1 = %d 0 -%llu {\n", static_cast<int>(PFIELDS),
                 static_cast<unsigned long long>(events));
    for (std::size_t i = 0; i < PFIELDS - 1; ++i) {
        std::fprintf(file, "p%zu <", i + 2);
        for (std::size_t k = 0; k < block.loops[i].size(); ++k) {
            std::fprintf(file, "%.3f%c", block.loops[i][k] / 1000.0, k % 16 == 15 ? '\n' : ' ');
        }
        std::fprintf(file, ">\n");
    }
    std::fprintf(file, "}\n");
    std::fclose(file);
}

// --- the loop of fprintf calls ---

// The p-fields of every event, as the program computes them at tempo 60.
std::vector<float> make_lines(const Block& block, std::uint64_t events) {
    std::vector<float> values(events * (PFIELDS - 1));
    float start = 0.0F;
    for (std::uint64_t event = 0; event < events; ++event) {
        float* line = &values[event * (PFIELDS - 1)];
        for (std::size_t i = 0; i < PFIELDS - 1; ++i) {
            line[i] = static_cast<float>(block.loops[i][event % block.loops[i].size()]) / 1000.0F;
        }
        const float interval = line[0];
        line[0] = start;
        line[1] = interval * line[1];
        start += interval;
    }
    return values;
}

// --- the two tables ---

void show_growth(const Block& block, const Workplace& place) {
    std::printf("%12s %10s %12s %28s\n", "events", "seconds", "ns/event", "bytes/event beyond p-fields");
    for (const std::uint64_t events : {10'000U, 100'000U, 1'000'000U, 10'000'000U}) {
        write_score(block, events, place.file("in.vorn"));
        const Cost cost = run_vorn(place.file("in.vorn"), place.file("out.sco"));
        const auto count = static_cast<double>(events);
        std::printf("%12llu %10.3f %12.1f %28.1f\n", static_cast<unsigned long long>(events), cost.seconds,
                    cost.seconds / count * 1e9, cost.bytes / count - 4.0 * PFIELDS);
        std::fflush(stdout);
    }
}

bool compare_with_printing(const Block& block, const Workplace& place, std::uint64_t events) {
    write_score(block, events, place.file("in.vorn"));
    // Before the values are made: a child is charged with what its parent holds.
    const double bytes = run_vorn(place.file("in.vorn"), place.file("out.sco")).bytes;
    const double beyond = bytes / static_cast<double>(events) - 4.0 * PFIELDS;
    const std::vector<float> values = make_lines(block, events);
    double program = 1e9;
    double printing = 1e9;
    for (int round = 0; round < ROUNDS; ++round) {
        program = std::min(program, run_vorn(place.file("in.vorn"), place.file("out.sco")).seconds);
        printing = std::min(printing, print_lines(values, place.file("printed.sco")));
    }
    const bool same = contents(place.file("out.sco")) == contents(place.file("printed.sco"));
    std::printf("\n%llu events, quickest of %d rounds\n", static_cast<unsigned long long>(events), ROUNDS);
    std::printf("  whole program       %8.3f seconds\n", program);
    std::printf("  fprintf loop alone  %8.3f seconds\n", printing);
    std::printf("  ratio               %8.3f  (target below %.3f)\n", program / printing, RATIO_TARGET);
    std::printf("  memory              %8.1f  bytes per event beyond 4 for each p-field (target %.0f)\n",
                beyond, BYTES_TARGET);
    std::printf("  same bytes          %8s\n", same ? "yes" : "NO");
    return same && program / printing < RATIO_TARGET && beyond <= BYTES_TARGET;
}

}  // namespace

int main(int argc, char** argv) {
    const Workplace place;
    const Block block = make_block();
    std::uint64_t events = 1'000'000;
    if (argc > 1) {
        events = std::strtoull(argv[1], nullptr, 10);
    } else {
        show_growth(block, place);
    }
    return compare_with_printing(block, place, events) ? 0 : 1;
}
