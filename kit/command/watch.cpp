#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>

#include "kit/command/background_tasks.h"
#include "kit/command/console.h"
#include "kit/command/file_watcher.h"
#include "kit/command/outputs.h"
#include "kit/command/process.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"

// vornkit watch: at each change of the score, an included file or the orchestra the
// mistakes are told at once; then picture and sound are made again in the background,
// by this same command. A newer change ends what is still being made. With a mistake
// nothing is made, so the last good outputs stay.

namespace vorn::kit {

namespace {

constexpr int MAX_READINGS = 10;  // of a score that changes while it is read; the next change is told anyway
constexpr int QUIET_TIME = 15;    // milliseconds: a save of several steps is one change

struct WatchArguments {
    std::string score;
    std::string orchestra;
    std::string picture;
    std::string sound;
    bool relative = false;
};

using Task = std::vector<std::string>;

std::string own_program() {
    char path[4096];
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path);
    return size > 0 ? std::string(path, static_cast<std::size_t>(size)) : "vornkit";
}

std::deque<Task> make_tasks(const WatchArguments& arguments) {
    std::deque<Task> tasks;
    if (!arguments.picture.empty()) {
        tasks.push_back({own_program(), "picture", arguments.score, "-o", arguments.picture});
    }
    if (!arguments.sound.empty()) {
        tasks.push_back({own_program(), "play", arguments.score});
        if (!arguments.orchestra.empty()) tasks.back().push_back(arguments.orchestra);
        tasks.back().insert(tasks.back().end(), {"--wav", arguments.sound});
    }
    for (Task& task : tasks) {
        if (arguments.relative) task.push_back("--relative");
    }
    return tasks;
}

// The signals that end the watch or tell of a child, as something to wait for.
int open_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGCHLD}) sigaddset(&signals, number);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
}

std::size_t count_events(const ScoreRun& run) {
    std::size_t count = 0;
    for (const BlockRecord& block : run.blocks) count += block.events.size();
    return count;
}

// Whether the files still hold what the run has read; one that it did not find, nothing.
bool is_as_read(const ScoreRun& run, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const std::optional<std::string> text = SystemSources().read(name);
        const auto& files = run.map.files();
        const auto found = std::find_if(files.begin(), files.end(),
                                        [&](const SourceFile& file) { return file.name == name; });
        const bool was_found = found != files.end();
        if (was_found != text.has_value() || (was_found && found->text != *text)) return false;
    }
    return true;
}

class Watch {
public:
    explicit Watch(const WatchArguments& arguments) : arguments_(arguments) {}
    Outcome run();

private:
    bool read_and_watch(ScoreRun& run);
    bool takes_outputs(const ScoreRun& run) const;
    bool look();
    bool wait_for_change();
    bool take_signals();
    void let_changes_settle();

    const WatchArguments& arguments_;
    FileWatcher files_;
    BackgroundTasks tasks_;
    int signals_ = -1;
    bool is_possible_ = false;  // the score and the outputs are such that there is something to do
};

// Runs the score and watches what it has read; false when that cannot be watched. A
// file may change between its reading and its watch: then it is read again.
bool Watch::read_and_watch(ScoreRun& run) {
    for (int reading = 0; reading < MAX_READINGS; ++reading) {
        SystemSources sources;
        RunOptions options;
        options.relative = arguments_.relative;
        run = run_of_files(arguments_.score, options, sources);
        std::vector<std::string> names = sources.names();
        names.push_back(arguments_.score);  // also one that cannot be read now: a folder in its place
        if (!arguments_.orchestra.empty()) names.push_back(arguments_.orchestra);
        if (!files_.watch(names)) return false;
        if (!files_.has_new_names() || is_as_read(run, sources.names())) break;
    }
    return true;
}

// What no change of the score will mend is told before the watch begins.
bool Watch::takes_outputs(const ScoreRun& run) const {
    SystemSources sources;
    for (const SourceFile& file : run.map.files()) (void)sources.read(file.name);
    if (!arguments_.orchestra.empty()) (void)sources.read(arguments_.orchestra);
    for (const std::string& output : {arguments_.picture, arguments_.sound}) {
        if (!output.empty() && !(may_write(output, sources) && takes_file(output))) return false;
    }
    return true;
}

