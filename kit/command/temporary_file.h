#pragma once

#include <string>
#include <string_view>

#include "kit/command/atomic_file.h"

namespace vorn::kit {

// A file for other programs to read or to write, gone with the object, or when the
// command is interrupted. It lies in the folder that TMPDIR names, else in /tmp.
class TemporaryFile {
public:
    // `ending` as ".sco". False, with error() set, when it cannot be made.
    [[nodiscard]] bool make(const std::string& ending, std::string_view text = {});

    const std::string& name() const { return file_.written_name(); }
    const std::string& error() const { return file_.error(); }

private:
    AtomicFile file_;  // never kept
};

}  // namespace vorn::kit
