#include "kit/language/word_tables.h"

// What stands within generators and equations.

namespace vorn::kit {

namespace {

constexpr WordRow ROWS[] = {
    {WordKind::GENERATOR, "dx", "dx(time weight equation ...)", "Another name of ex.",
     "p4 dx(T 1 [p2 * 2 + 60])", true},

    {WordKind::TIME, "T", "T | T*fraction", "The time of the whole block, or a fraction of it.",
     "p4 ra(T*.5 1 60) 62"},

    {WordKind::DISTRIBUTION, "f", "[f low high]", "Drawn evenly, as without a letter.",
     "p4 ra(T 1 [f 60 72])", true},
    {WordKind::DISTRIBUTION, "l", "[l low high]", "Low values most often, falling exponentially.",
     "p4 ra(T 1 [l 60 72])", true},
    {WordKind::DISTRIBUTION, "h", "[h low high]", "High values most often, falling exponentially.",
     "p4 ra(T 1 [h 60 72])", true},
    {WordKind::DISTRIBUTION, "t", "[t low high]", "A triangle: the middle most often.",
     "p4 ra(T 1 [t 60 72])", true},
    {WordKind::DISTRIBUTION, "g", "[g low high]", "A bell around the middle.", "p4 ra(T 1 [g 60 72])", true},
    {WordKind::DISTRIBUTION, "x", "[x low high]", "A sharp peak in the middle.", "p4 ra(T 1 [x 60 72])",
     true},
    {WordKind::DISTRIBUTION, "b", "[b low high]", "Both ends most often.", "p4 ra(T 1 [b 60 72])", true},

    {WordKind::CURVE, "f", "f", "A straight line, as without a letter but in te.", "p4 mo(T 1 f 60 72)",
     true},
    {WordKind::CURVE, "e", "e", "The square: slow, then fast.", "p4 mo(T 1 e 60 72)", true},
    {WordKind::CURVE, "l", "l", "The root: fast, then slow.", "p4 mo(T 1 l 60 72)", true},
    {WordKind::CURVE, "v", "v<exponent>", "A power: v3 is slower than e at first, v.5 is l.",
     "p4 mo(T 1 v3 60 72)", true},
    {WordKind::CURVE, "s", "s", "A quarter of a sine: fast, then slow.", "p4 mo(T 1 s 60 72)", true},
    {WordKind::CURVE, "c", "c", "The mirrored quarter of a sine: slow, then fast.", "p4 mo(T 1 c 60 72)",
     true},
    {WordKind::CURVE_MARK, "*", "<curve>*", "Moves with the beats instead of the events, in mo and ms.",
     "p4 mo(4 1 e* 60 72)"},

    {WordKind::SET_MARK, "*", "* [value ...]", "None returns before all have been used.",
     "p4 se(T 1 * [60 62 64])"},
    {WordKind::SET_MARK, "x", "x [value ...]", "None follows itself.", "p4 se(T 1 x [60 62 64])"},

    {WordKind::RESULT_FLAG, "i", "I[equation]", "The result is rounded to a whole number.",
     "p4 ex(T 1 i[p2 * 1.5])", true},
    {WordKind::RESULT_FLAG, "f", "F[equation]", "The result is left as it is, as without a letter.",
     "p4 ex(T 1 f[p2 * 1.5])", true},

    {WordKind::OPERATOR, "+", "term + term", "The sum.", "p4 ex(T 1 [p2 + 2])"},
    {WordKind::OPERATOR, "-", "term - term", "The difference.", "p4 ex(T 1 [p2 - 2])"},
    {WordKind::OPERATOR, "*", "term * term", "The product.", "p4 ex(T 1 [p2 * 2])"},
    {WordKind::OPERATOR, "/", "term / term", "The quotient.", "p4 ex(T 1 [p2 / 2])"},
    {WordKind::OPERATOR, "%", "term % term", "The remainder of a division.", "p4 ex(T 1 [p2 % 2])"},

    {WordKind::EQUATION_TERM, "p", "p<number>", "In ex: the value that the event has in that p-field.",
     "p4 ex(T 1 [60 + p2])", true},
    {WordKind::EQUATION_TERM, "?", "?", "In ~[...]: a random number from 0 to 1.", "p4 ~[60 + ?]"},
    {WordKind::EQUATION_TERM, "@1", "@1", "In ~[...]: the duration of the last block in seconds.",
     "p4 ~[60 + @1]"},
    {WordKind::EQUATION_TERM, "@2", "@2", "In ~[...]: the latest end of any block so far in seconds.",
     "p4 ~[60 + @2]"},
};

}  // namespace

std::span<const WordRow> generator_rows() { return ROWS; }

}  // namespace vorn::kit
