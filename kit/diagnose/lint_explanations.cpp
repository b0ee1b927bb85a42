#include "kit/diagnose/explanation_tables.h"

// What is legal and probably not meant: the notes of lint.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "L1",
     .title = "A note name with \"b\" is read as two notes",
     .cause =
         "Sharps are written with `s` and flats with `f`. In `eb4` the name ends behind the `e`, and `b4` "
         "is the next note, for names need no blank between them.",
     .cure = "Write `ef4`. Where two notes are meant, put a blank between them.",
     .score = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 no bb4 eb4 }
)",
     .cured = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 no bf4 ef4 }
)"},
    {.code = "L2",
     .title = "A number with a decimal comma is read as two values",
     .cause = "A comma parts values like a blank, so that `0,5` is 0 and then 5.",
     .cure = "Write a point, `0.5` or `.5`. Where two values are meant, put a blank behind the comma.",
     .score = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 0,5 0,25 }
)",
     .cured = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 0.5 0.25 }
)"},
    {.code = "L3",
     .title = "Values without a blank between them are read as several",
     .cause = "A number ends where it cannot go on: `60-62` is 60 and then -62, `1.2.3` is 1.2 and then .3. "
              "Behind a value `/` repeats it, so that `1/2` is 1, once, and then 2; under `rh`, too.",
     .cure = "Write a fraction as a number, `.5`, or under `rh` as a note, `8` for an eighth, and a range "
             "with a generator, `ra(T 1 [60 62])`. Put a blank "
             "between two values.",
     .score = R"(i1 = 4, 0, -4 {
p2 1/2  p3 1
p4 60-62 }
)",
     .cured = R"(i1 = 4, 0, -4 {
p2 .5  p3 1
p4 ra(T 1 [60 62]) }
)"},
    {.code = "L4",
     .title = "What stands behind the \"}\" of a block is left out",
     .cause =
         "The rest of the line on which a block ends is skipped, another block and the beginning of a long "
         "comment, too.",
     .cure = "Begin a new line behind the `}`.",
     .score = R"(i1 = 3, 0, 4 {
p2 1  p3 1 } te(90)
; the end
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
te(90)
)"},
    {.code = "L5",
     .title = "The last event of a block starts just before its end",
     .cause =
         "Intervals are added in single precision. Twelve triplet eighths make a little less than 4 beats, "
         "so that a thirteenth still starts within a block of 4.",
     .cure = "Give the length as a number of events: `-12`.",
     .score = R"(i1 = 3, 0, 4 {
p2 rh 12  p3 1 }
)",
     .cured = R"(i1 = 3, 0, -12 {
p2 rh 12  p3 1 }
)"},
    {.code = "L6",
     .title = "A chord in a loop of P2 ends a block in beats early",
     .cause = "Each chord that the loop repeats is counted, and from then on the block is measured in events "
              "rather than beats. It ends within the first rounds.",
     .cure = "Give the block's length as a number of events, or write the chord in P4 or above.",
     .score = R"(i1 = 3, 0, 16 {
p2 < 1:2 1 >  p3 1 }
)",
     .cured = R"(i1 = 3, 0, -16 {
p2 < 1:2 1 >  p3 1 }
)"},
    {.code = "L7",
     .title = "Durations of code 400 are in beats of one tempo",
     .cause = "A value of 400 + n lasts n beats, but at one tempo for the whole block: the one at its last "
              "start. Where the tempo moves, all other events are too long or too short.",
     .cure = "Values below 200 follow the tempo, for they are parts of the time to the next start.",
     .score = R"(te(0 8 60 120)
i1 = 3, 0, -9 {
p2 1  p3 400.5 }
)",
     .cured = R"(te(0 8 60 120)
i1 = 3, 0, -9 {
p2 1  p3 .5 }
)"},
    {.code = "L8",
     .title = "Blocks side by side drift apart while the tempo moves",
     .cause =
         "The start of a block is converted at the tempo of its own beat, as if it had been that from the "
         "beginning, and every interval at the tempo of its beginning. Under a tempo that moves the same "
         "beat therefore comes at different times in blocks that begin at different beats, or that have "
         "intervals of different lengths.",
     .cure =
         "Begin the blocks at the same beat, give them the same start intervals, and count rests where one "
         "of them is silent.",
     .score = R"(te(0 8 60 120)
i1 = 3, 0, 16 { p2 1  p3 1 }
i2 = 3, 4, 8 { p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120)
i1 = 3, 0, 16 { p2 1  p3 1 }
i2 = 3, 0, 12 { p2 1  p3 -1 x4 1 }
)"},
    {.code = "L9",
     .title = "A constant or an equation yields a text of three decimals",
     .cause =
         "A call `~A` or `~[47 / 192]` puts a text of three decimals into the line, which is all that is "
         "read of the value. The same happens to an equation that defines a constant.",
     .cure =
         "Write the number itself, or a macro, which keeps its text. Within equations a constant has all of "
         "its digits.",
     .score = R"(#const A .244792
i1 = 3, 0, 4 {
p2 ~A  p3 1 }
)",
     .cured = R"(#define A # .244792 #
