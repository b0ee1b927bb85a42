#pragma once

#include <cstdint>

namespace vorn {

// Moves over the keyword of a "#" command ("define", "undef", "const") and checks
// that white space follows it; 80 with pos on the offending character if not. The
// keyword passes when one single character of it is right in its place, so that
// "#dxxxxx" defines a macro: kept on purpose.
[[nodiscard]] int skip_keyword(const char* text, std::int32_t& pos, const char* keyword);

}  // namespace vorn
