#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorn::kit {

// 16 hexadecimal digits that change when any of the texts does (FNV-1a, 64 bits:
// G. Fowler, L. C. Noll, K.-P. Vo). Against oversight, not against malice.
[[nodiscard]] std::string fingerprint(const std::vector<std::string_view>& texts);

}  // namespace vorn::kit
