#pragma once

#include <string>

namespace vorn::kit {

// A document for Csound (.csd) that holds an orchestra and a score for Vorn, which
// Csound has translated each time: it plays at once.
[[nodiscard]] std::string document_text(const std::string& orchestra, const std::string& score);

}  // namespace vorn::kit
