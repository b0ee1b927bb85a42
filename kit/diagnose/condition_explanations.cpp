#include "kit/diagnose/explanation_tables.h"

// What goes wrong with #if and #endif.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E113",
     .cause = "A word that begins like `#endif` was read as one and is another.",
     .cure = "Write `#endif`, alone on its line.",
     .unprovoked = "Vorn looks for the whole word before it reads it, so that no score can show this."},
    {.code = "E114",
     .cause = "Behind `#if` its value follows in parentheses, without a blank between. "
              "Here stands something else. "
              "Another word that begins with `#i` leads to this message, too.",
     .cure = "Write `#if(1)`, alone on its line.",
     .score = R"(#if (1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)",
     .cured = R"(#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)"},
    {.code = "E115",
     .cause = "The value of an `#if` is a number that begins with a digit, a macro or a constant. "
              "This one is something else. "
              "The `#if` stands behind a command, too, where it has no effect.",
     .cure = "Give the `#if` a line of its own, and write `0.5` for `.5`.",
     .score = R"(rs(17) #if(yes)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)",
     .cured = R"(rs(17)
#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)"},
    {.code = "E116",
     .cause = "The value of an `#if` stands in parentheses, and the `)` is missing. "
              "The `#if` stands behind a command, too, where it has no effect.",
     .cure = "Write the `)`, and give the `#if` a line of its own.",
     .score = R"(rs(17) #if(1
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)",
     .cured = R"(rs(17)
#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)"},
    {.code = "E117",
     .cause = "The value of an `#if` is 0, so that Vorn skips what follows up to its `#endif`, "
              "and the score ends first. "
              "A value that cannot be read counts as 0, too, if no condition came before.",
     .cure = "Write `#endif` on a line of its own, where the score is to go on.",
     .score = R"(#if(0)
i1 = 3, 0, 4 { p2 1  p3 1 }
i2 = 3, 0, 4 { p2 1  p3 1 }
)",
     .cured = R"(#if(0)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
i2 = 3, 0, 4 { p2 1  p3 1 }
)"},
    {.code = "E118",
     .cause = "This `#endif` closes nothing: every `#if` above has its own already.",
     .cure = "Take it out, or look for the `#if` that is missing.",
     .score = R"(i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
i2 = 3, 0, 4 { p2 1  p3 1 }
)",
     .cured = R"(#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
i2 = 3, 0, 4 { p2 1  p3 1 }
)"},
    {.code = "E119",
     .cause = "The score ends while an `#if` is open whose value is not 0. "
              "An `#endif` closes it only if it is the first word on its line.",
     .cure = "Write `#endif` on a line of its own.",
     .score = R"(#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
rs(17) #endif
)",
     .cured = R"(#if(1)
i1 = 3, 0, 4 { p2 1  p3 1 }
rs(17)
#endif
)"},
};

}  // namespace

ExplanationTable condition_explanations() { return TABLE; }

}  // namespace vorn::kit
