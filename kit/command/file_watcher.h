#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

struct inotify_event;

namespace vorn::kit {

// Tells when files change, appear or vanish, without looking at them again and
// again: the kernel reports what happens in their folders (inotify).
class FileWatcher {
public:
    FileWatcher();
    ~FileWatcher();
    FileWatcher(const FileWatcher&) = delete;
    FileWatcher& operator=(const FileWatcher&) = delete;

    // The files to be told of from now on; neither they nor their folders need exist.
    // False, with the reason in error(), when the kernel takes no more folders.
    [[nodiscard]] bool watch(const std::vector<std::string>& names);

    // Whether the last call of watch() named a file that was not watched before.
    bool has_new_names() const { return has_new_names_; }

    // To be waited for; readable when something happened in a folder.
    int descriptor() const { return descriptor_; }

    // Takes in what has happened; true when it concerns one of the files.
    [[nodiscard]] bool take_changes();

    const std::string& error() const { return error_; }

private:
    bool add(const std::string& path);
    bool add_with_links(const std::string& name);
    bool concerns(const inotify_event& event) const;

    int descriptor_;
    std::map<int, std::set<std::string>> names_;  // by watched folder: names in it
    bool has_new_names_ = false;
    std::string error_;
};

}  // namespace vorn::kit
