#pragma once

#include "input/reader.h"
#include "preproc/constant_list.h"

// The "#const" command and its pieces; its entry point, parse_var, is declared in
// preproc/preprocessor.h. All return 0 or an error number.

namespace vorn {

// "const" NAME value, of which pos stands on the "c". `constant` receives the
// new record, which is not in the list yet.
[[nodiscard]] int get_var(OwnedConstant& constant, Reader& reader);

[[nodiscard]] int get_vdefine(const char* text, std::int32_t& pos);
[[nodiscard]] int get_vdata(Constant& constant, Reader& reader);

}  // namespace vorn
