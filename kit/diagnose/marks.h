#pragma once

#include "kit/diagnose/site.h"

namespace vorn::kit {

// What to underline for the message with this code: the word or the item that is
// meant, which often stands before the place where reading stopped.
[[nodiscard]] Stretch mark_of(std::string_view code, const Site& site);

}  // namespace vorn::kit
