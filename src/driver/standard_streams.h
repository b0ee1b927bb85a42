#pragma once

namespace vorn {

// Opens the null device in the place of each standard stream that is closed.
// For the command, before it opens a file.
void keep_standard_streams();

}  // namespace vorn
