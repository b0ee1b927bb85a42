#include "kit/diagnose/explanation_tables.h"

// What goes wrong between the blocks, in their headers and at their ends.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E3",
     .cause = "A comment between the blocks begins with `/*`, and the score ends before its `*/`. "
              "Comments of this kind may stand inside each other, and each needs an end of its own. "
              "An `#if` or `#endif` in such a comment that is not complete leads to the same message.",
     .cure = "Write `*/` where the comment is meant to end. "
             "For a comment that ends with its line, `;` is enough.",
     .score = R"(/* a first sketch
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(/* a first sketch */
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E5",
     .cause = "The score ends while a block is still open. "
              "Its `}` is missing, or it stands in a comment that was never closed. "
              "A block that a minus before the instrument takes out needs its `}`, too.",
     .cure = "Write `}` behind the last statement of the block.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 62 64
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 62 64 }
)"},
    {.code = "E9",
     .cause = "Vorn keeps a copy of the score while it runs, in the folder that the environment variable "
              "TMPDIR names, or else in /tmp. "
              "That copy was written and could then not be read again: "
              "something has removed it or taken its rights away.",
     .cure = "Run Vorn once more, or let TMPDIR name a folder of your own.",
     .unprovoked = "No score can show this: it depends on the disk, not on what the score says."},
    {.code = "E11",
     .cause = "Behind the `i` of a block stands its instrument, a whole number from -32768 to 32767. "
              "Here stands something else: a name, a plus sign or a number too large.",
     .cure = "Give each instrument a number, and say its name in a comment. "
             "A minus before the number takes the whole block out.",
     .score = R"(i violin = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {  ; violin
p2 1  p3 1 }
)"},
    {.code = "E12",
     .cause = "The second number behind the `=` says at which beat the block begins. "
              "It cannot be read as a number, or it is below 0.",
     .cure = "Write a number of beats, 0 or more. The first beat of a score is beat 0.",
     .score = R"(i1 = 3, -2, 4 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E13",
     .cause = "The third number behind the `=` is the length of the block. "
              "A sign stands there that no number follows.",
     .cure = "Write a number of beats, `4` or `4.5`. "
             "A length in events is a minus and a whole number: `-12` is twelve events.",
     .score = R"(i1 = 3, 0, +x {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E14",
     .cause = "A minus before the length of a block says that events are counted, not beats. "
              "Their number must follow it, and here stands something else.",
     .cure = "Write the minus and a whole number: `-12` ends the block after twelve events.",
     .score = R"(i1 = 3, 0, -x {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, -12 {
p2 1  p3 1 }
)"},
    {.code = "E22",
     .cause = "Between the blocks stand only commands: `te`, `rd`, `rs`, `sr`, lines that begin with `>`, "
              "and those of `#`. "
              "What stands here is none of them, or it is one in a place that Vorn does not look at. "
              "A command must come first on its line or directly behind another command. "
              "Perhaps a block was closed too early by a `}`.",
     .cure = "Give each command a line of its own, and begin what is not for Vorn with a `;`. "
             "If this is meant as data of a block, move it before the `}`.",
     .score = R"(melody of the flute
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(; melody of the flute
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E30",
     .cause = "The header of a block ends with `{`, and something else follows the length. "
              "Either the `{` was forgotten or the header has a number too many. "
              "Behind the `=` stand three: how many p-fields, the first beat, the length.",
     .cure = "Count the numbers of the header, and write `{` behind the third.",
     .score = R"(i1 = 3, 0, 4, 60 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E32",
     .cause = "The block asks for more events than a score can hold: at most 50,000,000, and at most "
              "400,000,000 values, which are its events times its p-fields. "
              "Mostly a length or a number of repeats has some digits too many. "
              "A loop that a generator fills may hold 100,000,000. "
              "A block below these limits has used up the memory of the machine.",
     .cure = "Look at the length of the block and at what repeats in it. "
             "A very long piece can be divided into several blocks.",
     .score = R"(i1 = 3, 0, -500000000 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, -500 {
p2 1
p3 1 }
)"},
    {.code = "E33",
     .cause = "The score could not be read to its end, since the disk reported an error. "
              "What had been read until then may well be right.",
     .cure = "Copy the score to another disk, and look whether the copy is complete.",
     .unprovoked = "No score can show this: it takes a disk that fails while it is read."},
    {.code = "E34",
     .cause = "The number of the instrument is followed by `=`, and something else stands there. "
              "An instrument number has no decimals, so that a `.` leads here as well.",
     .cure = "Write the header in this order: `i1 = 4, 0, 8 {`.",
     .score = R"(i1 4, 0, 4 {
p2 1  p3 1  p4 60 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1  p4 60 }
)"},
    {.code = "E35",
     .cause = "The first number behind the `=` says how many p-fields the block has. "
              "No whole number can be read there, or it is far too large. "
              "P-field is the name of a column of the Csound score; P1 is the instrument and counts.",
     .cure = "Write a whole number from 3 to 128: `i1 = 5, 0, 4 {` has P1 to P5.",
     .score = R"(i1 = five, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E47",
     .cause = "`pf` multiplies the values of one statement. "
              "Here it stands between the blocks, where there are no values.",
     .cure = "Move it into the statement that it is meant for: `p4 pf(2) 60 62`.",
     .score = R"(pf(2)
i1 = 4, 0, 4 {
p2 1  p3 1  p4 100 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1  p4 pf(2) 100 }
)"},
    {.code = "E70",
     .cause = "The block has two statements for the same p-field. "
              "Each p-field has one, however long it is.",
     .cure = "Join the two, or correct the number of the second one. "
             "A statement may go on over as many lines as it needs, without its name being said again.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 60  p4 .5 }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 60  p5 .5 }
)"},
    {.code = "E71",
     .cause = "The header promises more p-fields than the block has statements. "
              "Every p-field from P2 up to that number needs one.",
     .cure = "Add what is missing, or give the header the right number. P1 counts, though it has no "
             "statement: a block whose last statement is P4 has 4.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 60 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 }
)"},
    {.code = "E120",
     .cause = "The `{` follows the first beat of the block, and the length is missing. "
              "Behind the `=` stand three numbers: how many p-fields, the first beat, the length.",
     .cure = "Write the length before the `{`: beats as `8`, events as `-12`.",
     .score = R"(i1 = 3, 0 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E121",
     .cause = "The length of a block is a number of beats, or a minus and a number of events. "
              "What stands there begins with neither a digit nor a sign nor a point. "
              "Perhaps the number before it has an exponent, as in `1e3`, which Vorn does not know.",
     .cure = "Write the length as a plain number, `1000` for `1e3`.",
     .score = R"(i1 = 3, 0, four {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
};

}  // namespace

ExplanationTable block_explanations() { return TABLE; }

}  // namespace vorn::kit
