#include "generators/set_choice.h"

#include <algorithm>
#include <new>

#include "generators/random.h"
#include "input/errors.h"
#include "input/skip.h"

// Choosing from a set. Elements count from 1. Every choice is made by drawing
// among all elements and, where the mode refuses the one drawn, drawing again,
// so the numbers that a choice takes from the sequence depend on the mode:
//
//     mode   set of 3, draws 0 0 1 1 0 2 ...   elements
//            0, 0, 1, ...                      1 1 2 ...
//     "*"    0, then 0 and 1, then 1 0 2       1 2 3, then all anew
//     "x"    0, then 0 and 1, then 1 and 0     1 2 1 ...

namespace vorn {

namespace {

// One draw among the elements, from 0.
std::uint32_t draw_index(const SetChoice& choice) { return static_cast<std::uint32_t>(rand()) % choice.size; }

std::uint32_t draw_unused(SetChoice& choice) {
    if (choice.used_count == choice.size) {
        std::fill_n(choice.used, choice.size, false);
        choice.used_count = 0;
    }
    std::uint32_t index = draw_index(choice);
    while (choice.used[index]) index = draw_index(choice);
    choice.used[index] = true;
    ++choice.used_count;
    return index + 1;
}

std::uint32_t draw_other(SetChoice& choice) {
    std::uint32_t element = draw_index(choice) + 1;
    while (element == choice.last) element = draw_index(choice) + 1;
    choice.last = element;
    return element;
}

}  // namespace

SetChoices::~SetChoices() {
    for (std::size_t i = 0; i < set.size(); ++i) delete[] set[i].used;
}

int get_set_mode(SetMode& mode, Reader& reader) {
    const char mark = reader.text[reader.pos];
    mode = SetMode::REPETITION;
    if (mark == '*') mode = SetMode::NO_REPETITION;
    if (mark == 'x') mode = SetMode::NO_IMMEDIATE_REPETITION;
    if (mode == SetMode::REPETITION) return 0;
    ++reader.pos;
    return skip_stuff(reader);
}

int add_set_choice(SetChoices& choices, std::uint32_t size, SetMode mode) {
    SetChoice choice;
    choice.size = size;
    choice.mode = size == 1 ? SetMode::REPETITION : mode;
    return choices.set.append(choice) ? 0 : error::OUT_OF_MEMORY;
}

int init_did(SetChoices& choices) {
    for (std::size_t i = 0; i < choices.set.size(); ++i) {
        SetChoice& choice = choices.set[i];
        if (choice.mode != SetMode::NO_REPETITION) continue;
        choice.used = new (std::nothrow) bool[choice.size]();
        if (choice.used == nullptr) return error::OUT_OF_MEMORY;
    }
    return 0;
}

std::uint32_t get_set_element(SetChoice& choice) {
    if (choice.size == 0) return NO_ELEMENT;
    if (choice.mode == SetMode::NO_REPETITION && choice.used != nullptr) return draw_unused(choice);
    if (choice.mode == SetMode::NO_IMMEDIATE_REPETITION && choice.size > 1) return draw_other(choice);
    return draw_index(choice) + 1;
}

}  // namespace vorn
