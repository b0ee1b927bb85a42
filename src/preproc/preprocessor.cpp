#include "preproc/preprocessor.h"

#include "preproc/comment_state.h"
#include "preproc/conditionals.h"
#include "preproc/macro_scan.h"

// The preprocessor as a whole: what one run leaves behind must not reach the next.
// The entry points themselves stand with what they do:
//
//     includes            parse_includes
//     conditionals        is_if, is_endif, do_if_interface, do_endif, in_if0, ifdef_match
//     macro_scan          parse_macros
//     macro_definition    parse_macro
//     constant_scan       parse_variables
//     constant_definition parse_var

namespace vorn {

void reset_preprocessor() {
    free_macro_list();
    free_variable_list();
    reset_comment_state();
    reset_macro_scan();
    reset_conditionals();
}

}  // namespace vorn
