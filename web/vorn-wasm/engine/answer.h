#pragma once

#include <string>
#include <vector>

#include "kit/orchestra/complaints.h"
#include "web/vorn-wasm/engine/compilation.h"

// Answers as JSON, as src/answer.ts reads them. Tables and large texts are not in it but
// where they lie in the module's memory, as [address, size]; they hold until the
// next call.

namespace vorn::web {

[[nodiscard]] std::string compilation_answer(const Compilation& compilation);
[[nodiscard]] std::string command_answer(const SaidTexts& said);
[[nodiscard]] std::string performance_answer(const kit::PerformanceReport& report, const kit::SourceMap& map);
[[nodiscard]] std::string texts_answer(const std::vector<std::string>& texts);

}  // namespace vorn::web
