#pragma once

#include "input/reader.h"

namespace vorn {

// "(" tempo ")"
// "(" start-beat end-beat start-tempo end-tempo [curve] ")"
// pos rests behind "te" on entry and behind ")" on success. Errors 19, 46, 63,
// 64, 96, 150 to 159.
[[nodiscard]] int get_tempo_change(Reader& reader);

}  // namespace vorn
