#pragma once

#include <sys/types.h>
#include <deque>
#include <string>
#include <vector>

namespace vorn::kit {

// Programs that run one after the other while somebody waits for something else.
// Each is ended when the object goes, or when there is newer work.
class BackgroundTasks {
public:
    BackgroundTasks() = default;
    ~BackgroundTasks() { replace({}); }
    BackgroundTasks(const BackgroundTasks&) = delete;
    BackgroundTasks& operator=(const BackgroundTasks&) = delete;

    // Ends what runs, forgets what waits, and begins with these.
    void replace(std::deque<std::vector<std::string>> tasks);

    // To be called when a child has ended (SIGCHLD): begins the next task. A task
    // that fails ends the row.
    void take_ended();

    bool is_busy() const { return running_ > 0; }

private:
    void begin_next();

    std::deque<std::vector<std::string>> waiting_;
    pid_t running_ = 0;
};

}  // namespace vorn::kit
