#include "kit/diagnose/explanation_tables.h"

// What goes wrong in a tempo: te(tempo) or te(start end tempo1 tempo2 [curve]).

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E46",
     .cause = "A tempo is a number of beats per minute, from 1 to 4000. This one lies outside.",
     .cure = "Write a tempo from 1 to 4000: `te(60)`.",
     .score = R"(te(0)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(60)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E150",
     .cause = "`te` begins with a number: the tempo, or the beat at which a change of tempo begins. "
              "None can be read.",
     .cure = "Write `te(120)`, or `te(0 8 60 120)` for a change from beat 0 to beat 8.",
     .score = R"(te(fast)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E151",
     .cause = "Behind its first number `te` is not closed, so that a change of tempo is meant. "
              "Then a second number says at which beat it ends, and here is none.",
     .cure = "Close the short form, `te(120)`, or write all four numbers: `te(0 8 60 120)`.",
     .score = R"(te(120 bpm)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E152",
     .cause = "A change of tempo has four numbers: first beat, last beat, first tempo, last tempo. "
              "The third one cannot be read.",
     .cure = "Write all four: `te(0 8 60 120)`.",
     .score = R"(te(60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E153",
     .cause = "A change of tempo has four numbers: first beat, last beat, first tempo, last tempo. "
              "The fourth one cannot be read. "
              "The letter of the curve comes behind it, not before.",
     .cure = "Write all four and then the curve: `te(0 8 60 120 l)`.",
     .score = R"(te(0 8 60 l)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120 l)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E155",
     .cause = "The first of four numbers in `te` is the beat at which the change of tempo begins. "
              "It lies below 0 or above 10000.",
     .cure = "Write a beat from 0 to 10000.",
     .score = R"(te(-1 8 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E156",
     .cause = "The second of four numbers in `te` is the beat at which the change of tempo ends. "
              "It lies below 0 or above 10000.",
     .cure = "Write a beat from 0 to 10000.",
     .score = R"(te(0 20000 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 200 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E157",
     .cause = "The third of four numbers in `te` is the tempo at which the change begins. "
              "It lies below 1 or above 4000.",
     .cure = "Write a tempo from 1 to 4000. "
             "The order is first beat, last beat, first tempo, last tempo.",
     .score = R"(te(0 8 0 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 120)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E158",
     .cause = "The fourth of four numbers in `te` is the tempo at which the change ends. "
              "It lies below 1 or above 4000.",
     .cure = "Write a tempo from 1 to 4000. "
             "To come to a halt, write a slow tempo and longer notes: a tempo of 0 would never end.",
     .score = R"(te(0 8 60 0)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(0 8 60 40)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E159",
     .cause = "A change of tempo ends before it begins: its second number is smaller than its first. "
              "Perhaps the second one was meant as a length; it is a beat of the score.",
     .cure = "Write the beat at which the change ends: `te(8 12 60 90)` takes four beats.",
     .score = R"(te(8 4 60 90)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(te(8 12 60 90)
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
};

}  // namespace

ExplanationTable tempo_explanations() { return TABLE; }

}  // namespace vorn::kit
