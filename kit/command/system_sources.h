#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "kit/run/sources.h"

namespace vorn::kit {

extern const char* const STANDARD_INPUT;  // the name under which standard input is read, "<stdin>"

// "-" stands for standard input on a command line.
std::string source_name(const std::string& argument);

// The files of the system. Remembers what was read, for those who must not
// overwrite it or who wait for its changes.
class SystemSources final : public Sources {
public:
    std::optional<std::string> read(const std::string& name) override;
    std::FILE* open(const std::string& name, const std::string& text) override;
    bool is_same(const std::string& name, const std::string& other) override;
    bool is_written(const std::string& name) override;

    const std::vector<std::string>& names() const { return names_; }  // read or asked for, once each
    bool has_read(const std::string& path) const;  // whether `path` is one of the files, by whatever name
    void forget() { names_.clear(); }

private:
    std::vector<std::string> names_;
    std::optional<std::string> standard_input_;  // can be read once only
};

}  // namespace vorn::kit
