#include "kit/command/outputs.h"

#include <sys/stat.h>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/system_sources.h"

// What hinders an output is told here, so that all subcommands say it alike.

namespace vorn::kit {

bool may_write(const std::string& path, const SystemSources& sources) {
    if (path.empty()) {
        complain("the output has no name");
        return false;
    }
    struct stat found = {};
    if (path != "-" && stat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode)) {
        complain("\"" + path + "\" is a folder, not a file to write");
        return false;
    }
    if (path == "-" || !sources.has_read(path)) return true;
    complain("\"" + path + "\" is read for this; write to another file");
    return false;
}

bool takes_file(const std::string& path) {
    AtomicFile file;  // dropped at once
    if (file.open(path)) return true;
    complain(file.error());
    return false;
}

bool is_picture_name(const std::string& name) {
    if (name.ends_with(".svg") || name.ends_with(".png") || name.ends_with(".html")) return true;
    complain("\"" + name + "\" must end with .svg, .png or .html");
    return false;
}

}  // namespace vorn::kit
