#pragma once

#include <optional>
#include <string>

// How the library reaches files. The command reads those of the system, a web
// page the texts of its editor, a test a table: the library itself opens nothing.

namespace vorn::kit {

class Sources {
public:
    virtual ~Sources() = default;

    // The whole text of the file `name`; nothing when it cannot be read.
    virtual std::optional<std::string> read(const std::string& name) = 0;
};

}  // namespace vorn::kit
