#pragma once

#include <cstddef>

#include "generators/ddf_data.h"
#include "generators/set_choice.h"
#include "input/growing_array.h"

namespace vorn {

constexpr std::size_t MAX_SET_ELEMENTS = 128;  // of one S2 set; more is error 39

// One element: a value, or a chord of several.
struct SetElement {
    std::size_t first_value;
    std::size_t size;  // values, 1 and up
};

// S2: elements of a set that may be chords.
struct S2Data : DdfData {
    GrowingArray<float> values;               // of all elements
    GrowingArray<SetElement> elements;        // of all sets
    GrowingArray<std::size_t> first_element;  // per set
    SetChoices choices;                       // per set
};

// "(" time { weight ["*" | "x"] ( element | "[" element { element } "]" ) } ")"
// where an element is values without a blank between them, each further one
// with or without "'" or ":" before it. Errors of the time, 38, 39, 41, 62, 97, 32.
// The sets are ready to be drawn from.
[[nodiscard]] int get_S2_data(S2Data& data, Reader& reader);

}  // namespace vorn
