#include "blocks/input_values.h"

#include <cstring>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/pitch_input.h"
#include "generators/arithmetic.h"
#include "input/characters.h"
#include "input/numbers.h"

// One value in the notation that the p-field has chosen.
//
// A table row per input type says which characters may open a value in a data
// list and which reader takes it from there. The first characters are a gate of
// data lists only: a data-defining function calls the reader directly, so "z"
// stands for the last value there under every type, "in" included.
//
//     IN_TYPE no,  "ef4 "   ->  51, pos behind the 4
//     IN_TYPE in,  "z"      ->  refused in a data list, LAST_VAL inside RA(...)

namespace vorn {

namespace {

using ValueReader = bool (*)(float& value, const char* text, std::int32_t& pos);

// [sign] digits ["." digits], rounded to a whole number.
bool get_rounded(float& value, const char* text, std::int32_t& pos) {
    float real = 0;
    if (!get_f(real, text, pos)) return false;
    value = RoundF(real);
    return true;
}

bool refuse(float&, const char*, std::int32_t&) { return false; }

struct InputType {
    int code;
    const char* first_characters;  // of a value in a data list; letters in lower case stand for both
    ValueReader read;
};

constexpr InputType INPUT_TYPES[] = {
    {CODE_DB, "0123456789.+-z", get_db},
    {CODE_IN, "0123456789+-", get_rounded},  // no "z": kept on purpose
    {CODE_NO, "0123456789abcdefghijklmnopqrstuvwxyz", get_pitch},
    {CODE_OP, "0123456789+-z", get_oct_pc},
    {CODE_OD, "", refuse},  // an output type that can be named but not read
    {CODE_RE, "0123456789.+-z", get_f},
    {CODE_RH, "0123456789.+-z", get_rdc},  // get_rdc refuses the ".": kept on purpose
};

// The row of a code, or null.
const InputType* find_input_type(int code) {
    for (const InputType& type : INPUT_TYPES) {
        if (type.code == code) return &type;
    }
    return nullptr;
}

}  // namespace

bool get_input_type(float& value, const char* text, std::int32_t& pos) {
    if (is_last_variable(text, pos)) {
        value = LAST_VAL;
        ++pos;
        return true;
    }
    const InputType* type = find_input_type(IN_TYPE);
    return type != nullptr && type->read(value, text, pos);
}

bool in_limits(char c) {
    const InputType* type = find_input_type(IN_TYPE);
    return type != nullptr && c != 0 && std::strchr(type->first_characters, to_lower(c)) != nullptr;
}

bool is_separator(char c) { return is_space(c) || c == ',' || c == '/' || c == ':' || c == '\''; }

bool is_input_code(int code) { return find_input_type(code) != nullptr; }

bool is_last_variable(const char* text, std::int32_t pos) { return to_lower(text[pos]) == 'z'; }

}  // namespace vorn
