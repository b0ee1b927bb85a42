#pragma once

#include <cstddef>
#include <cstdint>

#include "generators/ddf_data.h"
#include "input/growing_array.h"

namespace vorn {

enum class Operation : std::uint8_t { ADD, SUBTRACT, MULTIPLY, DIVIDE, REMAINDER };

// One operand of an equation with the operation that brings it in.
struct EquationTerm {
    Operation operation;  // ADD for the first operand
    bool is_pfield;
    int pfield;      // its number, 2 and up, if is_pfield
    float constant;  // otherwise
};

struct Equation {
    std::size_t first_term;
    std::size_t term_count;  // 1 and up
    bool rounded;            // to the nearest whole number, halves up
};

// EX: equations over other p-fields of the same event.
struct ExData : DdfData {
    GrowingArray<EquationTerm> terms;  // of all equations
    GrowingArray<Equation> equation;
    bool used_pfield = false;  // a p-field has been referred to
};

// "(" time { weight ["f" | "i"] equation } ")"
// where an equation is "[" operand { operation operand } "]" on one line, or one
// p-field reference. Errors of the time, 16, 23, 48, 55, 57, 58, 59, 32;
// warnings 22 and 24.
[[nodiscard]] int get_EX_data(ExData& data, Reader& reader);

// Error 60 on a division by zero.
[[nodiscard]] int make_EX(ExData& data, std::uint32_t sub_range, const Progress& progress, float& value);

}  // namespace vorn
