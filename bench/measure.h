#pragma once

// What the benchmarks share: a workplace for files, a program run in a process
// of its own with its cost, and the loop of fprintf calls that scores are held
// against. Times are those of the processor, user and system together, so that
// what else a machine does weighs little.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

[[noreturn]] inline void fail(const std::string& what) {
    std::perror(what.c_str());
    std::exit(2);
}

// A new directory for the files of a run, removed with them at the end.
class Workplace {
public:
    Workplace() {
        char name[] = "/tmp/vorn_bench_XXXXXX";
        if (mkdtemp(name) == nullptr) fail("temporary directory");
        folder_ = name;
    }
    ~Workplace() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    std::string file(const char* name) const { return folder_ + "/" + name; }

private:
    std::string folder_;
};

struct Cost {
    double seconds;  // negative where there is no such program
    double bytes;    // peak memory
};

// Runs a command whose last word is the file that it writes, with standard error
// in the file `errors`. Both files are made afresh: emptying what an earlier run
// left would count as this one's time.
inline Cost run(const std::vector<std::string>& command, const std::string& errors = "/dev/null") {
    std::vector<char*> argv;
    for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    if (errors != "/dev/null") std::remove(errors.c_str());
    std::remove(command.back().c_str());
    std::fflush(nullptr);
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
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127) return {-1, 0};
    if (status != 0) fail(command[0]);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) * 1024};
}

// Runs Vorn on a score.
inline Cost run_vorn(const std::string& score, const std::string& output) {
    const Cost cost = run({VORN_PROGRAM, score, output});
    if (cost.seconds < 0) fail(VORN_PROGRAM);
    return cost;
}

inline double processor_seconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

inline std::string contents(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

constexpr std::size_t LINE_VALUES = 7;  // P2 to P8

// Prints the score of one block of eight p-fields, seven values a line, with
// fprintf; the seconds that it takes.
inline double print_lines(const std::vector<float>& values, const std::string& name) {
    const double begin = processor_seconds();
    std::FILE* file = std::fopen(name.c_str(), "w");
    if (file == nullptr) fail(name);
    std::fputs("\n;I-block #1 (i1):", file);
    for (const float* line = values.data(); line != values.data() + values.size(); line += LINE_VALUES) {
        std::fprintf(file, "\ni1 %8.3f %6.3f %9.3f %9.3f %9.3f %9.3f %9.3f ", double{line[0]},
                     double{line[1]}, double{line[2]}, double{line[3]}, double{line[4]}, double{line[5]},
                     double{line[6]});
    }
    std::fputs("\n\ne\n", file);
    std::fclose(file);
    return processor_seconds() - begin;
}
