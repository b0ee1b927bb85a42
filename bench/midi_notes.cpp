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

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int ROUNDS = 5;                 // the quickest counts
constexpr double TARGET = 300;            // nanoseconds per note
constexpr int HUNDREDTHS_OVERLAP = 5000;  // starts are a hundredth of a second apart

[[noreturn]] void fail(const std::string& what) {
    std::perror(what.c_str());
    std::exit(2);
}

// A new directory for the files of this run, removed with them at the end.
struct Workplace {
    std::string folder;
    std::string score, midi, trace, text, copied, copied_text;
    Workplace() {
        char name[] = "/tmp/vorn_bench_XXXXXX";
        if (mkdtemp(name) == nullptr) fail("temporary directory");
        folder = name;
        score = folder + "/in.vorn";
        midi = folder + "/out.mid";
        trace = folder + "/trace";
        text = folder + "/out.csv";
        copied = folder + "/copied.mid";
        copied_text = folder + "/copied.csv";
    }
    ~Workplace() {
        for (const std::string& name : {score, midi, trace, text, copied, copied_text}) {
            std::remove(name.c_str());
        }
        rmdir(folder.c_str());
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;
};

enum class Lengths { LEGATO, OVERLAPPING, RANDOM };

struct Kind {
    const char* name;
    Lengths lengths;
};

constexpr Kind KINDS[] = {
    {"one after another", Lengths::LEGATO},
    {"each lasting for 5,000 others", Lengths::OVERLAPPING},
    {"of random lengths up to that", Lengths::RANDOM},
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

// Runs a program with standard error in a file, afresh: emptying what an earlier
// run left would count as this one's time. The processor time in seconds,
// negative where there is no such program.
double run(const std::vector<const char*>& command, const std::string& errors) {
    std::vector<char*> argv;
    for (const char* word : command) argv.push_back(const_cast<char*>(word));
    argv.push_back(nullptr);
    if (errors != "/dev/null") std::remove(errors.c_str());
    std::remove(command.back());
    const pid_t child = fork();
    if (child < 0) fail("fork");
    if (child == 0) {
        const int file = open(errors.c_str(), O_WRONLY | O_CREAT, 0600);
        if (file < 0 || dup2(file, STDERR_FILENO) < 0) _exit(3);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) fail("wait4");
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127) return -1;
    if (status != 0) fail(command[0]);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

std::string read_file(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Times {
    double vorn;     // seconds
    double csvmidi;  // seconds; negative where it is missing or writes something else
};

Times measure(const Workplace& place, Lengths lengths, long notes, int rounds) {
    write_score(place.score, lengths, notes);
    Times best{1e9, 1e9};
    for (int round = 0; round < rounds; ++round) {
        best.vorn = std::min(best.vorn,
                             run({VORN_PROGRAM, "-m", place.score.c_str(), place.midi.c_str()}, place.trace));
        if (round == 0 && run({"midicsv", place.midi.c_str(), place.text.c_str()}, "/dev/null") < 0) {
            best.csvmidi = -1;
        }
        if (best.csvmidi < 0) continue;
        best.csvmidi =
            std::min(best.csvmidi, run({"csvmidi", place.text.c_str(), place.copied.c_str()}, "/dev/null"));
    }
    if (best.csvmidi < 0) return best;
    run({"midicsv", place.copied.c_str(), place.copied_text.c_str()}, "/dev/null");
    if (read_file(place.text) != read_file(place.copied_text)) {
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
        std::printf("        --\n");
    } else {
        std::printf(" %9.0f\n", per_note(times.csvmidi, notes));
    }
    std::fflush(stdout);
    return vorn < TARGET;
}

}  // namespace

int main(int argc, char** argv) {
    const long notes = argc > 1 ? std::atol(argv[1]) : 1'000'000;
    const Workplace place;
    std::printf("nanoseconds of the processor for each note, the quickest of %d runs\n\n", ROUNDS);
    std::printf("%-32s %8s %9s %9s\n", "notes", "number", "vorn -m", "csvmidi");
    for (long growing = 10'000; argc == 1 && growing < notes; growing *= 10) {
        for (const Kind& kind : KINDS)
            print_row(kind.name, measure(place, kind.lengths, growing, ROUNDS), growing);
    }
    bool met = true;
    for (const Kind& kind : KINDS) {
        met = print_row(kind.name, measure(place, kind.lengths, notes, ROUNDS), notes) && met;
    }
    std::printf("\ntarget: under %.0f ns a note with vorn -m: %s\n", TARGET, met ? "met" : "missed");
    return 0;
}
