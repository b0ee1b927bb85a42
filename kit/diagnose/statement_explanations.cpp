#include "kit/diagnose/explanation_tables.h"

// What goes wrong within a block: its statements, their values and settings.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E15",
     .cause = "P2 makes the events of a block, and all other p-fields give values to them. "
              "Here another p-field comes before it.",
     .cure = "Write P2 first. The others may stand in any order.",
     .score = R"(i1 = 4, 0, 4 {
p4 60 62
p2 1  p3 1 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 62 }
)"},
    {.code = "E16",
     .cause = "P-fields are numbered from 2 on, since P1 is the instrument, which the header gives. "
              "The number behind this `p` is smaller, or there is none.",
     .cure = "Write `p2`, `p3` and so on, in lower case. The instrument stands behind the `i`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p1 60 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 }
)"},
    {.code = "E17",
     .cause = "The parentheses directly behind the name of a p-field say how its values are written out. "
              "What stands in them is no such type, or asks for more than 7 decimals.",
     .cure = "Write one of `re`, `in`, `op`, `od`, `hz`, `bn`, `tr`, `db` and `xx`; "
             "`re0` to `re7` set the decimals. "
             "How the values are read stands behind the parentheses: `p4(hz) no c4 d e`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4(no) c4 d e }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4(hz) no c4 d e }
)"},
    {.code = "E18",
     .cause = "P2 and P3 are times, which Csound wants as plain numbers. "
              "The parentheses behind one of them ask for something else.",
     .cure = "Leave the parentheses out, or choose decimals only: `p3(re5)`.",
     .score = R"(i1 = 4, 0, 4 {
p2(in) 1
p3 1  p4 60 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1
p3 1  p4 60 }
)"},
    {.code = "E19",
     .cause = "A parenthesis is not closed where it should be. "
              "This may be that of a setting, of a tempo, or the one that says how a p-field is written "
              "out. Or there is a value too many before the `)`.",
     .cure = "Write `)` where the mark stands, or take out what is too much.",
     .score = R"(rs(17
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(rs(17)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E20",
     .cause = "A command stands where it cannot be. "
              "Macros and constants are defined between the blocks, so that `#define` and `#const` are "
              "refused within a statement. "
              "The same is said of an input type with a digit above 7, as in `re8`.",
     .cure = "Move a definition above the block. Decimals go from `re0` to `re7`.",
     .score = R"(i1 = 4, 0, 4 { p2 1  p3 1
#define ROOT #60#
p4 $ROOT }
)",
     .cured = R"(#define ROOT #60#
i1 = 4, 0, 4 { p2 1  p3 1
p4 $ROOT }
)"},
    {.code = "E21",
     .cause = "P2 holds start times, in beats. Pitches and levels cannot be read there.",
     .cure = "Write P2 as numbers (`re`, `in`) or as rhythm values (`rh 4 8 8`), "
             "and pitches in P4 or above.",
     .score = R"(i1 = 3, 0, 4 {
p2 no c4 d e
p3 1 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 no c4 d e }
)"},
    {.code = "E23",
     .cause = "The character may begin a value of this input type, but the value is not right. "
              "Under `no` it may be a note or octave that does not exist, under `db` a level above 96, "
              "under `rh` a value of 0. "
              "Between a block's `{` and P2 only `rd` and `rs` may stand; any other command is refused in "
              "these words.",
     .cure = "Look at the value before the mark, and at the input type that counts here: "
             "it is the last one that the statement has named, or `re`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 db 60 120 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 db 60 90 }
)"},
    {.code = "E24",
     .cause = "`x` repeats the value before it, and how often must stand directly behind it.",
     .cure = "Write the number without a blank: `60 x3` is 60 three times in all.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 x 3 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 x3 }
)"},
    {.code = "E25",
     .cause = "A comment inside a block holds an `#if` or `#endif` that is not complete. "
              "Conditions act inside comments, too, and this one ended the reading.",
     .cure = "Take the condition out of the comment, or write it without its `#`.",
     .score = R"(i1 = 3, 0, 4 { p2 1 /*
#endif
*/ p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 { p2 1 /*
endif
*/ p3 1 }
)"},
    {.code = "E26",
     .cause = "P3 holds durations, and they are numbers. "
              "Rhythm values, pitches and levels cannot be read there.",
     .cure = "Write plain numbers: 1 lasts until the next start, .5 half as long. "
             "402 lasts for 2 beats, 1002 for 2 seconds.",
     .score = R"(i1 = 4, 0, 4 { p2 1
p3 rh 4 8
p4 60 }
)",
     .cured = R"(i1 = 4, 0, 4 { p2 1
