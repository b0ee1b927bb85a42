#include "kit/diagnose/explanation_tables.h"

// What the engine tells without a number. The names are the kit's own.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "Ebar",
     .title = "The name of an include file stands without bars",
     .cause = "The name of an include file stands between two bars. "
              "Behind `#include` another character comes first.",
     .cure = "Write `#include |drums.vorn|`, on a line of its own.",
     .score = R"(#include "drums.vorn"
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(#include |drums.vorn|
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "Ebeats",
     .title = "A block is too long",
     .cause = "The block is longer than 10000 beats. "
              "Perhaps the numbers of the header are in another order: how many p-fields, the first beat, "
              "the length.",
     .cure = "Shorten the block, divide it, or give its length in events: `-20000` for 20000 events.",
     .score = R"(i1 = 3, 0, 20000 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 20 {
p2 1
p3 1 }
)"},
    {.code = "Eblank",
     .title = "A p-field has no value",
     .cause = "A statement ends without having given a value. "
              "It is empty or has settings only, or the block has no room for any: "
              "a block of 0 beats has no event.",
     .cure = "Write at least one value: the last one is repeated to the end of the block. "
             "Look at the length of the block, too.",
     .score = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 }
)",
     .cured = R"(i1 = 4, 0, 4 {
p2 1  p3 1
p4 60 }
)"},
    {.code = "Econstant",
     .title = "There is no constant of this name",
     .cause = "A `~` and a name stand for the value of a constant, and no line above defines it. "
              "The name may be misspelt; upper and lower case are different letters here. "
              "Or the definition comes later in the score. "
              "In the value of an `#if` this ends no run, and `vornkit check` calls it a warning.",
     .cure = "Compare the name with that of its `#const`, and define it further up.",
     .score = R"(#const ROOT 60
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~Root }
)",
     .cured = R"(#const ROOT 60
i1 = 4, 0, 4 {
p2 1  p3 1  p4 ~ROOT }
)"},
    {.code = "Eendless",
     .title = "A text does not end",
     .cause = "The score or one of its include files is no file of a certain length, "
              "but goes on and on. Vorn stops reading it after 100,000,000 characters.",
     .cure = "Give the text as a file, which may have any length; `vornkit` takes 1,000,000,000 characters.",
     .unprovoked = "No score can show this: it depends on where the text comes from, not on what it says."},
    {.code = "Einclude",
     .title = "An include file cannot be read",
     .cause = "The file between the bars cannot be read: it is not there, or may not be opened. "
              "Its name is looked up in the folder in which the command runs, "
              "and not beside the score, unless `--relative` asks for that. "
              "Here there is `drums.vorn`, and its name is misspelt.",
     .cure = "Correct the name, or start the command in the folder that the name counts from.",
     .score = R"(#include |drum.vorn|
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(#include |drums.vorn|
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "Elong",
     .title = "A name or the body of a macro is too long",
     .cause = "Mostly the `#` that ends the body of a macro is missing, "
              "so that much of the score was taken for the body.",
     .cure = "Write the `#` where the body ends. Divide a body that is really so long.",
     .unprovoked = "It takes more than 4095 characters, which are too many to be shown here."},
    {.code = "Emacro",
     .title = "There is no macro of this name",
     .cause = "A `$` and a name stand for the body of a macro, and no line above defines it. "
              "The name may be misspelt; upper and lower case are different letters here. "
              "All letters, digits and `_` behind the `$` belong to the name, "
              "so that `$ROOT2` is not `$ROOT` with a 2 behind it. "
              "In the value of an `#if` this ends no run, and `vornkit check` calls it a warning.",
     .cure = "Compare the name with that of its `#define`, and define it further up.",
     .score = R"(#define ROOT #60#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $ROOTS }
)",
     .cured = R"(#define ROOT #60#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $ROOT }
)"},
    {.code = "Enames",
     .title = "Two files of a run are the same",
     .cause =
         "Two of the files that a run has open at the same time are the same one. Mostly a file includes "
         "itself, directly or by way of another one, which nothing could end. "
         "Or a file is to be read and written, perhaps by the messages of the run: "
         "writing it would destroy what is still to be read.",
     .cure = "Take out the include that leads back, include no file that the run writes, "
             "and give each file a name of its own.",
     .score = R"(#include |score.vorn|
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "Enesting",
     .title = "There are too many include files",
     .cause = "A run opens at most 12 files, the score among them, whether they stand inside each other or "
              "side by side. A file that is included twice counts twice.",
     .cure = "Join some of the files, or take out what is included more than once.",
     .score = R"(#include |drums.vorn| #include |drums.vorn| #include |drums.vorn| #include |drums.vorn|
#include |drums.vorn| #include |drums.vorn| #include |drums.vorn| #include |drums.vorn|
#include |drums.vorn| #include |drums.vorn| #include |drums.vorn| #include |drums.vorn|
)",
     .cured = "#include |drums.vorn|\n"},
    {.code = "Eopen",
     .title = "A file cannot be opened",
     .cause = "A file of the run cannot be opened, or not be read to its end. "
              "It may be misspelt, be a folder, or have no right for you to use it.",
     .cure = "Look at the name, and from which folder it is counted.",
     .unprovoked = "No score can show this: it depends on the files, not on what the score says."},
    {.code = "Eother",
     .title = "An error of which nothing more is known",
     .cause = "The message says all there is.",
     .cure = "Look at the place that it names.",
     .unprovoked = "No message is known that would be told so."},
    {.code = "Epath",
     .title = "The name of an include file is too long",
     .cause = "The name between the bars has more than 255 characters. "
              "Mostly the second bar is missing, so that the score was taken for the name.",
     .cure = "Write the second bar: `#include |drums.vorn|`.",
     .score = R"(#include |drums.vorn
; The drums play throughout. Above them stand two voices, of which the second
; one begins eight beats later. Both have the same notes, each with its own
; rhythm, and both end with the last beat of the drums.
i1 = 5, 0, 16 { p2 1  p3 1  p4 no c4 d e f g  p5 db 70 }
i2 = 5, 8, 8 { p2 .5  p3 1  p4 no c4 d e f g  p5 db 70 }
)",
     .cured = R"(#include |drums.vorn|
