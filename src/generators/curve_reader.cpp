#include "generators/curve_reader.h"

#include <cstring>

#include "generators/curves.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/numbers.h"
#include "input/skip.h"

// The curve notation shared by the tempo command and the masks.
//
// One letter names the curve and its place in the list of letters is the code;
// "v" alone takes a number. Nothing at all means the straight line, so a curve
// may always be left out. A "*" lets the curve run over beats where the caller
// allows that; it is an item of its own, so a line end, a comment or a separator
// may stand before it.
//
// Example: "v2.5 *" is curve 3 with exponent 2.5 over time, code 103.

namespace vorn {

namespace {

constexpr char LETTERS[] = "felvsc";
constexpr int STRAIGHT = 0;
constexpr int WITH_EXPONENT = 3;

// [letter]. The code, behind the letter; STRAIGHT, with pos unmoved, for any other character.
int read_letter(Reader& reader) {
    const char letter = to_lower(reader.text[reader.pos]);
    const char* found = letter == 0 ? nullptr : std::strchr(LETTERS, letter);
    if (found == nullptr) return STRAIGHT;
    ++reader.pos;
    return static_cast<int>(found - LETTERS);
}

}  // namespace

int get_curve_type(Reader& reader, float& curve_type, float& curve_value, bool beat_move_allowed) {
    curve_value = 1.0F;
    int code = read_letter(reader);
    if (code == WITH_EXPONENT) {
        const bool read = get_f(curve_value, reader.text, reader.pos);
        if (!read || !(curve_value > 0.0F)) return error::BAD_CURVE_EXPONENT;
    }
    if (const int result = skip_stuff(reader)) return result;
    const bool starred = reader.text[reader.pos] == '*';
    if (starred && !beat_move_allowed) return error::BEAT_MOVE_NOT_ALLOWED;
    curve_type = static_cast<float>(starred ? code + BEAT_CURVE : code);
    if (!starred) return 0;
    ++reader.pos;
    return skip_stuff(reader);
}

}  // namespace vorn
