#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

// What takes longer than a second is shown in one line of standard error, where that
// is a terminal, and goes away when it is over:
//
//     reading piece.vorn, 3 s
//     rendering, 17 of 1000, 42 s

namespace vorn::kit {

class Progress {
public:
    explicit Progress(const std::string& doing);
    ~Progress();  // takes the line away
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // How far it is; may be told from any thread. A total of 0: nobody knows.
    void tell(std::uint64_t done, std::uint64_t total);

private:
    void show_until_over();
    std::string line(std::int64_t seconds) const;

    const std::string doing_;
    std::atomic<std::uint64_t> done_{0};
    std::atomic<std::uint64_t> total_{0};
    std::mutex mutex_;
    std::condition_variable over_;
    bool is_over_ = false;
    std::thread thread_;  // only where there is a terminal
};

}  // namespace vorn::kit
