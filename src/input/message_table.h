#pragma once

namespace vorn {

// The text of an error or warning number; "Unspecified error..." or
// "Unspecified warning..." for a number without one.
const char* error_text(int number);
const char* warning_text(int number);

}  // namespace vorn
