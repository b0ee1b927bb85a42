#pragma once

namespace vorn {

// Gives every program-wide variable its initial value, so that a run can be
// repeated in one process.
void reset_program();

}  // namespace vorn
