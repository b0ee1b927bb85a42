#pragma once

namespace vorn::kit {

extern const char* const SHEET_STYLE;   // CSS
extern const char* const SHEET_SCRIPT;  // JavaScript

}  // namespace vorn::kit