i1 = 3, 0, 4 {
p2 $A  p3 1 }
)"},
    {.code = "L10",
     .title = "A setting behind a loop reaches its later rounds only",
     .cause =
         "A setting counts from where it stands. The first round of a loop is stored while it is read, the "
         "others when the statement ends.",
     .cure = "Write the setting before the `<`.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 < 60 62 > pf(2) }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 pf(2) < 60 62 > }
)"},
    {.code = "L11",
     .title = "A loop is not closed",
     .cause = "A `<` has no `>`, so that the loop reaches to the end of its statement.",
     .cure = "Write `>` where the loop ends.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 < 60 62 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 < 60 62 > }
)"},
    {.code = "L12",
     .title = "Values have no event",
     .cause =
         "The block has fewer events than the list has values, repeats counted; the others are left out. "
         "Where Vorn warns of them itself, the warning has the count.",
     .cure =
         "Lengthen the block, or shorten the list. To repeat a value up to the end of the block, write it "
         "last.",
     .score = R"(i1 = 4, 0, 2 {
p2 1  p3 1
p4 60 62 ra(1 1 [70 72]) 64 }
)",
     .cured = R"(i1 = 4, 0, 5 {
p2 1  p3 1
p4 60 62 ra(1 1 [70 72]) 64 }
)"},
    {.code = "L13",
     .title = "A MIDI file of vorn holds the first block alone",
     .cause = "With `-m` the run ends behind the first block.",
     .cure = "Write the piece as one block, or all blocks with `vornkit midi`.",
     .score = R"(i1 = 5, 0, 4 { p2 1  p3 .9  p4 16000  p5 60 }
i2 = 5, 0, 4 { p2 1  p3 .9  p4 16000  p5 64 }
)",
     .cured = R"(i1 = 5, 0, 4 { p2 1  p3 .9  p4 16000
p5 60:64 }
)"},
    {.code = "L14",
     .title = "A key or a velocity lies outside 0 to 127",
     .cause =
         "With `-m` P5 is the key, which is taken modulo 128, and P4 an amplitude: 32767 is velocity 127, "
         "and below 259 the velocity is 0.",
     .cure = "Keep P5 within 0 to 127, and P4 within 259 to 32767; `db 80` is velocity 38.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 .9  p4 100  p5 60 130 }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 .9  p4 16000  p5 60 }
)"},
    {.code = "L15",
     .title = "More than one voice sounds on a key",
     .cause =
         "A MIDI file tells a note's end by its key. Where a note begins while another one sounds on the "
         "same key, the end of the earlier one silences both.",
     .cure = "Shorten the notes in P3, or give the voices keys of their own.",
     .score = R"(i1 = 5, 0, 4 {
p2 1  p3 1.5  p4 16000  p5 60 }
)",
     .cured = R"(i1 = 5, 0, 4 {
p2 1  p3 .9  p4 16000  p5 60 }
)"},
    {.code = "L16",
     .title = "A rest sounds",
     .cause =
         "An `r` among note names is the number -1 and silences its note by turning the sign of the "
         "duration. Two on one note, in P3 and P4 or in P4 and P5, turn it back. What `/` or `x` add to "
         "an `r`, and an `r` in a generator, turn nothing. The note then sounds as -1, a semitone below c0.",
     .cure = "Write each rest of a list by itself, `r r`, and in one p-field only. "
             "Rests by chance are drawn in P3: `p3 se(T 1 [1 -1])`.",
     .score = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 no c4 r x2 e }
)",
     .cured = R"(i1 = 4, 0, -4 {
p2 1  p3 1
p4 no c4 r r e }
)"},
    {.code = "L17",
     .title = "A block is all rests",
     .cause =
         "An event sounds if its duration is above 0. It is not where P3 is 0 or negative, where it is 400 "
         "or 1000 with nothing behind, where each note is an `r`, and where P3 is a part of an interval P2 "
         "of 0 or less. Of such a block `vorn` says `Oops i-block 1 is all rests (check p2=0 and p3 != 400+n "
         "OR 1000+n?)!` and `(N.B. No I-Block Data Written)`, and writes nothing.",
     .cure = "Write a P2 above 0, and a P3 above 0: 1 lasts up to the next event, 400.5 half a beat, "
             "1000.5 half a second.",
     .score = R"(i1 = 3, 0, -4 {
p2 0  p3 1 }
)",
     .cured = R"(i1 = 3, 0, -4 {
p2 1  p3 1 }
)"},
    {.code = "L18",
     .title = "What repeats stands behind a loop",
     .cause = "`x` or `//` repeats the value before it, which behind a `>` is the last one of the loop. `< "
              "60 62 > x2` "
              "is 60, 62 and 62 again; then the loop begins anew.",
     .cure = "Leave it out where the loop is to fill the block, which it does by itself. Where it is to end "
             "after some rounds, write them as a list.",
     .score = R"(i1 = 4, 0, -8 {
p2 1  p3 1
p4 < 60 62 > x2 }
)",
     .cured = R"(i1 = 4, 0, -8 {
p2 1  p3 1
p4 < 60 62 > }
)"},
    {.code = "L19",
     .title = "A condition cannot be read",
     .cause =
         "The value of an `#if` is a number that begins with a digit, or the call of a constant or macro. "
         "Nothing else is told to be wrong: the condition before it decides, and the first of all "
         "counts as 0, so that what follows is left out.",
     .cure =
         "Write `~` before the name of a constant and `$` before that of a macro. Nothing can be compared: "
         "choose the value so that 0 means no.",
     .score = R"(#if(A == 1)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)",
     .cured = R"(#const A 1
#if(~A)
i1 = 3, 0, 4 { p2 1  p3 1 }
#endif
)"},
};

}  // namespace

ExplanationTable lint_explanations() { return TABLE; }

}  // namespace vorn::kit
