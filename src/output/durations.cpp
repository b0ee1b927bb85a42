#include "output/durations.h"

// The two times that outlive a block: how far the score reaches and how long
// its last block was. The driver writes both when a block has been written.
//
// CUM_TIME is the largest end of any block, not a sum: a block of 4 seconds that
// starts at 2 and one of 3 that starts at 0 give 6. LAST_IB_DUR is a duration,
// without the block's start.

namespace vorn {

double CUM_TIME = 0.0;
double LAST_IB_DUR = 0.0;

void reset_durations() {
    CUM_TIME = 0.0;
    LAST_IB_DUR = 0.0;
}

}  // namespace vorn
