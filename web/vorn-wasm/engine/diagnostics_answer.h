#pragma once

#include <vector>

#include "kit/diagnose/diagnostic.h"
#include "web/vorn-wasm/engine/json_text.h"

namespace vorn::web {

// Places are [file, first byte, byte behind, line, character, end line, end character],
// the file as an index into the files of the run; null where there is none.
void add_place(JsonText& json, std::string_view name, const kit::FileSpan& span, const kit::SourceMap& map);

void add_diagnostics(JsonText& json, const std::vector<kit::Diagnostic>& diagnostics,
                     const kit::SourceMap& map);

}  // namespace vorn::web
