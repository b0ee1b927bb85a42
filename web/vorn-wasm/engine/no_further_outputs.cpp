#include "web/vorn-wasm/engine/further_outputs.h"

// In the small module, which a page loads first: its caller turns to the whole one for more.

namespace vorn::web {

void make_further_outputs(Compilation&, const Request&) {}

}  // namespace vorn::web