p3 1 .5
p4 60 }
)"},
    {.code = "E27",
     .cause = "This character cannot begin a value here. "
              "A statement reads plain numbers (`re`) until it names another input type, "
              "so that a letter is refused. "
              "Under `in`, a value begins with a digit or a sign. "
              "`P3` and `I1` are taken for values, since `p` and `i` are written in lower case. "
              "A new block or a `te` is refused in these words while the block above is still open. "
              "So is the 51st tempo of a score; there are at most 50.",
     .cure = "Name the input type before the values: `no` for note names, `op` for octave and pitch "
             "class, `rh` for rhythm, `db` for decibels. "
             "If the block was meant to be over, write `}` above this line.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 c4 d e }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 no c4 d e }
)"},
    {.code = "E28",
     .cause = "`rd` and `dv` say by how much values may deviate: a number from 0 to 100, where 1 is 100 "
              "per cent. This one is no number or lies outside.",
     .cure = "Write a fraction from 0 on: `rd(.1)` moves each value by up to a twentieth up or down.",
     .score = R"(rd(-.1)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(rd(.1)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E29",
     .cause = "A seed is a whole number from 0 to 65535. This one is no number or lies outside.",
     .cure = "Write a whole number from 0 to 65535. Any of them is as random as the next; the same seed "
             "always gives the same piece.",
     .score = R"(rs(70000)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(rs(7000)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E43",
     .cause = "The marks of a loop do not fit. "
              "There is a `>` without its `<`, a `<` inside a loop, or a `<` behind the `:` of a chord. "
              "A line that begins with `>` is meant for the space between the blocks: "
              "within a block its `>` ends a loop.",
     .cure = "Write one `<` and one `>` around the values that are repeated. "
             "Loops cannot stand inside each other: write out the inner one.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 <60 <62>> }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 <60 62> }
)"},
    {.code = "E44",
     .cause = "The header of the block says how many p-fields it has, and this one has a higher number. "
              "Behind the last `}` of a score there is no block at all.",
     .cure = "Raise the first number behind the `=`, or correct that of the p-field.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60  p5 .5 }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 1
p4 60  p5 .5 }
)"},
    {.code = "E45",
     .cause = "Something in the loop asks for the value before it, and the loop has none yet: "
              "it begins with a repeat or with the `:` of a chord. "
              "A loop of more than 100,000,000 values is refused in these words, too.",
     .cure = "Begin the loop with a value: `<60 x2 64>`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 <x2 64> }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 <60 x2 64> }
)"},
    {.code = "E49",
     .cause = "A `:` or `'` joins two values to a chord, and here two of them stand in a row. "
              "In P3, which takes no chord, the second one of a statement is refused, wherever it stands.",
     .cure = "Write one mark between two values: `60:64:67`. Chords belong in P4 or above.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60::64 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60:64 }
)"},
    {.code = "E65",
     .cause = "`sr` takes the sample rate, a whole number without a minus. "
              "Only the output type `bn` makes use of it.",
     .cure = "Write the rate of the orchestra, `sr(48000)`, or leave it out.",
     .score = R"(sr(-48000)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(sr(48000)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E73",
     .cause = "This is neither a value nor a command that a block knows. "
              "A list may not begin with a comma or a repeat, a name may be misspelt, "
              "or the last `}` follows a setting that belongs before a statement.",
     .cure = "Begin each list with a value, and compare the names of commands: generators are `ra`, `rw`, "
             "`mo`, `se`, `s2`, `ms`, `ex` and `ho`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 , 60 62 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 62 }
)"},
    {.code = "E96",
     .cause = "The value of a setting or tempo stands in parentheses. "
              "Here something else follows the name, or the `(` stands on the next line.",
     .cure = "Write `te(120)` or `rs(17)`, with the `(` on the line of its name.",
     .score = R"(te 120
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E125",
     .cause = "`pf` multiplies the values of a statement, and no number stands in its parentheses.",
     .cure = "Write a number: `pf(2)` doubles the values, `pf(.5)` halves them.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 pf(x2) 100 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 pf(2) 100 }
)"},
    {.code = "E126",
     .cause = "`pf` multiplies values, and start times take no factor.",
     .cure = "To make a block faster or slower as a whole, use a tempo: `te(120)` before it. "
             "Otherwise write the intervals as they are meant.",
     .score = R"(i1 = 3, 0, 4 {
p2 pf(.5) 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 .5
p3 1 }
)"},
};

}  // namespace

ExplanationTable statement_explanations() { return TABLE; }

}  // namespace vorn::kit
