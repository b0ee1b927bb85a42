#include "kit/diagnose/explanation_tables.h"

// What Vorn asks back about, or does otherwise than written, and goes on.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "W1",
     .cause = "A P3 value from 300 on takes seconds away from the time to the next start: 300.5 takes half "
              "a second. Vorn gives this warning whenever something is left, so that nothing is wrong with "
              "the event. What has become a rest is not told.",
     .cure = "Nothing needs to be changed. A fraction such as .5 shortens events without a warning.",
     .score = R"(i1 = 3, 0, 4 {
p2 1
p3 300.5 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1
p3 .5 }
)"},
    {.code = "W2",
     .cause = "The instrument of this block has a minus, which takes the whole block out.",
     .cure = "Remove the minus to hear the block.",
     .score = R"(i-1 = 3, 0, 4 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1
p3 1 }
)"},
    {.code = "W10",
     .cause = "A list has more values than the block has events. The values too many are left out. "
              "In P2 it means that the block is over before all of its starts have come.",
     .cure = "Lengthen the block, or shorten the list.",
     .score = R"(i1 = 4, 0, 2 {
p2 1  p3 1
p4 60 62 64 }
)",
     .cured = R"(i1 = 4, 0, 3 {
p2 1  p3 1
p4 60 62 64 }
)"},
    {.code = "W11",
     .cause = "A generator is meant to go on longer than its block. "
              "It ends with the block. In P2 a time in beats is compared with seconds, so that in a fast "
              "tempo it goes on longer.",
     .cure = "In P2, at a tempo other than 60, count the generator and the block in events; "
             "elsewhere give it the time `T`, or, behind other values, the number of events that are left.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(-8 1 [60 72]) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T 1 [60 72]) }
)"},
    {.code = "W12",
     .cause = "A `/` or `x` repeats a value more often than the block has events. "
              "The repeating ends with the block. `x0`, which means just that, always warns.",
     .cure = "Write a smaller number; four times 60 is `60 x4`. A last value holds by itself, so that `x0` "
             "may often be left out.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 x8 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 }
)"},
    {.code = "W14",
     .cause =
         "The time of a generator ends more than 5 beats behind the last event of the block. "
         "It gives its values to the events that there are, as if it were that much shorter. "
         "`Old duration = 20.00, New duration = 3.00`, which `vorn` adds, is the time as it was written and "
         "the beat of the last event, counted from beat 0 of the score.",
     .cure = "Write `T` for the time of the block, or lengthen the block.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(20 1 60 72) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(T 1 60 72) }
)"},
    {.code = "W15",
     .cause = "A loop begins with `<` and has no `>`. It was closed where its statement ends, "
              "so that all values behind the `<` are repeated.",
     .cure = "Write the `>` where the loop is meant to end.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 <60 62  p5 1 }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 <60 62>  p5 1 }
)"},
    {.code = "W19",
     .cause = "The header asks for more than 50 p-fields, which is allowed and seldom meant. "
              "Perhaps the numbers of the header are in another order: how many p-fields, the first beat, "
              "the length.",
     .cure = "Compare the first number behind the `=` with the last statement of the block.",
     .score = R"(i1 = 60, 0, 4 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1
p3 1 }
)"},
    {.code = "W20",
     .cause = "The block begins behind beat 240, which is allowed. "
              "Perhaps the numbers of the header are in another order, or seconds were meant: "
              "the start is counted in beats.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(i1 = 3, 300, 4 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 30, 4 {
p2 1
p3 1 }
)"},
    {.code = "W21",
     .cause = "The block is longer than 600 beats, which is allowed. "
              "Perhaps a point is missing, or seconds were meant: the length is counted in beats.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(i1 = 3, 0, 700 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 70 {
p2 1
p3 1 }
)"},
    {.code = "W22",
     .cause = "The equation divides by a p-field. "
              "Should that be 0 in some event, the score will be refused.",
     .cure = "Make sure that the p-field is never 0, or keep its inverse there and multiply by it.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 5
p5 ex(T 1 [10 / p4]) }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1  p4 .2
p5 ex(T 1 [p4 * 10]) }
)"},
    {.code = "W24",
     .cause = "What `ex` yields in P3 is read like any other value there: its size says how it is meant. "
              "A result of 1.5 is one and a half times the time to the next start, and not 1.5 seconds.",
     .cure = "Add 1000 for seconds, 400 for beats. Each `ex` in P3 warns, plain values do not.",
     .score = R"(i1 = 3, 0, 4 {
p2 1
p3 ex(T 1 [p2 + .5]) }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1
p3 1001.5 }
)"},
    {.code = "W26",
     .cause = "A deviation is a fraction: 1 is 100 per cent, and this one is more. "
              "`rd(5)` is 500 per cent, so that values may even change their sign.",
     .cure = "For 5 per cent write `rd(.05)`. If so much is meant, nothing needs to be changed.",
     .score = R"(rd(5)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(rd(.05)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W30",
     .cause = "The tempo, or that at which a change begins, is above 300 beats per minute.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(400)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(40)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W31",
     .cause = "The tempo, or that at which a change begins, is below 30 beats per minute. "
              "Perhaps the numbers of a change are in another order: "
              "first beat, last beat, first tempo, last tempo.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(6)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(60)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W32",
     .cause = "The tempo at which a change ends is above 300 beats per minute.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(0 8 60 400)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 40)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W33",
     .cause = "The tempo at which a change ends is below 30 beats per minute. "
              "Perhaps the numbers are in another order: first beat, last beat, first tempo, last tempo.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(0 8 60 10)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 100)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W34",
     .cause = "A change of tempo begins behind beat 600, which is allowed. "
              "Perhaps the numbers are in another order: first beat, last beat, first tempo, last tempo.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(700 708 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(70 78 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "W35",
     .cause = "A change of tempo ends behind beat 600, which is allowed. "
              "Perhaps the numbers are in another order: first beat, last beat, first tempo, last tempo.",
     .cure = "Nothing needs to be changed if it is meant.",
     .score = R"(te(0 700 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 70 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
};

}  // namespace

ExplanationTable warning_explanations() { return TABLE; }

}  // namespace vorn::kit
