#pragma once

#include <cstdint>

#include "input/growing_array.h"
#include "input/reader.h"

// How an element of a set is chosen, event by event.

namespace vorn {

enum class SetMode : std::uint8_t {
    REPETITION,               // any element
    NO_REPETITION,            // each once until all have been used; marked "*"
    NO_IMMEDIATE_REPETITION,  // any but the last; marked "x"
};

constexpr std::uint32_t NO_ELEMENT = 0;

struct SetChoice {
    std::uint32_t size = 0;  // elements
    SetMode mode = SetMode::REPETITION;
    std::uint32_t last = NO_ELEMENT;  // element chosen before, from 1; kept in mode "x"
    std::uint32_t used_count = 0;     // flags set, mode "*"
    bool* used = nullptr;             // one flag per element; null outside mode "*"
};

// The choices of all sub-ranges of a function; owns their flags.
struct SetChoices {
    GrowingArray<SetChoice> set;

    SetChoices() = default;
    ~SetChoices();
    SetChoices(const SetChoices&) = delete;
    SetChoices& operator=(const SetChoices&) = delete;
};

// ["*" | "x"]
// Moves behind the separators that follow a mark; without one, pos stays.
[[nodiscard]] int get_set_mode(SetMode& mode, Reader& reader);

// Appends the choice from a set of `size` elements; a set of one has no mode. Error 32.
[[nodiscard]] int add_set_choice(SetChoices& choices, std::uint32_t size, SetMode mode);

// Gives the sets that need them their cleared flags. On error 32 the sets
// before the failing one have theirs.
[[nodiscard]] int init_did(SetChoices& choices);

// The next element, from 1 to the size. Without flags a set of mode "*" repeats.
std::uint32_t get_set_element(SetChoice& choice);

}  // namespace vorn
