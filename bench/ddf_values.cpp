// The whole program on blocks whose p-fields come from data-defining functions,
// beside a loop of fprintf calls that prints the same lines and does nothing else.
//
// Every block has 1,000,000 events whose P4 to P8 come from one kind of function,
// so five values are generated for each line; the cost of a value is that of the
// whole run, reading to written line, divided by the values. The values for the
// loop of fprintf calls are read back from the program's own lines, and both
// outputs are compared. A second table holds the time of a statement against the
// number of short functions in it. Times are those of the processor (user and
// system).
//
//     bench_ddf_values            1,000,000 events
//     bench_ddf_values 100000     fewer

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "measure.h"

namespace {

constexpr int FIRST_GENERATED = 4;
constexpr int LAST_GENERATED = LINE_VALUES + 1;
constexpr int GENERATED = LAST_GENERATED - FIRST_GENERATED + 1;
constexpr int ROUNDS = 3;       // the quickest counts
constexpr double TARGET = 120;  // nanoseconds per value, on average over the kinds

struct Kind {
    const char* name;
    const char* text;  // "T" behind the parenthesis stands for all events
};

constexpr Kind KINDS[] = {
    {"RA flat", "ra(T .5 [1 9] .5 [20 30])"},
    {"RA exponential, low", "ra(T 1 [l 1 9])"},
    {"RA exponential, high", "ra(T 1 [h 1 9])"},
    {"RA triangular", "ra(T 1 [t 1 9])"},
    {"RA Gaussian", "ra(T 1 [g 1 9])"},
    {"RA bilateral exponential", "ra(T 1 [x 1 9])"},
    {"RA beta", "ra(T 1 [b 1 9])"},
    {"RW", "rw(T 1 [0 100] .2 50)"},
    {"MO", "mo(T 1 e [1 2] [50 60])"},
    {"SE", "se(T 1 [1 2 3 4 5 6 7 8])"},
    {"SE, each once per round", "se(T 1 *[1 2 3 4 5 6 7 8])"},
    {"SE, never twice at once", "se(T 1 x[1 2 3 4 5 6 7 8])"},
    {"MS", "ms(T 1 s [1 2 3] [40 50])"},
    {"EX", "ex(T 1 [p2 / 100 + p3 * 3])"},
};

void write_block(const std::string& name, const Kind& kind, long events) {
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::fprintf(file, "i1 = %d 0 -%ld {\np2 .1\np3 1\n", LAST_GENERATED, events);
    for (int p = FIRST_GENERATED; p <= LAST_GENERATED; ++p) std::fprintf(file, "p%d %s\n", p, kind.text);
    std::fprintf(file, "}\n");
    if (std::fclose(file) != 0) fail(name);
}

// One statement of short functions of all shapes, each over two events of its own.
void write_short_functions(const std::string& name, int functions) {
    constexpr const char* SHORT[] = {"ra(-2 .5 1 .5 [2 3])", "se(.1 1 *[1 2])", "mo(-2 1 1 2)",
                                     "ms(.1 1 [1] 2)",       "ho(-2 5)",        "rw(.1 1 0 1 .5 .5)",
                                     "ex(-2 1 [p2])",        "s2(-2 1 7)"};
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::fprintf(file, "i1 = 4 0 -%d {\np2 .1\np3 1\np4", 2 * functions);
    for (int i = 0; i < functions; ++i)
        std::fprintf(file, "\n%s", SHORT[static_cast<std::size_t>(i) % std::size(SHORT)]);
    std::fprintf(file, "\n}\n");
    if (std::fclose(file) != 0) fail(name);
}

double quickest_run(const Workplace& place) {
    double best = 1e9;
    for (int round = 0; round < ROUNDS; ++round)
        best = std::min(best, run_vorn(place.file("in.vorn"), place.file("out.sco")).seconds);
    return best;
}

// P2 to P8 of every line, as the program has written them.
std::vector<float> read_values(const std::string& score) {
    std::vector<float> values;
    for (std::size_t at = score.find("\ni1 "); at != std::string::npos; at = score.find("\ni1 ", at + 1)) {
        const char* text = score.c_str() + at + 3;
        for (int p = 2; p <= LAST_GENERATED; ++p) {
            char* end = nullptr;
            values.push_back(std::strtof(text, &end));
            text = end;
        }
    }
    return values;
}

// --- the two tables ---

// Whether the average cost of a value is on target and all lines are the same.
bool show_kinds(const Workplace& place, long events) {
    std::printf("%-26s %12s %16s %12s\n", "P4 to P8", "ns/value", "fprintf ns/value", "same bytes");
    const double values = static_cast<double>(events) * GENERATED;
    double sum = 0;
    double printing_sum = 0;
    bool all_same = true;
    for (const Kind& kind : KINDS) {
        write_block(place.file("in.vorn"), kind, events);
        const double seconds = quickest_run(place);
        const std::string score = contents(place.file("out.sco"));
        const std::vector<float> lines = read_values(score);
        double printing = 1e9;
        for (int round = 0; round < ROUNDS; ++round) {
            printing = std::min(printing, print_lines(lines, place.file("printed.sco")));
        }
        const bool same = lines.size() == static_cast<std::size_t>(events) * LINE_VALUES &&
                          score == contents(place.file("printed.sco"));
        std::printf("%-26s %12.1f %16.1f %12s\n", kind.name, seconds / values * 1e9, printing / values * 1e9,
                    same ? "yes" : "NO");
        std::fflush(stdout);
        sum += seconds;
        printing_sum += printing;
        all_same = all_same && same;
    }
    const auto kinds = static_cast<double>(std::size(KINDS));
    const double average = sum / kinds / values * 1e9;
    std::printf("%-26s %12.1f %16.1f   (target %.0f)\n", "average", average,
                printing_sum / kinds / values * 1e9, TARGET);
    return all_same && average <= TARGET;
}

void show_short_functions(const Workplace& place) {
    std::printf("\n%-26s %12s %16s\n", "functions in a statement", "seconds", "us/function");
    for (const int functions : {1'000, 10'000, 100'000, 1'000'000}) {
        write_short_functions(place.file("in.vorn"), functions);
        const double seconds = quickest_run(place);
        std::printf("%-26d %12.4f %16.3f\n", functions, seconds, seconds / functions * 1e6);
        std::fflush(stdout);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const Workplace place;
    const long events = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 1'000'000;
    const bool on_target = show_kinds(place, events);
    show_short_functions(place);
    return on_target ? 0 : 1;
}
