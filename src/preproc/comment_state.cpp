#include "preproc/comment_state.h"

// The macro scan of a line comes first and leaves IN_COMMENT as it stands at
// the line's end; the constant scan of the same line starts from there:
//
//     p3 re ~A /* begins     ~A is not expanded: the flag is already set
//     ends ~A */ ~A          both are expanded: the flag is already clear
//
// Both are kept on purpose.

namespace vorn {

unsigned char IN_COMMENT = 0;

void reset_comment_state() { IN_COMMENT = 0; }

}  // namespace vorn
