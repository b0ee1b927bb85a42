#include "kit/diagnose/explanation_tables.h"

// What goes wrong in EX, the generator that computes from other p-fields.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E48",
     .cause = "A part of `ex` is a weight, and behind it a p-field or an equation in brackets. "
              "Here stands something else.",
     .cure = "Put the equation in brackets: `ex(T 1 [p4 * 2])`. A p-field alone needs none: `ex(T 1 p4)`.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 2 * p4) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [2 * p4]) }
)"},
    {.code = "E55",
     .cause = "Between two terms of an equation stands one operator, and here is none that Vorn knows. "
              "There are no parentheses and no powers, and an equation does not go on over a line end.",
     .cure = "Use `+`, `-`, `*`, `/` or `%`, the remainder. "
             "Equations are computed from left to right: `[p4 + 2 * 3]` adds first.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [p4 ^ 2]) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [p4 * p4]) }
)"},
    {.code = "E57",
     .cause = "The equation uses a p-field that has no values yet: it comes later in the block, it is the "
              "one being computed, or the block does not have it. "
              "In P2 there is nothing to compute with, so that `ex` cannot be used.",
     .cure = "Move the statement of that p-field before this one.",
     .score = R"(i1 = 5, 0, 4 { p2 1  p3 1
p4 ex(T 1 p5)
p5 60 62 }
)",
     .cured = R"(i1 = 5, 0, 4 { p2 1  p3 1
p5 60 62
p4 ex(T 1 p5) }
)"},
    {.code = "E58",
     .cause = "`ex` computes from other p-fields, and its first equation uses none.",
     .cure = "Use a p-field in it. For a value that never changes, write the value itself.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [2 + 3]) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [p4 + 3]) }
)"},
    {.code = "E59",
     .cause = "An equation divides by the number 0. "
              "This may be one of `ex` or that of a constant, where a constant may have become 0.",
     .cure = "Divide by another number, or look at what the constant is worth.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [p4 / 0]) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 60
p5 ex(T 1 [p4 / 2]) }
)"},
    {.code = "E60",
     .cause = "The equation divides by a p-field, and in one of the events that p-field is 0.",
     .cure = "Keep the 0 out of that p-field, or keep its inverse there and multiply by it: "
             ".2 where 5 would divide.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 5 0
p5 ex(T 1 [10 / p4]) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 .2 0
p5 ex(T 1 [p4 * 10]) }
)"},
};

}  // namespace

ExplanationTable equation_explanations() { return TABLE; }

}  // namespace vorn::kit
