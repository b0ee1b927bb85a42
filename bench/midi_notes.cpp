// The whole program on a block of notes written as a MIDI file, beside csvmidi,
// which writes the same notes from their text form.
//
// Three blocks: notes one after another, notes that each last for 5,000 others,
// and notes of random lengths up to that. The trace of every event goes to a
// file, as it would for a composer who keeps it. What csvmidi reads is what
// midicsv makes of the program's own file, and what it writes is read back and
// compared. Times are those of the processor (user and system).
//
//     bench_midi_notes            10,000 to 1,000,000 notes, then the comparison
//     bench_midi_notes 500000     the comparison alone, of that many notes

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "measure.h"

namespace {

constexpr int ROUNDS = 5;                 // the quickest counts
constexpr double TARGET = 300;            // nanoseconds per note
constexpr int HUNDREDTHS_OVERLAP = 5000;  // starts are a hundredth of a second apart

enum class Lengths { LEGATO, OVERLAPPING, RANDOM };

struct Kind {
    const char* name;
    Lengths lengths;
    bool has_target;
};

constexpr Kind KINDS[] = {
    {"one after another", Lengths::LEGATO, true},
    {"each lasting for 5,000 others", Lengths::OVERLAPPING, true},
    {"of random lengths up to that", Lengths::RANDOM, false},
};

// A loop of random whole numbers, shown with their hundredths.
void write_loop(std::FILE* file, std::mt19937& random, int count, int low, int high) {
    std::fprintf(file, "<");
    for (int i = 0; i < count; ++i) {
        const int value = low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
        std::fprintf(file, "%c%d.%02d", i % 16 == 0 ? '\n' : ' ', value / 100, value % 100);
    }
    std::fprintf(file, " >\n");
}

void write_score(const std::string& name, Lengths lengths, long notes) {
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::mt19937 random(2024);
    std::fprintf(file, "i1 = 5 0 -%ld {\np2 .01\np3 ", notes);
    constexpr int SECONDS = 100'000;  // the code of a duration in seconds, in hundredths
    if (lengths == Lengths::LEGATO) std::fprintf(file, "1\n");
    if (lengths == Lengths::OVERLAPPING) std::fprintf(file, "%d\n", 1000 + HUNDREDTHS_OVERLAP / 100);
    if (lengths == Lengths::RANDOM) write_loop(file, random, 1009, SECONDS + 1, SECONDS + HUNDREDTHS_OVERLAP);
    std::fprintf(file, "p4 ");
    write_loop(file, random, 251, 0, 3'276'700);
    std::fprintf(file, "p5 in ");
    write_loop(file, random, 97, 2100, 10800);
    std::fprintf(file, "}\n");
    if (std::fclose(file) != 0) fail(name);
}

struct Times {
    double vorn;     // seconds
    double csvmidi;  // seconds; negative where it is missing or writes something else
};

Times measure(const Workplace& place, Lengths lengths, long notes, int rounds) {
    const std::string score = place.file("in.vorn");
    const std::string midi = place.file("out.mid");
    const std::string text = place.file("out.csv");
    const std::string copied = place.file("copied.mid");
    const std::string copied_text = place.file("copied.csv");
    write_score(score, lengths, notes);
    Times best{1e9, 1e9};
    for (int round = 0; round < rounds; ++round) {
        const double vorn = run({VORN_PROGRAM, "-m", score, midi}, place.file("trace")).seconds;
        best.vorn = std::min(best.vorn, vorn);
        if (round == 0 && run({"midicsv", midi, text}).seconds < 0) best.csvmidi = -1;
        if (best.csvmidi >= 0) best.csvmidi = std::min(best.csvmidi, run({"csvmidi", text, copied}).seconds);
    }
    if (best.csvmidi < 0) return best;
    run({"midicsv", copied, copied_text});
    if (contents(text) != contents(copied_text)) {
        std::printf("csvmidi wrote other notes\n");
        best.csvmidi = -1;
    }
    return best;
}

double per_note(double seconds, long notes) { return seconds * 1e9 / static_cast<double>(notes); }

// False when the program misses the target.
bool print_row(const char* name, const Times& times, long notes) {
    const double vorn = per_note(times.vorn, notes);
    std::printf("%-32s %8ld %9.0f", name, notes, vorn);
    if (times.csvmidi < 0) {
        std::printf("        --      --\n");
    } else {
        std::printf(" %9.0f %7.3f\n", per_note(times.csvmidi, notes), times.vorn / times.csvmidi);
    }
    std::fflush(stdout);
    return vorn < TARGET;
}

}  // namespace

int main(int argc, char** argv) {
    const long notes = argc > 1 ? std::atol(argv[1]) : 1'000'000;
    const Workplace place;
    std::printf("nanoseconds of the processor for each note, the quickest of %d runs\n\n", ROUNDS);
    std::printf("%-32s %8s %9s %9s %7s\n", "notes", "number", "vorn -m", "csvmidi", "ratio");
    for (long growing = 10'000; argc == 1 && growing < notes; growing *= 10) {
        for (const Kind& kind : KINDS)
            print_row(kind.name, measure(place, kind.lengths, growing, ROUNDS), growing);
    }
    bool met = true;
    for (const Kind& kind : KINDS) {
        const bool quick = print_row(kind.name, measure(place, kind.lengths, notes, ROUNDS), notes);
        met = met && (quick || !kind.has_target);
    }
    std::printf("\ntarget of the first two: under %.0f ns a note with vorn -m: %s\n", TARGET,
                met ? "met" : "missed");
    return met ? 0 : 1;
}
