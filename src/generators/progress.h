#pragma once

#include <cstdint>

#include "blocks/statement.h"
#include "input/reader.h"
#include "output/event_list.h"

namespace vorn {

// How far a function has got, handed to the generators with every event.
struct Progress {
    float time = 0;                   // of the function: beats, or minus a number of events
    std::uint64_t index = 0;          // of the event within the function
    std::uint64_t count = 0;          // events of the function; in P2 of a span, its whole beats
    const ListNode* event = nullptr;  // about to be filled; null in P2, where a value makes the event
    float first_beat = 0;             // P3 and up, span only: beat of the first event covered
    float last_beat = 0;              // likewise of the last
    float elapsed = 0;                // P2: seconds since the function's first event
};

// The events from the cursor on that a function of P3 or above covers.
// May raise warning 14.
Progress measure_span(float time, const Statement& statement, const Reader& reader);

// The event that the next value goes to, or, with a pending fusion mark in P4
// and above, the event that will be copied for it.
const ListNode* next_event(const Statement& statement);

// The value of a curve (code with or without BEAT_CURVE) at the present event.
// A curve over time leaves its trace on standard output.
float curve_value(const Progress& progress, std::uint32_t curve, float start, float end, float exponent);

}  // namespace vorn