// Tells what is wrong and begins what is to be made; false when nothing can be watched.
bool Watch::look() {
    ScoreRun run;
    if (!read_and_watch(run)) return false;
    const bool is_found = was_found(arguments_.score, run);
    if (!is_possible_) is_possible_ = is_found && takes_outputs(run);
    if (!is_possible_) return true;
    if (is_found) tell_mistakes(run);
    tasks_.replace(run.status == 0 ? make_tasks(arguments_) : std::deque<Task>());
    if (run.status == 0) {
        std::printf("%s: %zu events, %.3f seconds\n", arguments_.score.c_str(), count_events(run),
                    run.seconds);
        std::fflush(stdout);
    }
    return true;
}

// True when the watch is to end.
bool Watch::take_signals() {
    signalfd_siginfo signal = {};
    bool ends = false;
    while (read(signals_, &signal, sizeof signal) == sizeof signal) {
        if (signal.ssi_signo != SIGCHLD) ends = true;
    }
    tasks_.take_ended();
    return ends;
}

void Watch::let_changes_settle() {
    pollfd files = {files_.descriptor(), POLLIN, 0};
    while (poll(&files, 1, QUIET_TIME) > 0 && files_.take_changes()) {
    }
}

// False when the watch is to end.
bool Watch::wait_for_change() {
    for (;;) {
        pollfd events[] = {{files_.descriptor(), POLLIN, 0}, {signals_, POLLIN, 0}};
        if (poll(events, 2, -1) < 0) continue;
        if (events[1].revents != 0 && take_signals()) return false;
        if (events[0].revents != 0 && files_.take_changes()) {
            let_changes_settle();
            return true;
        }
    }
}

Outcome Watch::run() {
    signals_ = open_signals();
    bool watching = look();
    if (watching && !is_possible_) return Outcome::WRONG_USE;  // the reason has been told
    while (watching && wait_for_change()) watching = look();
    if (!watching) complain(files_.error());
    return watching ? Outcome::WELL : Outcome::WRONG_USE;
}

// What makes the outputs must be there; empty: it is.
std::string reason_against_programs(const WatchArguments& arguments) {
    std::string reason;
    if (!arguments.sound.empty()) reason = reason_against_program("csound", "csound");
    if (!reason.empty() || !arguments.picture.ends_with(".png")) return reason;
    return reason_against_program("rsvg-convert", "librsvg2-bin");
}

Outcome watch(const WatchArguments& arguments) {
    if (arguments.score == "-") return wrong_use("standard input does not change; give the score as a file");
    if (arguments.picture == "-" || arguments.sound == "-") {
        return wrong_use("what is made anew cannot go to standard output; give a file");
    }
    if (!arguments.picture.empty() && !is_picture_name(arguments.picture)) return Outcome::WRONG_USE;
    if (!arguments.picture.empty() && arguments.picture == arguments.sound) {
        return wrong_use("picture and sound cannot be one file");
    }
    if (!arguments.orchestra.empty() && !SystemSources().read(arguments.orchestra)) {
        return wrong_use("cannot read the orchestra \"" + arguments.orchestra + "\"");
    }
    if (const std::string reason = reason_against_programs(arguments); !reason.empty()) {
        return wrong_use(reason);
    }
    return Watch(arguments).run();
}

}  // namespace

void add_watch(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("watch", "checks, draws and renders a score whenever it is saved");
    command->footer(
        "Example: vornkit watch piece.vorn --picture piece.svg\n"
        "         vornkit watch piece.vorn piece.orc --wav piece.wav\n"
        "Ends with Ctrl-C.");
    const auto arguments = std::make_shared<WatchArguments>();
    command->add_option("SCORE", arguments->score, "the score")->required();
    command->add_option("ORC", arguments->orchestra, "the orchestra; without it the built-in one");
    command->add_option("--picture", arguments->picture, "a picture to be kept new: .svg, .png or .html");
    command->add_option("--wav", arguments->sound, "a sound file to be kept new");
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->callback([arguments, &outcome] { outcome = watch(*arguments); });
}

}  // namespace vorn::kit
