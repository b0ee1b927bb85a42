#include "generators/walk.h"

#include "generators/random.h"

// The random walk: a position in [0, 1] that jumps, at every step, to a random
// place inside a window around it. Near an end the window is shifted inwards
// rather than cut, so that its width is the same everywhere:
//
//   0        a    s    b             1       a = s - w/2, b = s + w/2
//   |--------[----*----]-------------|
//   [----s----]                              shifted when a is below 0
//
// The new place is found by drawing until a draw falls inside the window, so
// the draws a step takes are 1/w on average.
//
// Example: from 0.5 with a window of 0.2 the next position lies in [0.4, 0.6].

namespace vorn {

namespace {

// A narrower window would be hit about once in the whole sequence: the walk stands still.
constexpr float NARROWEST_WINDOW = 1e-6F;

struct Bounds {
    float lower;
    float upper;
};

Bounds window_around(float position, float window) {
    const float a = static_cast<float>(position - window / 2.0);
    const float b = static_cast<float>(position + window / 2.0);
    if (a < 0.0F) return {0.0F, window};
    if (b > 1.0F) return {1.0F - window, 1.0F};
    return {a, b};
}

bool can_move(float position, float window) {
    return window >= NARROWEST_WINDOW && position >= 0.0F && position <= 1.0F;
}

// The next position. A walk that stands still draws one number all the same.
float step(float position, float window) {
    float u = unit_draw();
    if (!can_move(position, window)) return position;
    const Bounds bounds = window_around(position, window);
    while (u < bounds.lower || u > bounds.upper) u = unit_draw();
    return u;
}

}  // namespace

float rwindow(float& position, float window) {
    const float old = position;
    position = step(old, window);
    return old;
}

float rand_window(float& position, float low, float high, float window) {
    const float old = rwindow(position, low == high ? 0.0F : window);
    return low + (high - low) * old;
}

}  // namespace vorn
