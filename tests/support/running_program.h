#pragma once

#include <sys/types.h>

#include <filesystem>
#include <set>
#include <string>

#include "support/run_case.h"

// A run of the program that a test can watch, feed and interrupt while it lasts.
//
//     make_pipe(folder, "in.vorn");
//     RunningProgram program(folder, {"in.vorn", "out.sco"});
//     PipeEnd input(folder, "in.vorn");           // the program has opened its input
//     const auto temporary = program.temporary_file();
//     input.write("; a comment\n");
//     input.close();
//     const RunResult result = program.wait();
//
// What does not come about within seconds is a std::runtime_error.

namespace vorn::test {

// What the program may use; 0: as much as the test itself.
struct Limits {
    bool standard_streams = true;     // false: none of them is open
    unsigned long open_files = 0;     // descriptors, the standard three included
    unsigned long file_size = 0;      // bytes of any file that it writes
    unsigned long memory = 0;         // bytes of its address space
    std::string standard_error = {};  // a whole name of what it is, instead of a file
    const char* tmpdir = nullptr;     // TMPDIR; null: not set
};

class RunningProgram {
public:
    RunningProgram(const WorkFolder& folder, const Arguments& arguments, const Limits& limits = {});
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    // The name of its temporary file, as soon as there is one.
    std::filesystem::path temporary_file() const;

    void send_signal(int number) const;

    RunResult wait();

private:
    const WorkFolder& folder_;
    WorkFolder streams_;
    pid_t child_;
};

void make_pipe(const WorkFolder& folder, const std::string& name);

// The writing end of a named pipe that the program reads.
class PipeEnd {
public:
    PipeEnd(const WorkFolder& folder, const std::string& name);
    ~PipeEnd() { close(); }
    PipeEnd(const PipeEnd&) = delete;
    PipeEnd& operator=(const PipeEnd&) = delete;

    void write(const std::string& bytes) const;
    void close();

private:
    int descriptor_;
};

// Notes every temporary file of the program that is made while it lives, those
// of tests that run at the same time included.
class TemporaryFileWatch {
public:
    TemporaryFileWatch();
    ~TemporaryFileWatch();
    TemporaryFileWatch(const TemporaryFileWatch&) = delete;
    TemporaryFileWatch& operator=(const TemporaryFileWatch&) = delete;

    bool saw_one();

    // One that is still there although everybody has had time to remove it; empty without one.
    std::string left_behind();

private:
    void read_events();

    int descriptor_;
    std::set<std::string> names_;
};

}  // namespace vorn::test
