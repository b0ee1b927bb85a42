#include "kit/command/process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>

// Three pipes lead to the program. They are served in turn as each has room or
// bytes, since a program that writes while it reads would otherwise wait for us and
// we for it. A program may close its input early: the broken pipe's signal is held
// back for this thread alone, so that other threads may run programs as well.

namespace vorn::kit {

namespace {

constexpr int STATUS_OF_SIGNAL = 128;
constexpr std::size_t PART = std::size_t{1} << 16;  // bytes moved at once

// The programs that run now, 0 in a free slot: a signal's handler reads them.
constexpr std::size_t MAX_RUNNING = 256;
std::atomic<pid_t> running[MAX_RUNNING];

void note_running(pid_t process) {
    for (auto& slot : running) {
        pid_t free = 0;
        if (slot.compare_exchange_strong(free, process)) return;
    }
}

void forget_running(pid_t process) {
    for (auto& slot : running) {
        pid_t found = process;
        if (slot.compare_exchange_strong(found, 0)) return;
    }
}

struct Pipe {
    int read_end = -1;
    int write_end = -1;
};

void close_end(int& end) {
    if (end >= 0) close(end);
    end = -1;
}

// The pipes of one program, and those of their ends that are ours.
class Pipes {
public:
    Pipes() = default;
    ~Pipes() {
        for (Pipe* const pipe : {&input, &output, &errors}) {
            close_end(pipe->read_end);
            close_end(pipe->write_end);
        }
    }
    Pipes(const Pipes&) = delete;
    Pipes& operator=(const Pipes&) = delete;

    bool open() {
        for (Pipe* const pipe : {&input, &output, &errors}) {
            int ends[2];
            if (pipe2(ends, O_CLOEXEC) != 0) return false;
            *pipe = {ends[0], ends[1]};
        }
        return fcntl(input.write_end, F_SETFL, O_NONBLOCK) == 0;
    }

    void close_program_ends() {
        close_end(input.read_end);
        close_end(output.write_end);
        close_end(errors.write_end);
    }

    Pipe input;
    Pipe output;
    Pipe errors;
};

// While it lives, writing to a program that has gone is an error and no signal.
class WithoutBrokenPipeSignal {
public:
    WithoutBrokenPipeSignal() {
        sigemptyset(&broken_pipe_);
        sigaddset(&broken_pipe_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &broken_pipe_, &before_);
    }
    ~WithoutBrokenPipeSignal() {
        const timespec at_once = {};
        while (sigtimedwait(&broken_pipe_, nullptr, &at_once) == SIGPIPE) {
        }
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    WithoutBrokenPipeSignal(const WithoutBrokenPipeSignal&) = delete;
    WithoutBrokenPipeSignal& operator=(const WithoutBrokenPipeSignal&) = delete;

    const sigset_t& before() const { return before_; }

private:
    sigset_t broken_pipe_ = {};
    sigset_t before_ = {};
};

// 0, or the reason as errno has it.
int spawn(pid_t& process, const std::vector<std::string>& arguments, const Pipes& pipes,
          const sigset_t& signals) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipes.input.read_end, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipes.output.write_end, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, pipes.errors.write_end, STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    posix_spawnattr_setsigmask(&attributes, &signals);
    std::vector<char*> vector = argument_vector(arguments);
    const int failure = posix_spawnp(&process, vector[0], &actions, &attributes, vector.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failure;
}

// Gives the program as much as it takes; its input ends with the last byte.
void feed(int& end, std::string_view& input) {
    const ssize_t count = write(end, input.data(), std::min(input.size(), PART));
    if (count >= 0) input.remove_prefix(static_cast<std::size_t>(count));
    const bool has_gone = count < 0 && errno != EAGAIN && errno != EINTR;
    if (has_gone || input.empty()) close_end(end);
}

void collect(int& end, std::string& text) {
    char part[PART];
    const ssize_t count = read(end, part, sizeof part);
    if (count > 0) text.append(part, static_cast<std::size_t>(count));
    const bool has_ended = count == 0 || (count < 0 && errno != EINTR);
    if (has_ended) close_end(end);
}

void exchange(Pipes& pipes, std::string_view input, ProcessResult& result) {
    if (input.empty()) close_end(pipes.input.write_end);
    while (pipes.output.read_end >= 0 || pipes.errors.read_end >= 0 || pipes.input.write_end >= 0) {
        pollfd ends[] = {{pipes.input.write_end, POLLOUT, 0},  // poll passes over those that are closed
                         {pipes.output.read_end, POLLIN, 0},
                         {pipes.errors.read_end, POLLIN, 0}};
        if (poll(ends, 3, -1) < 0 && errno != EINTR) return;
        if (ends[0].revents != 0) feed(pipes.input.write_end, input);
        if (ends[1].revents != 0) collect(pipes.output.read_end, result.output);
        if (ends[2].revents != 0) collect(pipes.errors.read_end, result.errors);
    }
}

// A program is forgotten before its number is free for another one.
int wait_for(pid_t process) {
    siginfo_t info = {};
    while (waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
    }
    forget_running(process);
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFSIGNALED(status) ? STATUS_OF_SIGNAL + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

ProcessResult run_process(const std::vector<std::string>& arguments, std::string_view input) {
    ProcessResult result;
    Pipes pipes;
    if (!pipes.open()) {
        result.errors = std::strerror(errno);
        return result;
    }
    const WithoutBrokenPipeSignal quiet;
    pid_t process = 0;
    const int failure = spawn(process, arguments, pipes, quiet.before());
    if (failure != 0) {
        result.is_missing = failure == ENOENT;
        result.errors = std::strerror(failure);
        return result;
    }
    note_running(process);
    pipes.close_program_ends();
    exchange(pipes, input, result);
    result.status = wait_for(process);
    return result;
}

// Not by SIGTERM: Csound has a handler for it and may go on for minutes. What a program
// has made so far is dropped anyway.
void end_running_processes() {
    for (const auto& slot : running) {
        const pid_t process = slot.load();
        if (process > 0) kill(process, SIGKILL);
    }
}

std::vector<char*> argument_vector(const std::vector<std::string>& arguments) {
    std::vector<char*> vector;
    vector.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) vector.push_back(const_cast<char*>(argument.c_str()));
    vector.push_back(nullptr);
    return vector;
}

std::string how_to_install(const std::string& program, const std::string& package) {
    return program + " is needed for this and is not installed (Debian: apt install " + package + ")";
}

std::string reason_against_program(const std::string& program, const std::string& package) {
    return run_process({program, "--version"}).is_missing ? how_to_install(program, package) : "";
}

}  // namespace vorn::kit
