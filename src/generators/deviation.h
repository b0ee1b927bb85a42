#pragma once

namespace vorn {

// The value with uniform random deviation over a band of total width dev * value
// centred on it. One number is drawn on every call, also when dev is 0.
float add_rdev(float value, float dev);

}  // namespace vorn
