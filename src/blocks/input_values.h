#pragma once

#include <cstdint>

// One value in the current input type, wherever a value is read: in a data
// list or inside a data-defining function.

namespace vorn {

// Reads a value in IN_TYPE; "z" stands for LAST_VAL. On failure false, and pos
// rests where reading stopped.
[[nodiscard]] bool get_input_type(float& value, const char* text, std::int32_t& pos);

// Whether the character may start a value of IN_TYPE in a data list.
[[nodiscard]] bool in_limits(char c);

bool is_separator(char c);                                  // white space, "," "/" ":" "'"
bool is_input_code(int code);                               // code of an input type
bool is_last_variable(const char* text, std::int32_t pos);  // "z" at pos

}  // namespace vorn
