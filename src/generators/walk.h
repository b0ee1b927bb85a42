#pragma once

namespace vorn {

// One step of a random walk in [0, 1]; hands out the OLD position scaled to
// [low, high], so the first value of a walk is its starting value. Moves
// `position` to a place inside a window of the given width (0 to 1) around it.
float rand_window(float& position, float low, float high, float window);

// The same step, returning the old position unscaled.
float rwindow(float& position, float window);

}  // namespace vorn
