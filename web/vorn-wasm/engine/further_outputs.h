#pragma once

#include "web/vorn-wasm/engine/compilation.h"

namespace vorn::web {

// Tables, pictures, the MIDI file of all blocks, an orchestra: what was asked for goes to
// `texts`. The small module makes none of them.
void make_further_outputs(Compilation& compilation, const Request& request);

}  // namespace vorn::web
