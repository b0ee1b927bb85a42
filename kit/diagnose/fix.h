#pragma once

#include <optional>
#include <string>

#include "kit/diagnose/diagnostic.h"

namespace vorn::kit {

// The edits of a diagnostic as one change of one file, with words for it as an editor
// offers them: "write `0.9` instead of `0,9`".
struct Fix {
    FileSpan span;
    std::string replacement;
    std::string title;
};

// Nothing where no cure is certain.
[[nodiscard]] std::optional<Fix> fix_of(const Diagnostic& diagnostic, const SourceMap& map);

// The title, where no advice of the diagnostic says already what to write.
[[nodiscard]] std::string untold_fix(const Diagnostic& diagnostic, const SourceMap& map);

}  // namespace vorn::kit
