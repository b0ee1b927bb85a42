#include "kit/command/temporary_file.h"

#include <cstdlib>

// Such a file is one that never becomes complete: what drops those when the command ends
// or is interrupted drops these, too.

namespace vorn::kit {

bool TemporaryFile::make(const std::string& ending, std::string_view text) {
    const char* const folder = std::getenv("TMPDIR");
    const std::string place = folder == nullptr || *folder == 0 ? "/tmp" : folder;
    return file_.open(place + "/vornkit" + ending) && file_.write(text) && file_.flush();
}

}  // namespace vorn::kit
