#include "preproc/constant_call.h"

#include "input/errors.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/durations.h"
#include "output/tempo_map.h"
#include "preproc/constant_text.h"
#include "preproc/equation.h"
#include "preproc/splice.h"

// A reference gives way to its value's text, which has three decimals and is all
// that later readers see of the value:
//
//     #const A 0.3336    ~A -> 0.334    ~[A * 3] -> 1.001
//
// In an equation a constant is taken as it was defined, but a constant defined by
// another one or by an equation has passed through such a text (0.334 * 3 is 1.002):
// the loss is kept on purpose.

namespace vorn {

namespace {

struct TimeVariable {
    double value;
    const char* label;
};

// digit, behind "@". False for other characters, at which pos stays.
bool get_time_variable(TimeVariable& variable, const char* text, std::int32_t pos) {
    switch (text[pos]) {
        case '1':
            variable = {LAST_IB_DUR, "@1 (Last IB Time)"};
            return true;
        case '2':
            variable = {CUM_TIME, "@2 (Cumulative Time)"};
            return true;
        case '3':
            variable = {LAST_IB_DUR * double{TEMPO} / 60, "@3 (Last IB Time [BEATS])"};
            return true;
        case '4':
            variable = {CUM_TIME * double{TEMPO} / 60, "@4 (Cumulative Time [BEATS])"};
            return true;
        default:
            return false;
    }
}

// Puts the value in the place of the reference that starts at `start`, and pos on it.
int replace_reference(SpliceKind kind, const char* label, char* text, std::int32_t start, std::int32_t& pos,
                      const WatchedLine& line, double value) {
    if (const int result = vexpand_in_buff(kind, label, text, start, line, value)) return result;
    pos = start;
    return 0;
}

int expand_time_variable(char* text, std::int32_t& pos, const WatchedLine& line) {
    const std::int32_t start = pos - 1;
    ++pos;
    TimeVariable variable;
    if (!get_time_variable(variable, text, pos)) return error::BAD_TIME_VARIABLE;
    return replace_reference(SpliceKind::TIME_VARIABLE, variable.label, text, start, pos, line,
                             variable.value);
}

int expand_equation(char* text, std::int32_t& pos, const WatchedLine& line) {
    const std::int32_t start = pos - 1;
    double value = 0;
    if (const int result = parse_vequation(value, text, pos, line)) return result;
    return replace_reference(SpliceKind::EQUATION, "equation", text, start, pos, line, value);
}

int expand_name(char* text, std::int32_t& pos, const WatchedLine& line) {
    const std::int32_t start = pos - 1;
    const Constant* constant = nullptr;
    const int result = find_vname(constant, text, pos, line);
    if (result != FOUND) return result;
    return replace_reference(SpliceKind::CONSTANT, constant->name, text, start, pos, line, constant->value);
}

}  // namespace

int expand_variables(char* text, std::int32_t& pos, const WatchedLine& line) {
    if (text[pos] == '@') return expand_time_variable(text, pos, line);
    if (text[pos] == '[') return expand_equation(text, pos, line);
    return expand_name(text, pos, line);
}

int find_vname(const Constant*& constant, const char* text, std::int32_t& pos, const WatchedLine& line) {
    const Name name = read_name(text, pos);
    constant = find_var(name);
    return constant != nullptr ? FOUND : report_unknown("constant", name, line);
}

int vexpand_in_buff(SpliceKind kind, const char* label, char* text, std::int32_t pos, const WatchedLine& line,
                    double value) {
    if (!SUPRESS) Mprintf("\n\tExpanding const \"%s\" (%f) into line %d...", label, value, line.number);
    char digits[CONSTANT_TEXT_SIZE];
    FtoA(digits, value);
    std::int32_t end = pos;
    skip_vname_or_eq(text, end);
    if (!splice(text, pos, end, digits)) return error::EXPANSION_TOO_LONG;
    tell_splice(line, kind, label, pos, end, digits);
    return 0;
}

void skip_vname_or_eq(const char* text, std::int32_t& pos) {
    if (text[pos] == '~') ++pos;
    if (text[pos] == '@') {
        ++pos;  // the digit stays behind the value, "~@1" -> "10.0001": kept on purpose
    } else if (text[pos] == '[') {
        while (text[pos] != 0 && text[pos] != ']') ++pos;
        if (text[pos] == ']') ++pos;
    } else {
        read_name(text, pos);
    }
}

}  // namespace vorn
