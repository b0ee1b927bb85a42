#include "kit/command/progress.h"

#include <chrono>
#include <cstdio>

#include "kit/command/console.h"

// A thread waits for the end and wakes up now and then to write the line again; the
// work itself is never asked. Control characters of a file's name are not sent to
// the terminal.

namespace vorn::kit {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto PATIENCE = std::chrono::seconds(1);
constexpr auto INTERVAL = std::chrono::milliseconds(250);
constexpr std::size_t MAX_LENGTH = 60;  // bytes of what is done, so that the line stays one

std::string shown(const std::string& text) {
    std::string safe;
    for (const char c : text) safe += static_cast<unsigned char>(c) < ' ' || c == 127 ? '?' : c;
    return safe.size() <= MAX_LENGTH ? safe : safe.substr(0, MAX_LENGTH) + "...";
}

void print(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

}  // namespace

Progress::Progress(const std::string& doing) : doing_(shown(doing)) {
    if (is_able_terminal(stderr)) thread_ = std::thread(&Progress::show_until_over, this);
}

Progress::~Progress() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard lock(mutex_);
        is_over_ = true;
    }
    over_.notify_one();
    thread_.join();
}

void Progress::tell(std::uint64_t done, std::uint64_t total) {
    done_ = done;
    total_ = total;
}

std::string Progress::line(std::int64_t seconds) const {
    const std::uint64_t total = total_;
    std::string text = doing_;
    if (total > 0) text += ", " + std::to_string(done_) + " of " + std::to_string(total);
    return text + ", " + std::to_string(seconds) + " s";
}

void Progress::show_until_over() {
    const Clock::time_point begin = Clock::now();
    std::unique_lock lock(mutex_);
    const auto is_over = [this] { return is_over_; };
    if (over_.wait_for(lock, PATIENCE, is_over)) return;
    do {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin).count();
        print("\r" + line(seconds) + "\033[K");
    } while (!over_.wait_for(lock, INTERVAL, is_over));
    print("\r\033[K");
}

}  // namespace vorn::kit
