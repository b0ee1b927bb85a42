#pragma once

#include <cstdio>
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

    // A stream over that text, which stays where it is as long as the stream. The engine takes
    // one in memory for a device, whose length it limits. Null: there can be none.
    virtual std::FILE* open(const std::string& /*name*/, const std::string& text) {
        return fmemopen(const_cast<char*>(text.data()), text.size(), "r");
    }

    // Whether both names are of one file, which cannot be included while it is read.
    virtual bool is_same(const std::string& name, const std::string& other) { return name == other; }

    // Whether whoever reads writes that file, too: it would wait for itself.
    virtual bool is_written(const std::string& /*name*/) { return false; }
};

}  // namespace vorn::kit
