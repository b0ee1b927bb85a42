#include "kit/command/console.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "kit/command/system_sources.h"

namespace vorn::kit {

bool is_terminal(std::FILE* stream) { return isatty(fileno(stream)) != 0; }

bool has_colors(std::FILE* stream) {
    const char* const refused = std::getenv("NO_COLOR");
    return (refused == nullptr || *refused == 0) && is_terminal(stream);
}

void complain(const std::string& text) { std::fprintf(stderr, "vornkit: %s\n", text.c_str()); }

bool may_write(const std::string& path, const SystemSources& sources) {
    struct stat found = {};
    if (path != "-" && stat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode)) {
        complain("\"" + path + "\" is a folder, not a file to write");
        return false;
    }
    if (path == "-" || !sources.has_read(path)) return true;
    complain("\"" + path + "\" is read for this; write to another file");
    return false;
}

}  // namespace vorn::kit
