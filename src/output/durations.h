#pragma once

namespace vorn {

extern double CUM_TIME;     // seconds: the largest end time of any block so far
extern double LAST_IB_DUR;  // seconds: duration of the last block written

void reset_durations();

}  // namespace vorn
