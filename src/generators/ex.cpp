#include "generators/ex.h"

#include "blocks/block_state.h"
#include "generators/arithmetic.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"

// Equations. An operand is a number or a p-field that the block has already
// been given; the operations run strictly from left to right:
//
//     EX(T 1 [p4 + 2 * 3])          (P4 + 2) * 3, no precedence: kept on purpose
//     EX(T .5 p4 .5 i[p4 / 3])      P4 itself, or a third of it in whole numbers
//
// P2 stands for the start in seconds and P3 for the duration in seconds. A
// quotient of a p-field can only be seen to fail when its event comes.

namespace vorn {

namespace {

// By operation. "%" works though the message about operations leaves it out:
// kept on purpose.
constexpr char OPERATION_MARKS[] = {'+', '-', '*', '/', '%'};

bool is_letter_p(char c) { return to_lower(c) == 'p'; }

// "p" number
// The reference is to a p-field of this block read before, other than its own.
int get_reference(ExData& data, EquationTerm& term, Reader& reader) {
    ++reader.pos;
    std::int32_t number = 0;
    if (!get_i(number, reader.text, reader.pos)) return error::BAD_PFIELD_NUMBER;
    const bool known = number >= 2 && number <= MAX_PFIELDS && number != P_NO && DID_P[number] != 0;
    if (!known) return error::BAD_PFIELD_REFERENCE;
    if (term.operation == Operation::DIVIDE) warning_no(warning::DIVISION_BY_PFIELD, reader);
    term.is_pfield = true;
    term.pfield = number;
    data.used_pfield = true;
    return 0;
}

// number
int get_constant(EquationTerm& term, Reader& reader) {
    if (!get_f(term.constant, reader.text, reader.pos)) return error::BAD_VALUE;
    const bool by_zero = term.operation == Operation::DIVIDE && term.constant == 0;
    return by_zero ? error::DIVISION_BY_ZERO : 0;
}

// reference | number
int get_term(ExData& data, Operation operation, Reader& reader) {
    EquationTerm term{operation, false, 0, 0.0F};
    const bool is_reference = is_letter_p(reader.text[reader.pos]);
    const int result = is_reference ? get_reference(data, term, reader) : get_constant(term, reader);
    if (result != 0) return result;
    return data.terms.append(term) ? 0 : error::OUT_OF_MEMORY;
}

// "+" | "-" | "*" | "/" | "%"
bool get_operation(Operation& operation, const char* text, std::int32_t& pos) {
    for (std::size_t i = 0; i < sizeof OPERATION_MARKS; ++i) {
        if (OPERATION_MARKS[i] != text[pos]) continue;
        operation = static_cast<Operation>(i);
        ++pos;
        return true;
    }
    return false;
}

// operand { operation operand } "]"
// Blanks may stand anywhere, line ends and comments nowhere. Leaves pos behind "]".
int get_bracketed(ExData& data, Reader& reader) {
    Operation operation = Operation::ADD;
    for (;;) {
        skip_blanks(reader.text, reader.pos);
        if (const int result = get_term(data, operation, reader)) return result;
        skip_blanks(reader.text, reader.pos);
        if (reader.text[reader.pos] == ']') break;
        if (!get_operation(operation, reader.text, reader.pos)) return error::BAD_OPERATION;
    }
    ++reader.pos;
    return 0;
}

// "[" ... "]" | reference
int get_equation(ExData& data, Reader& reader) {
    const char first = reader.text[reader.pos];
    if (is_letter_p(first)) return get_term(data, Operation::ADD, reader);
    if (first != '[') return error::BAD_EQUATION_DATA;
    ++reader.pos;
    return get_bracketed(data, reader);
}

// ["f" | "i"], either case
// Whether the result is rounded.
int get_output_flag(bool& rounded, Reader& reader) {
    const char flag = to_lower(reader.text[reader.pos]);
    rounded = flag == 'i';
    if (flag != 'i' && flag != 'f') return 0;
    ++reader.pos;
    return skip_stuff(reader);
}

// weight ["f" | "i"] equation
int get_sub_range(ExData& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::BAD_EQUATION_DATA)) return result;
    Equation equation{data.terms.size(), 0, false};
    if (const int result = get_output_flag(equation.rounded, reader)) return result;
    if (const int result = get_equation(data, reader)) return result;
    equation.term_count = data.terms.size() - equation.first_term;
    if (!data.equation.append(equation)) return error::OUT_OF_MEMORY;
    if (const int result = skip_stuff(reader)) return result;
    return data.used_pfield ? 0 : error::EQUATION_WITHOUT_PFIELD;
}

float pfield_value(const ListNode& event, int pfield) {
    if (pfield == 2) return event.start;
    if (pfield == 3) return event.dur;
    return event.pf[pfield - 4];
}

// result = result operation operand; error 60.
int apply(Operation operation, float& result, float operand) {
    switch (operation) {
        case Operation::ADD:
            result += operand;
            return 0;
        case Operation::SUBTRACT:
            result -= operand;
            return 0;
        case Operation::MULTIPLY:
            result *= operand;
            return 0;
        case Operation::REMAINDER:
            result = mod(result, operand);  // 0 for an operand of 0: kept on purpose
            return 0;
        case Operation::DIVIDE:
            if (operand == 0) return error::DIVISION_BY_ZERO_PFIELD;
            result /= operand;
            return 0;
    }
    return 0;
}

float operand_value(const EquationTerm& term, const ListNode& event) {
    return term.is_pfield ? pfield_value(event, term.pfield) : term.constant;
}

}  // namespace

int get_EX_data(ExData& data, Reader& reader) {
    if (P_NO < 3) return error::BAD_PFIELD_REFERENCE;
    if (P_NO == 3) warning_no(warning::P3_CODES, reader);
    return read_sub_ranges(data, reader, get_sub_range);
}

int make_EX(ExData& data, std::uint32_t sub_range, const Progress& progress, float& value) {
    const Equation& equation = data.equation[sub_range];
    const EquationTerm* term = data.terms.data() + equation.first_term;
    const EquationTerm* end = term + equation.term_count;
    float result = operand_value(*term, *progress.event);
    while (++term != end) {
        const float operand = operand_value(*term, *progress.event);
        if (const int failure = apply(term->operation, result, operand)) return failure;
    }
    value = equation.rounded ? static_cast<float>(Round(result)) : result;
    return 0;
}

}  // namespace vorn
