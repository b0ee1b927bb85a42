#pragma once

#include <string_view>

// A text of a table that is told on request alone, such as an example. An engine that is
// sent to pages is to be small: compiled with VORN_WITHOUT_FURTHER_TEXTS it holds the
// same tables, in which these texts are empty and no part of the program.

namespace vorn::kit {

#ifdef VORN_WITHOUT_FURTHER_TEXTS
struct FurtherText {
    constexpr FurtherText(const char* = "") {}
    constexpr operator std::string_view() const { return {}; }
};
#else
using FurtherText = std::string_view;
#endif

}  // namespace vorn::kit
