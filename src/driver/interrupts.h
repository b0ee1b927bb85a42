#pragma once

namespace vorn {

// From here on a signal that ends the process removes the temporary file first.
// For the command; a program that embeds the library has handlers of its own.
void remove_temporary_file_on_interrupt();

}  // namespace vorn
