#pragma once

#include "kit/run/sources.h"

// The texts that the caller has put into the module's file system.

namespace vorn::web {

class FileSources final : public kit::Sources {
public:
    std::optional<std::string> read(const std::string& name) override;
    bool is_same(const std::string& name, const std::string& other) override;
};

void write_text(const std::string& name, const std::string& text);

}  // namespace vorn::web
