#include "kit/diagnose/explanation_tables.h"

// What goes wrong with constants and their equations.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E100",
     .cause = "A constant with this name exists already. A constant keeps its value through the whole score. "
              "Perhaps a file is included twice.",
     .cure = "Choose another name. For a value that changes use a macro, which `#undef` frees.",
     .score = R"(#const ROOT 60
#const ROOT 62
i1 = 4, 0, 4 { p2 1  p3 1  p4 ~ROOT }
)",
     .cured = R"(#const ROOT 60
#const FIFTH 67
i1 = 4, 0, 4 { p2 1  p3 1  p4 ~ROOT ~FIFTH }
)"},
    {.code = "E102",
     .cause = "The machine has no memory left for another constant.",
     .cure = "Close other programs and try again.",
     .unprovoked = "No score can show this: it takes a machine whose memory is used up."},
    {.code = "E103",
     .cause = "The value of a constant is a number, another constant or an equation. "
              "Here a macro is called, and on such a line macros are not expanded.",
     .cure = "Define the other value as a constant, too: `#const FIFTH ~[ROOT + 7]`.",
     .score = R"(#define ROOT #60#
#const FIFTH $ROOT
i1 = 4, 0, 4 { p2 1  p3 1  p4 ~FIFTH }
)",
     .cured = R"(#const ROOT 60
#const FIFTH ~ROOT
i1 = 4, 0, 4 { p2 1  p3 1  p4 ~FIFTH }
)"},
    {.code = "E105",
     .cause = "An equation between `~[` and `]` stands on one line, and this line ends before its `]`.",
     .cure = "Write the `]`, or bring the equation onto one line. "
             "A part of it may become a constant of its own.",
     .score = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1  p4 ~[ROOT +
7] }
)",
     .cured = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1
p4 ~[ROOT + 7] }
)"},
    {.code = "E106",
     .cause = "`~@` and a digit stand for a time of the score so far: "
              "1 is how long the last block lasts and 2 when the latest one ends, in seconds; "
              "3 and 4 are the same in beats. Another character stands behind the `@`.",
     .cure = "Write `~@1` to `~@4`. Within an equation there are `@1` and `@2`.",
     .score = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
> f0 ~@
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
> f0 ~@2
)"},
    {.code = "E107",
     .cause = "An equation of constants holds numbers, names and the operators `+`, `-`, `*`, `/` and `%`. "
              "Another character stands in this one. Parentheses are unknown.",
     .cure = "Write the equation without parentheses. "
             "It is computed from left to right, so that `[1 + 2 * 3]` is 9.",
     .score = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1
p4 ~[(ROOT + 7) * 2] }
)",
     .cured = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1
p4 ~[ROOT + 7 * 2] }
)"},
    {.code = "E108",
     .cause = "An equation of constants has one operator fewer than it has terms, and this one has not. "
              "A `-` before the first term counts as an operator. The brackets may also be empty.",
     .cure = "Write terms and operators in turn. For a negative beginning, subtract from 0: `[0 - 2 + 3]`.",
     .score = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1
p4 ~[-2 + ROOT] }
)",
     .cured = R"(#const ROOT 60
i1 = 4, 0, 4 { p2 1  p3 1
p4 ~[ROOT - 2] }
)"},
    {.code = "E109",
     .cause = "The name of a constant begins with a letter, and here another character comes first.",
     .cure = "Write the name, a blank and the value: `#const ROOT 60`.",
     .score = R"(#const 60 ROOT
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~ROOT }
)",
     .cured = R"(#const ROOT 60
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~ROOT }
)"},
    {.code = "E500",
     .cause = "A number is expected and none can be read: as the value of a constant, "
              "or behind an operator of an equation.",
     .cure = "Write a plain number, `0.5` or `.5`, directly behind its sign. "
             "A constant is used with its `~`: `#const FIFTH ~ROOT`.",
     .score = R"(#const ROOT c4
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~ROOT }
)",
     .cured = R"(#const ROOT 48
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~ROOT }
)"},
};

}  // namespace

ExplanationTable constant_explanations() { return TABLE; }

}  // namespace vorn::kit
