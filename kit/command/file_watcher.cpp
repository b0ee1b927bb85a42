#include "kit/command/file_watcher.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

// Folders are watched and not files, since editors save by renaming a new file over
// the old one, whose watch would then be that of a file without a name. Of a link, be it to
// a file or a folder, that which it points to counts as well, there or not. A folder does
// not tell when one above it is moved, so these are watched too, for its name; where it is
// missing, until it appears.

namespace vorn::kit {

namespace {

namespace fs = std::filesystem;

constexpr int MOST_LEVELS = 8;  // folders above a file that are watched
constexpr int MOST_LINKS = 40;  // that lead to it; with more the system takes it for a circle
constexpr std::uint32_t FOLDER_GOES = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t EVENTS =
    IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_CREATE | FOLDER_GOES;

std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string name_in_folder(const std::string& path) { return path.substr(path.rfind('/') + 1); }

// The path with its first link replaced by what that says; empty: there is none.
std::string behind_first_link(const std::string& path) {
    std::error_code no_link;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('/', end + 1);
        const std::string link = path.substr(0, end);
        const fs::path target = fs::read_symlink(link, no_link);
        if (no_link) continue;
        return (fs::path(folder_of(link)) / target).string() +
               (end == std::string::npos ? "" : path.substr(end));
    }
    return {};
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

// From the file's own folder upwards the first that is there must be watched; one further
// up may be such that it cannot be read.
bool FileWatcher::add(const std::string& path) {
    bool is_watched = false;
    std::string below = path;
    for (int level = 0; level < MOST_LEVELS || !is_watched; ++level) {
        const std::string above = folder_of(below);
        const int folder = inotify_add_watch(descriptor_, above.c_str(), EVENTS);
        if (folder >= 0) names_[folder].insert(name_in_folder(below));
        is_watched = is_watched || folder >= 0;
        if (!is_watched) error_ = "cannot watch " + above + ": " + std::strerror(errno);
        if (!is_watched && errno != ENOENT && errno != ENOTDIR && errno != ELOOP) return false;
        if (above == below) break;  // "/"; or the current folder, which may be gone
        below = above;
    }
    return true;
}

// The folder of a link on the way may be such that it cannot be read.
bool FileWatcher::add_with_links(const std::string& name) {
    bool added = add(name);
    std::string path = behind_first_link(name);
    for (int links = 1; added && links <= MOST_LINKS && !path.empty(); ++links) {
        const std::string next = behind_first_link(path);
        added = add(path) || !next.empty();
        path = next;
    }
    return added;
}

bool FileWatcher::watch(const std::vector<std::string>& names) {
    std::map<int, std::set<std::string>> before;
    before.swap(names_);
    bool added = descriptor_ >= 0;
    if (!added) error_ = std::string("cannot watch files: ") + std::strerror(errno);
    for (const std::string& name : names) added = added && add_with_links(name);
    has_new_names_ = !holds(before, names_);
    for (const auto& [folder, unused] : before) {
        if (names_.count(folder) == 0) inotify_rm_watch(descriptor_, folder);
    }
    return added;
}

bool FileWatcher::concerns(const inotify_event& event) const {
    if ((event.mask & IN_Q_OVERFLOW) != 0) return true;  // some were lost
    const auto found = names_.find(event.wd);
    if (found == names_.end()) return false;
    return (event.mask & FOLDER_GOES) != 0 || (event.len > 0 && found->second.count(event.name) > 0);
}

bool FileWatcher::take_changes() {
    alignas(inotify_event) char events[1 << 14];
    bool concerned = false;
    for (ssize_t size = read(descriptor_, events, sizeof events); size > 0;
         size = read(descriptor_, events, sizeof events)) {
        for (const char* at = events; at < events + size;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(at);
            concerned = concerned || concerns(*event);
            at += sizeof(inotify_event) + event->len;
        }
    }
    return concerned;
}

}  // namespace vorn::kit
