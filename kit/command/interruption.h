#pragma once

namespace vorn::kit {

// From now on a signal that ends the command (Ctrl-C, a closed terminal) first ends the
// programs that it runs and removes the files that are not complete.
void clean_up_when_interrupted();

}  // namespace vorn::kit
