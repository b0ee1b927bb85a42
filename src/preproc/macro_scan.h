#pragma once

// The scan of each line for calls and definitions of macros. Its entry point,
// parse_macros, is declared in preproc/preprocessor.h.

namespace vorn {

// "#" characters seen of the definition being scanned, 1 or 2; 0: no definition.
// Written by the scan; a definition may run over several lines.
extern int IN_MACRO_DEF;

void reset_macro_scan();

}  // namespace vorn
