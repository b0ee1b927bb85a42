#include "preproc/equation.h"

#include "generators/arithmetic.h"
#include "generators/random.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/run_flags.h"
#include "input/skip.h"
#include "output/durations.h"
#include "preproc/constant_call.h"

// Terms and operators are gathered in the order of reading and only counted, so
// that they need not alternate; then they are computed without precedence:
//
//     [2 + 3 * 4]    terms 2 3 4, operators + *, value 20
//     [2 3 +]        terms 2 3, operator +, value 5
//     [-2 + 3]       a "-" before the first term is an operator: one too many
//
// No text of a line yields more terms or operators than it has characters.

namespace vorn {

namespace {

constexpr int RANDOM_STEPS = 32767;

struct ConstantEquation {
    double terms[LINE_SIZE];
    char operators[LINE_SIZE];
    int term_count = 0;
    int operator_count = 0;
    bool behind_operator = false;  // nothing but white space since the last operator
};

void add_term(ConstantEquation& equation, double term) {
    equation.terms[equation.term_count++] = term;
    equation.behind_operator = false;
}

void add_operator(ConstantEquation& equation, char operation) {
    equation.operators[equation.operator_count++] = operation;
    equation.behind_operator = true;
}

// Only blanks, tabs and line ends may stand among terms and operators, no other white space.
void skip_gap(const char* text, std::int32_t& pos) {
    while (text[pos] == ' ' || text[pos] == '\t' || text[pos] == '\n') ++pos;
}

bool is_operator(char c) { return c == '+' || c == '-' || c == '*' || c == '/' || c == '%'; }

// A "+" or "-" begins a number only directly behind an operator.
bool starts_number(char c, const ConstantEquation& equation) {
    return is_digit(c) || c == '.' || (equation.behind_operator && (c == '+' || c == '-'));
}

double random_term(const WatchedLine& line) {
    const float value = static_cast<float>(rand() % RANDOM_STEPS) / RANDOM_STEPS;
    if (!SUPRESS) Mprintf("\n\tLine %d: '?' evaluated at = %f", line.number, double{value});
    return double{value};
}

int get_number(double& term, const char* text, std::int32_t& pos) {
    return get_df(term, text, pos) ? 0 : error::BAD_REAL;
}

int get_constant(double& term, const char* text, std::int32_t& pos, const WatchedLine& line) {
    const Constant* constant = nullptr;
    const int result = find_vname(constant, text, pos, line);
    if (result != FOUND) return result;
    term = constant->value;
    return 0;
}

// "@1" or "@2"; the variables in beats are refused here: kept on purpose.
int get_time(double& term, const char* text, std::int32_t& pos) {
    ++pos;
    if (text[pos] != '1' && text[pos] != '2') return error::BAD_TIME_VARIABLE;
    term = text[pos] == '1' ? LAST_IB_DUR : CUM_TIME;
    ++pos;
    return 0;
}

int get_random(double& term, std::int32_t& pos, const WatchedLine& line) {
    ++pos;
    term = random_term(line);
    return 0;
}

int get_term(double& term, const ConstantEquation& equation, const char* text, std::int32_t& pos,
             const WatchedLine& line) {
    const char c = text[pos];
    if (starts_number(c, equation)) return get_number(term, text, pos);
    if (is_letter(c)) return get_constant(term, text, pos, line);
    if (c == '?') return get_random(term, pos, line);
    if (c == '@') return get_time(term, text, pos);
    return c == 0 ? error::EQUATION_UNENDED : error::BAD_EQUATION_CHARACTER;
}

int get_item(ConstantEquation& equation, const char* text, std::int32_t& pos, const WatchedLine& line) {
    if (is_operator(text[pos]) && !starts_number(text[pos], equation)) {
        add_operator(equation, text[pos++]);
        return 0;
    }
    double term = 0;
    if (const int result = get_term(term, equation, text, pos, line)) return result;
    add_term(equation, term);
    return 0;
}

int compute(double& value, char operation, double operand) {
    switch (operation) {
        case '+':
            value += operand;
            return 0;
        case '-':
            value -= operand;
            return 0;
        case '*':
            value *= operand;
            return 0;
        case '/':
            if (operand == 0) return error::DIVISION_BY_ZERO;
            value /= operand;
            return 0;
        default:
            value = double{mod(static_cast<float>(value), static_cast<float>(operand))};
            return 0;
    }
}

int evaluate(double& value, const ConstantEquation& equation) {
    if (equation.term_count == 0 || equation.operator_count != equation.term_count - 1) {
        return error::BAD_EQUATION_TERMS;
    }
    value = equation.terms[0];
    for (int at = 0; at < equation.operator_count; ++at) {
        const int result = compute(value, equation.operators[at], equation.terms[at + 1]);
        if (result > 0) return result;
    }
    return 0;
}

}  // namespace

int parse_vequation(double& value, const char* text, std::int32_t& pos, const WatchedLine& line) {
    ConstantEquation equation;
    ++pos;
    skip_blanks(text, pos);
    for (; text[pos] != ']'; skip_gap(text, pos)) {
        if (const int result = get_item(equation, text, pos, line)) return result;
    }
    if (const int result = evaluate(value, equation)) return result;
    ++pos;
    return 0;
}

}  // namespace vorn
