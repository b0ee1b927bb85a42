#include "support/running_program.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

// Waiting is polling, a few milliseconds at a time, with a deadline: nothing here
// can hang, and nothing depends on how long a step of the program takes.

namespace vorn::test {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds PATIENCE{30};
constexpr unsigned TIME_LIMIT = 120;  // seconds of a whole run
constexpr const char* TEMPORARY_PREFIX = "vorn";
constexpr std::size_t TEMPORARY_LENGTH = 10;  // "vorn" and six characters

bool waited_for(const std::function<bool()>& happened) {
    const auto deadline = std::chrono::steady_clock::now() + PATIENCE;
    while (!happened()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

bool is_temporary_name(const std::string& name) {
    return name.size() == TEMPORARY_LENGTH && name.starts_with(TEMPORARY_PREFIX) &&
           name.find('-') == std::string::npos;
}

void redirect(int descriptor, const fs::path& path, int flags) {
    const int opened = open(path.c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0) _exit(125);
    if (opened != descriptor) close(opened);
}

void limit(int resource, rlim_t value) {
    const rlimit both = {value, value};
    if (setrlimit(static_cast<__rlimit_resource>(resource), &both) != 0) _exit(125);
}

[[noreturn]] void become_program(const fs::path& folder, const fs::path& streams, char* const* argv,
                                 const Limits& limits) {
    redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
    redirect(STDOUT_FILENO, streams / "out", O_WRONLY | O_CREAT);
    const bool is_named = !limits.standard_error.empty();
    redirect(STDERR_FILENO, is_named ? fs::path(limits.standard_error) : streams / "err",
             O_WRONLY | (is_named ? O_NOCTTY : O_CREAT));
    if (chdir(folder.c_str()) != 0) _exit(125);
    // A job in the background inherits interrupts that are ignored.
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) std::signal(number, SIG_DFL);
    unsetenv("TMPDIR");
    if (limits.tmpdir != nullptr) setenv("TMPDIR", limits.tmpdir, 1);
    alarm(TIME_LIMIT);
    limit(RLIMIT_CORE, 0);
    // Whatever runs the tests may have left descriptors of its own open.
    close_range(STDERR_FILENO + 1, ~0U, 0);
    if (!limits.standard_streams) close_range(STDIN_FILENO, STDERR_FILENO, 0);
    if (limits.open_files != 0) limit(RLIMIT_NOFILE, limits.open_files);
    if (limits.file_size != 0) limit(RLIMIT_FSIZE, limits.file_size);
    if (limits.memory != 0) limit(RLIMIT_AS, limits.memory);
    execv(VORN_PROGRAM, argv);
    _exit(126);
}

}  // namespace

RunningProgram::RunningProgram(const WorkFolder& folder, const Arguments& arguments, const Limits& limits)
    : folder_(folder) {
    std::vector<const char*> argv = {"vorn"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    argv.push_back(nullptr);
    child_ = fork();
    if (child_ < 0) throw std::runtime_error("cannot start a program");
    if (child_ == 0) {
        become_program(folder.path(), streams_.path(), const_cast<char* const*>(argv.data()), limits);
    }
}

RunningProgram::~RunningProgram() {
    if (child_ < 0) return;
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
}

fs::path RunningProgram::temporary_file() const {
    const fs::path descriptors = "/proc/" + std::to_string(child_) + "/fd";
    fs::path found;
    const bool there = waited_for([&] {
        std::error_code ignored;
        for (const fs::directory_entry& entry : fs::directory_iterator(descriptors, ignored)) {
            const fs::path target = fs::read_symlink(entry.path(), ignored);
            if (is_temporary_name(target.filename().string())) found = target;
        }
        return !found.empty();
    });
    if (!there) throw std::runtime_error("the program opened no temporary file");
    return found;
}

void RunningProgram::send_signal(int number) const { kill(child_, number); }

RunResult RunningProgram::wait() {
    int ended = 0;
    waitpid(child_, &ended, 0);
    child_ = -1;
    RunResult result;
    result.status = WIFSIGNALED(ended) ? -WTERMSIG(ended) : WEXITSTATUS(ended);
    result.out = streams_.read("out");
    if (fs::exists(streams_.path() / "err")) result.err = streams_.read("err");
    result.files = folder_.files();
    return result;
}

void make_pipe(const WorkFolder& folder, const std::string& name) {
    if (mkfifo((folder.path() / name).c_str(), 0600) != 0) throw std::runtime_error("cannot make a pipe");
}

PipeEnd::PipeEnd(const WorkFolder& folder, const std::string& name) : descriptor_(-1) {
    const fs::path path = folder.path() / name;
    const bool opened = waited_for([&] {
        descriptor_ = open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        return descriptor_ >= 0;
    });
    if (!opened) throw std::runtime_error("nobody reads the pipe " + name);
}

void PipeEnd::write(const std::string& bytes) const {
    if (::write(descriptor_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
        throw std::runtime_error("cannot write to the pipe");
    }
}

void PipeEnd::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

TemporaryFileWatch::TemporaryFileWatch() : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (descriptor_ < 0 || inotify_add_watch(descriptor_, P_tmpdir, IN_CREATE) < 0) {
        throw std::runtime_error("cannot watch " P_tmpdir);
    }
}

TemporaryFileWatch::~TemporaryFileWatch() { ::close(descriptor_); }

void TemporaryFileWatch::read_events() {
    alignas(inotify_event) char events[1 << 14];
    for (;;) {
        const ssize_t size = read(descriptor_, events, sizeof events);
        if (size <= 0) return;
        for (const char* at = events; at < events + size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            if (event->len > 0 && is_temporary_name(event->name)) names_.insert(event->name);
            at += sizeof(inotify_event) + event->len;
        }
    }
}

bool TemporaryFileWatch::saw_one() {
    read_events();
    return !names_.empty();
}

std::string TemporaryFileWatch::left_behind() {
    read_events();
    for (const std::string& name : names_) {
        const fs::path path = fs::path(P_tmpdir) / name;
        if (!waited_for([&] { return !fs::exists(path); })) return path.string();
    }
    return "";
}

}  // namespace vorn::test
