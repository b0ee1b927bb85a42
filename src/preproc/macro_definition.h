#pragma once

#include "input/reader.h"
#include "preproc/macro_list.h"

// The "#" commands: "#define" and its pieces, and "#undef". parse_macro, which
// chooses among them, is declared in preproc/preprocessor.h.
//
// All return 0 or an error number; on failure pos rests on the offending character.

namespace vorn {

// "define" NAME ["(" formals ")"] "#" body "#", of which pos stands on the "d".
// `macro` receives the new record, which belongs to no list yet.
[[nodiscard]] int get_macro(OwnedMacro& macro, Reader& reader);

[[nodiscard]] int get_define(const char* text, std::int32_t& pos);
[[nodiscard]] int get_name(Macro& macro, Reader& reader);
[[nodiscard]] int get_args(Macro& macro, Reader& reader);
[[nodiscard]] int get_body(Macro& macro, Reader& reader);

// "undef" NAME
[[nodiscard]] int do_undefine(const char* text, std::int32_t& pos, const WatchedLine& line);

}  // namespace vorn
