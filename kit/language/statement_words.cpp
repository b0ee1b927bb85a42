#include "kit/language/word_tables.h"

// What stands among the values of a statement.

namespace vorn::kit {

namespace {

constexpr WordRow ROWS[] = {
    {WordKind::INPUT_TYPE, "nox", "nox note ...",
     "Values are note names with quarter-tones, nothing rounded.", "p4 nox c4 d+ e-", true},
    {WordKind::INPUT_TYPE, "opx", "opx octave.pitch-class ...", "As op, nothing rounded.",
     "p4 opx 8.00 8.075", true},

    {WordKind::NOTE, "c", "c[accidentals][octave]", "The note c; c4 is the middle one, 48.", "p4 no c4",
     true},
    {WordKind::NOTE, "d", "d[accidentals][octave]", "The note d, 2 semitones above c.", "p4 no d4", true},
    {WordKind::NOTE, "e", "e[accidentals][octave]", "The note e, 4 semitones above c.", "p4 no e4", true},
    {WordKind::NOTE, "f", "f[accidentals][octave]", "The note f, 5 semitones above c.", "p4 no f4", true},
    {WordKind::NOTE, "g", "g[accidentals][octave]", "The note g, 7 semitones above c.", "p4 no g4", true},
    {WordKind::NOTE, "a", "a[accidentals][octave]", "The note a, 9 semitones above c.", "p4 no a4", true},
    {WordKind::NOTE, "b", "b[accidentals][octave]", "The note b, 11 semitones above c.", "p4 no b4", true},
    {WordKind::NOTE, "r", "r", "A rest.", "p4 no c4 r", true},

    {WordKind::ACCIDENTAL, "s", "cs", "Sharp: a semitone up.", "p4 no cs4"},
    {WordKind::ACCIDENTAL, "f", "df", "Flat: a semitone down.", "p4 no df4"},
    {WordKind::ACCIDENTAL, "n", "cn", "Natural: changes nothing.", "p4 no cn4"},
    {WordKind::ACCIDENTAL, "+", "c+", "A quarter-tone up, under nox.", "p4 nox c+4"},
    {WordKind::ACCIDENTAL, "-", "c-", "A quarter-tone down, under nox.", "p4 nox c-4"},

    {WordKind::RHYTHM_MARK, ".", "4.", "A dot: half as much as was added before.", "p2 rh 4 8."},
    {WordKind::RHYTHM_MARK, ",", "4,8", "Directly behind a rhythm: tied to the next one.", "p2 rh 4 4,8"},

    {WordKind::REPEAT, "/", "60///", "As many times in all as there are slashes.", "p4 60// 62"},
    {WordKind::REPEAT, "x", "60 x3", "Three times in all; x0 repeats to the end of the block.",
     "p4 60 x3 62"},
    {WordKind::REPEAT, "z", "z", "The value before once more, also that of another statement.", "p4 60 z",
     true},

    {WordKind::LOOP, "<", "< value ... >", "Begins values that are repeated in turn to the end of the block.",
     "p4 58 < 60 62 >"},
    {WordKind::LOOP, ">", "< value ... >", "Ends a loop; values behind it are heard once.",
     "p4 58 < 60 62 >"},

    {WordKind::CHORD, ":", "c4:e:g", "The values on both sides sound together.", "p4 60:64"},
    {WordKind::CHORD, "'", "c4'e'g", "The values on both sides sound together.", "p4 60'64"},

    {WordKind::PUNCTUATION, ",", "60, 62", "Parts values, as blanks do.", "p4 60, 62"},
    {WordKind::PUNCTUATION, "(", "p4(output)", "Opens an output type, or what belongs to a command.",
     "p4(in) 60"},
    {WordKind::PUNCTUATION, ")", "p4(output)", "Closes what ( has opened.", "p4(in) 60"},
    {WordKind::PUNCTUATION, "[", "[low high]", "Opens a range, a set or an equation.", "p4 ra(T 1 [60 72])"},
    {WordKind::PUNCTUATION, "]", "[low high]", "Closes what [ has opened.", "p4 ra(T 1 [60 72])"},
};

}  // namespace

std::span<const WordRow> statement_rows() { return ROWS; }

}  // namespace vorn::kit