; The drums play throughout. Above them stand two voices, of which the second
; one begins eight beats later. Both have the same notes, each with its own
; rhythm, and both end with the last beat of the drums.
i1 = 5, 0, 16 { p2 1  p3 1  p4 no c4 d e f g  p5 db 70 }
i2 = 5, 8, 8 { p2 .5  p3 1  p4 no c4 d e f g  p5 db 70 }
)"},
    {.code = "Epfields",
     .title = "A block has too few or too many p-fields",
     .cause = "The first number behind the `=` says how many p-fields the block has, from 3 to 128. "
              "P1, the instrument, counts, and each block has at least P2 and P3, its starts and durations. "
              "Perhaps the numbers of the header are in another order.",
     .cure = "Write the number of the last p-field: a block that ends with P5 has 5.",
     .score = R"(i1 = 2, 0, 4 {
p2 1
p3 1 }
)",
     .cured = R"(i1 = 3, 0, 4 {
p2 1
p3 1 }
)"},
    {.code = "Etemporary",
     .title = "The temporary file cannot be made",
     .cause = "Vorn keeps a copy of the score while it runs, in the folder that the environment variable "
              "TMPDIR names, or else in /tmp. That folder is not there, is full, or may not be written to. "
              "Its name may also be too long.",
     .cure = "Let TMPDIR name a folder of your own.",
     .unprovoked = "No score can show this: it depends on the disk, not on what the score says."},
    {.code = "Eusage",
     .title = "The command line of vorn is not complete",
     .cause = "`vorn` takes options and then exactly two names, of the score and of what is written. "
              "An option is unknown, or a name is missing.",
     .cure = "Write `vorn piece.vorn piece.sco`. `vorn` alone lists the options.",
     .unprovoked = "No score can show this: it is about the command line, not about the score."},
    {.code = "Ewrite",
     .title = "A file cannot be written to its end",
     .cause = "What the run yields could not be written to its end. Mostly the disk is full. "
              "What has been written is not complete.",
     .cure = "Make room on the disk, or write to another one.",
     .unprovoked = "No score can show this: it depends on the disk, not on what the score says."},
    {.code = "Wmore",
     .title = "There are more warnings, which are not told one by one",
     .cause = "10,000 different warnings have been told, and the score gives cause for further ones. "
              "They are counted, at the place of the first of them.",
     .cure = "Mend what the warnings above have in common, and check the score again.",
     .unprovoked = "It takes more than 10,000 warnings, which are too many to be shown here."},
    {.code = "Wother",
     .title = "A warning of which nothing more is known",
     .cause = "The message says all there is.",
     .cure = "Look at the place that it names.",
     .unprovoked = "No message is known that would be told so."},
    {.code = "Wtempo",
     .title = "A tempo conflicts with the end of the one before it",
     .cause = "A definition of tempo begins before the one above it ends. "
              "It holds all the same, from its beginning on. "
              "A tempo without beats, `te(120)`, lasts until beat 1000, so that any later one within it is "
              "told so.",
     .cure = "Write the definitions in the order of time, each ending where the next begins. "
             "Where the order is right, nothing needs to be changed.",
     .score = R"(te(0 8 60 120)
te(4 12 120 60)
i1 = 3, 0, 12 { p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120)
te(8 12 120 60)
i1 = 3, 0, 12 { p2 1  p3 1 }
)"},
};

}  // namespace

ExplanationTable unnumbered_explanations() { return TABLE; }

}  // namespace vorn::kit
