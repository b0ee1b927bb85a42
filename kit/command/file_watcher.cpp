#include "kit/command/file_watcher.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

// Folders are watched and not files, since editors save by renaming a new file over
// the old one, whose watch would then be that of a file without a name. Of a link the
// folder of the file behind it counts as well.

namespace vorn::kit {

namespace {

constexpr std::uint32_t EVENTS = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_CREATE;

std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string name_in_folder(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string behind_links(const std::string& path) {
    char* const resolved = realpath(path.c_str(), nullptr);
    std::string target = resolved != nullptr ? resolved : path;
    std::free(resolved);
    return target;
}

using NamesByFolder = std::map<int, std::set<std::string>>;

bool holds(const NamesByFolder& all, const NamesByFolder& some) {
    return std::all_of(some.begin(), some.end(), [&](const auto& entry) {
        const auto found = all.find(entry.first);
        return found != all.end() && std::includes(found->second.begin(), found->second.end(),
                                                   entry.second.begin(), entry.second.end());
    });
}

}  // namespace

FileWatcher::FileWatcher() : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FileWatcher::~FileWatcher() {
    if (descriptor_ >= 0) close(descriptor_);
}

// A folder that is gone can be told of no more: its files are left out.
bool FileWatcher::add(const std::string& path) {
    const int folder = inotify_add_watch(descriptor_, folder_of(path).c_str(), EVENTS);
    if (folder < 0) {
        error_ = "cannot watch " + folder_of(path) + ": " + std::strerror(errno);
        return errno == ENOENT || errno == ENOTDIR;
    }
    names_[folder].insert(name_in_folder(path));
    return true;
}

bool FileWatcher::watch(const std::vector<std::string>& names) {
    std::map<int, std::set<std::string>> before;
    before.swap(names_);
    bool added = descriptor_ >= 0;
    if (!added) error_ = std::string("cannot watch files: ") + std::strerror(errno);
    for (const std::string& name : names) added = added && add(name) && add(behind_links(name));
    has_new_names_ = !holds(before, names_);
    for (const auto& [folder, unused] : before) {
        if (names_.count(folder) == 0) inotify_rm_watch(descriptor_, folder);
    }
    return added;
}

bool FileWatcher::concerns(int folder, const char* name) const {
    const auto found = names_.find(folder);
    return found != names_.end() && found->second.count(name) > 0;
}

bool FileWatcher::take_changes() {
    alignas(inotify_event) char events[1 << 14];
    bool concerned = false;
    for (ssize_t size = read(descriptor_, events, sizeof events); size > 0;
         size = read(descriptor_, events, sizeof events)) {
        for (const char* at = events; at < events + size;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(at);
            const bool lost = (event->mask & IN_Q_OVERFLOW) != 0;
            concerned = concerned || lost || (event->len > 0 && concerns(event->wd, event->name));
            at += sizeof(inotify_event) + event->len;
        }
    }
    return concerned;
}

}  // namespace vorn::kit
