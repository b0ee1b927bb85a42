#include "kit/diagnose/explanation_tables.h"

// What goes wrong in a generator: its time, its weights and its values.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E36",
     .cause = "A generator is its name and then, in parentheses, its time and its values. "
              "Something other than `(` follows the name.",
     .cure = "Write the parenthesis behind the name: `ra(T 1 [60 72])`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra T 1 [60 72] }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T 1 [60 72]) }
)"},
    {.code = "E37",
     .cause = "The brackets hold a range, which has a low and a high end, "
              "and there is a third value. "
              "Perhaps a choice among several values is meant.",
     .cure = "Write two values, or use a generator that chooses from a set: `se(T 1 [60 64 67])`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T 1 [60 64 67]) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 se(T 1 [60 64 67]) }
)"},
    {.code = "E38",
     .cause = "Each part of a generator begins with its weight: how often it is chosen, as a fraction of 1. "
              "No number stands here. "
              "Either the weight was left out, or the `)` of the generator is missing and what follows was "
              "taken for its next part.",
     .cure = "With a single part the weight is 1: `ra(T 1 [60 72])`. "
             "Otherwise write `)` behind the last part.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T [60 72]) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T 1 [60 72]) }
)"},
    {.code = "E39",
     .cause = "A value in the brackets cannot be read in the input type of the statement, "
              "or the brackets are empty. "
              "Letters are note names only behind `no`. "
              "A letter directly behind `[` is taken for a distribution: in `[b4 c5]` the `b` asks for "
              "both ends. A set of S2 has at most 128 elements.",
     .cure = "Name the input type before the generator: `no ra(T 1 [f c4 c5])`. "
             "Before a note name write the distribution, too: `[f b4 c5]`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 se(T 1 [c4 e4 g4]) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 no se(T 1 [c4 e4 g4]) }
)"},
    {.code = "E40",
     .cause =
         "A generator begins with its time, and here stands something else: perhaps a `t` in lower case.",
     .cure = "Write a number of beats, a minus and a number of events, or `T` for the whole block: "
             "`ra(8 ...`, `ra(-5 ...`, `ra(T ...`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(all 1 [60 72]) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T 1 [60 72]) }
)"},
    {.code = "E41",
     .cause = "A weight is followed by a value or by brackets, and here stands neither. "
              "Two weights may stand in a row, a second end or set may be missing, "
              "or a note name is read as a number since `no` was not written.",
     .cure = "Write weight and value in turn: `ra(T .5 60 .5 72)`. "
             "`mo` and `ms` need two values or sets behind each weight.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(T 1 60) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(T 1 60 72) }
)"},
    {.code = "E42",
     .cause = "The weights of a generator say how often each part is chosen, and together they make 1. "
              "These make more or less. "
              "Perhaps a value was read as a weight, since the one before it is missing.",
     .cure = "Change one of the weights. A single part has the weight 1.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T .5 60 .4 72) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T .6 60 .4 72) }
)"},
    {.code = "E50",
     .cause = "Behind the range of a walk stands its window: how far a step may go, as a fraction of the "
              "range. It is missing, or it is not between 0 and 1.",
     .cure = "Write range, window and start: `rw(T 1 [60 72] .2 66)`. "
             "A window of .2 allows a tenth of the range up or down.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60 72] 2 66) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60 72] .2 66) }
)"},
    {.code = "E51",
     .cause = "A walk begins at its start value, the last one of its part. "
              "It is missing, or it lies outside of the range.",
     .cure = "Write a start within the range: `rw(T 1 [60 72] .2 66)`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60 72] .2 80) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60 72] .2 66) }
)"},
    {.code = "E52",
     .cause = "A walk moves within a range of two values, a low and a high one, and one of them cannot be "
              "read. `ho` uses the same words when its value cannot be read.",
     .cure = "Write both ends, in the input type of the statement: `no rw(T 1 [c4 c5] .2 g4)`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60] .2 60) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 rw(T 1 [60 72] .2 60) }
)"},
    {.code = "E53",
     .cause = "`T` is the time of the whole block, and `T*.5` half of it. "
              "Behind the `*` no number follows directly.",
     .cure = "Write the fraction without a blank and without a sign: `T*.5`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T* .5 1 60) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ra(T*.5 1 60) }
)"},
    {.code = "E54",
     .cause = "The block has a length in beats, and its starts do not advance: "
              "an interval is 0, or the start times repeat one that goes back. "
              "Such starts would never fill the block.",
     .cure = "Give the length of the block as a number of events: `-3` for three events at one time. "
             "With `p2 0`, P3 needs a duration of its own: 402 is 2 beats, 1002 is 2 seconds.",
     .score = R"(i1 = 4, 0, 4 {
p2 0  p3 1002
p4 60 64 67 }
)",
     .cured = R"(i1 = 4, 0, -3 {
p2 0  p3 1002
p4 60 64 67 }
)"},
    {.code = "E61",
     .cause = "`ho` holds one value for a time. "
              "Behind that value something else than its `)` follows.",
     .cure = "Write the time and the value: `ho(T 60)`. Unlike the other generators `ho` has no weight.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ho(T 1 60) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 ho(T 60) }
)"},
    {.code = "E62",
     .cause = "`s2` may choose chords, and chords cannot be made before their events have a start and a "
              "duration.",
     .cure = "In P2 and P3 use `se`, which chooses single values.",
     .score = R"(i1 = 3, 0, 4 {
p2 s2(T 1 [.5 1])
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 se(T 1 [.5 1])
p3 1 }
)"},
    {.code = "E63",
     .cause = "The curve `v` is a power, and its exponent follows the letter. "
              "It is missing, or it is not above 0.",
     .cure = "Write a number above 0: `v2` begins slowly, `v.5` quickly.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(T 1 v-2 60 72) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 mo(T 1 v2 60 72) }
)"},
    {.code = "E64",
     .cause = "A `*` behind a curve lets a movement follow the beats instead of the events. "
              "This is possible only where the time of the generator is in beats, and not in a tempo. "
              "In a block whose length is in events `T` counts events, too.",
     .cure = "Leave out the `*`, or give the generator a time in beats.",
     .score = R"(i1 = 4, 0, -8 {
p2 1  p3 1
p4 mo(T 1 e* 60 72) }
)",
     .cured = R"(i1 = 4, 0, -8 {
p2 1  p3 1
p4 mo(T 1 e 60 72) }
)"},
    {.code = "E72",
     .cause = "A generator in P2 makes starts for a number of beats, and one of its intervals may be 0. "
              "With it the beats would never pass.",
     .cure = "Give the generator a number of events, or a smallest interval above 0.",
     .score = R"(i1 = 3, 0, 4 {
p2 ra(4 1 [0 1])
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 ra(4 1 [.1 1])
p3 1 }
)"},
    {.code = "E97",
     .cause = "`s2` chooses from a set, and the brackets of this one are empty.",
     .cure = "Write the values or chords to choose from: `no s2(T 1 [c4 d4:f a3:c4:e])`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 s2(T 1 []) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 s2(T 1 [60 62:65]) }
)"},
};

}  // namespace

ExplanationTable generator_explanations() { return TABLE; }

}  // namespace vorn::kit
