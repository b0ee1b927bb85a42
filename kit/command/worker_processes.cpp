#include "kit/command/worker_processes.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <thread>
#include <vector>

#include "kit/command/interruption.h"

// The next task is a counter in memory that all share; results come through one
// pipe, in records small enough to be written whole. The pipe ends when every worker
// has. A worker that crashed left its task in its slot: that task is reported, and
// further workers take what is left.

namespace vorn::kit {

namespace {

constexpr std::size_t MOST_PROCESSES = 256;
constexpr std::size_t MAX_REASON = 4000;
constexpr std::uint64_t NO_TASK = ~std::uint64_t{0};
constexpr int PATIENCE = 250;  // milliseconds, in case a signal came just before the wait
constexpr int ENDING_SIGNALS[] = {SIGINT, SIGTERM, SIGHUP};

struct Shared {
    std::atomic<std::uint64_t> next;
    std::atomic<std::uint64_t> current[MOST_PROCESSES];  // task of each worker
};

struct Record {
    std::uint64_t task;
    int outcome;
    char reason[MAX_REASON + 1];
};
static_assert(sizeof(Record) <= PIPE_BUF);  // what a pipe takes whole

volatile std::sig_atomic_t ended_by = 0;

void note_signal(int number) { ended_by = number; }

// What the signals did before is what they do afterwards.
class SignalsNoted {
public:
    SignalsNoted() {
        ended_by = 0;
        struct sigaction action = {};
        action.sa_handler = note_signal;
        for (std::size_t at = 0; at < std::size(ENDING_SIGNALS); ++at) {
            sigaction(ENDING_SIGNALS[at], nullptr, &before_[at]);
            const bool is_ignored = before_[at].sa_handler == SIG_IGN;  // from the start: nohup
            if (!is_ignored) sigaction(ENDING_SIGNALS[at], &action, nullptr);
        }
    }
    ~SignalsNoted() {
        for (std::size_t at = 0; at < std::size(ENDING_SIGNALS); ++at) {
            sigaction(ENDING_SIGNALS[at], &before_[at], nullptr);
        }
    }
    SignalsNoted(const SignalsNoted&) = delete;
    SignalsNoted& operator=(const SignalsNoted&) = delete;

private:
    struct sigaction before_[std::size(ENDING_SIGNALS)] = {};
};

void send(int pipe, const TaskResult& result) {
    Record record = {};
    record.task = result.task;
    record.outcome = static_cast<int>(result.outcome);
    std::memcpy(record.reason, result.reason.data(), std::min(result.reason.size(), MAX_REASON));
    if (write(pipe, &record, sizeof record) != sizeof record) _exit(1);  // nobody listens any more
}

class Workers {
public:
    explicit Workers(const WorkerOptions& options) : options_(options) {}
    ~Workers() {
        if (shared_ != nullptr) munmap(shared_, sizeof(Shared));
    }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    int run();

private:
    void run_round();
    void begin(std::size_t slot, const int (&ends)[2]);
    [[noreturn]] void work(std::size_t slot, int pipe);
    void listen(int pipe);
    void take_ended();
    void report(const TaskResult& result);
    std::uint64_t left() const {
        return options_.tasks - std::min<std::uint64_t>(shared_->next, options_.tasks);
    }

    const WorkerOptions& options_;
    Shared* shared_ = nullptr;
    std::vector<pid_t> workers_;  // by slot
    std::string failure_;         // why no process can be started
};

void Workers::work(std::size_t slot, int pipe) {
    clean_up_when_interrupted();
    while (ended_by == 0) {  // told to end before it could be interrupted
        const std::uint64_t task = shared_->next++;
        if (task >= options_.tasks) break;
        shared_->current[slot] = task;
        send(pipe, options_.work(static_cast<std::size_t>(task)));
        shared_->current[slot] = NO_TASK;
    }
    _exit(0);
}

void Workers::begin(std::size_t slot, const int (&ends)[2]) {
    shared_->current[slot] = NO_TASK;
    const pid_t process = fork();
    if (process == 0) {
        close(ends[0]);
        work(slot, ends[1]);
    }
    if (process > 0) workers_.push_back(process);
    if (process < 0) failure_ = std::strerror(errno);
}

void Workers::listen(int pipe) {
    Record record = {};
    bool has_told = false;
    for (;;) {
        if (ended_by != 0 && !has_told) {
            for (const pid_t worker : workers_) kill(worker, SIGTERM);
            has_told = true;
        }
        pollfd results = {pipe, POLLIN, 0};
        if (poll(&results, 1, PATIENCE) <= 0) continue;
        const ssize_t size = read(pipe, &record, sizeof record);
        if (size == 0) return;
        if (size == sizeof record) {
            options_.report(
                {static_cast<std::size_t>(record.task), static_cast<Outcome>(record.outcome), record.reason});
        }
    }
}

void Workers::take_ended() {
    for (std::size_t slot = 0; slot < workers_.size(); ++slot) {
        int status = 0;
        while (waitpid(workers_[slot], &status, 0) < 0 && errno == EINTR) {
        }
        const std::uint64_t task = shared_->current[slot];
        if (task == NO_TASK || ended_by != 0) continue;
        const std::string why = WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "it ended early";
        options_.report({static_cast<std::size_t>(task), Outcome::WRONG_USE,
                         "the process that made it was lost: " + why});
    }
    workers_.clear();
}

void Workers::run_round() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        failure_ = std::strerror(errno);
        return;
    }
    std::fflush(nullptr);  // or each worker would write it once more
    const auto useful = std::min<std::uint64_t>({options_.processes, left(), MOST_PROCESSES});
    for (std::size_t slot = 0; slot < useful && (slot == 0 || failure_.empty()); ++slot) begin(slot, ends);
    close(ends[1]);
    listen(ends[0]);
    close(ends[0]);
    take_ended();
}

int Workers::run() {
    void* const memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return options_.report({0, Outcome::WRONG_USE, std::strerror(errno)}), 0;
    shared_ = new (memory) Shared();
    while (left() > 0 && ended_by == 0) {
        const std::uint64_t before = left();
        run_round();
        if (left() < before) continue;
        while (left() > 0)
            options_.report({static_cast<std::size_t>(shared_->next++), Outcome::WRONG_USE, failure_});
    }
    return ended_by;
}

}  // namespace

int run_workers(const WorkerOptions& options) {
    const SignalsNoted noted;
    return Workers(options).run();
}

void end_by_signal(int number) {
    std::signal(number, SIG_DFL);
    std::raise(number);
    _exit(128 + number);
}

std::size_t usual_processes() { return std::max(1U, std::thread::hardware_concurrency()); }

}  // namespace vorn::kit
