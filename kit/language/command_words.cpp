#include "blocks/command_codes.h"
#include "kit/language/word_tables.h"

// Commands, settings, generators and types. Their names are the engine's
// (command_name); here stands only what is told of them.
//
//     CODE_RA, "(time weight range ...)"    ra(time weight range ...)

namespace vorn::kit {

namespace {

constexpr std::string_view EIGHT = "0-7";

constexpr CommandRow ROWS[] = {
    {WordKind::GLOBAL_COMMAND, CODE_TE, "(tempo) | te(start end tempo1 tempo2 [curve])",
     "Tempo in beats per minute, or its movement between two beats.", "te(0 16 60 90 f)"},
    {WordKind::GLOBAL_COMMAND, CODE_RS, "(seed)", "Seed of all random values from here on, 0 to 65535.",
     "rs(7)"},
    {WordKind::GLOBAL_COMMAND, CODE_RD, "(deviation)",
     "Random deviation of all values from here on; .1 moves a value by up to 5 per cent up or down.",
     "rd(.1)"},
    {WordKind::GLOBAL_COMMAND, CODE_SR, "(rate)", "Sample rate for the output type bn; 44100 without it.",
     "sr(48000)"},

    {WordKind::SETTING, CODE_RS, "(seed)", "Seed of all random values from here on, 0 to 65535.",
     "p4 rs(7) ra(T 1 [60 72])"},
    {WordKind::SETTING, CODE_RD, "(deviation)",
     "Random deviation of all values from here on, in other blocks, too.", "p4 rd(.1) 60 62"},
    {WordKind::SETTING, CODE_DV, "(deviation)",
     "Random deviation of the values of this statement, added to that of rd.", "p4 dv(.05) 60 62"},
    {WordKind::SETTING, CODE_PF, "(factor)", "Factor of the values of this statement, in P3 and above.",
     "p4 pf(2) 60 62"},

    {WordKind::INPUT_TYPE, CODE_RE, "[decimals] number ...",
     "Values are numbers; the type of every p-field at its beginning. A digit sets the decimals written.",
     "p4 re 60 62.5", EIGHT},
    {WordKind::INPUT_TYPE, CODE_IN, " number ...", "Values are rounded to whole numbers, halves upward.",
     "p4 in 60 62"},
    {WordKind::INPUT_TYPE, CODE_NO, " note ...", "Values are note names, rounded to semitones; c4 is 48.",
     "p4 no c4 ef gs5 r"},
    {WordKind::INPUT_TYPE, CODE_OP, " octave.pitch-class ...",
     "Values are octave and pitch-class, rounded to semitones; 8.00 is the middle c, 8.07 the g above it.",
     "p4 op 8.00 8.07"},
    {WordKind::INPUT_TYPE, CODE_RH, " rhythm ...",
     "Values are rhythms: 4 a quarter, 8 an eighth, 12 a triplet eighth, with dots and ties.",
     "p2 rh 4 8. 16 4,8"},
    {WordKind::INPUT_TYPE, CODE_DB, " decibels ...", "Values are decibels, 0 to 96, which become amplitudes.",
     "p4 db 60 72"},

    {WordKind::OUTPUT_TYPE, CODE_RE, "[decimals]", "Written as a number with 3 decimals, or 0 to 7.",
     "p4(re) 60 62.5", EIGHT},
    {WordKind::OUTPUT_TYPE, CODE_IN, "", "Written as the nearest whole number.", "p4(in) 60 62.5"},
    {WordKind::OUTPUT_TYPE, CODE_OP, "", "Written as octave.pitch-class; 8.00 for c4.", "p4(op) no c4 g"},
    {WordKind::OUTPUT_TYPE, CODE_OD, "", "Written as octave and decimal fraction; 8.5 for fs4.",
     "p4(od) no c4 g"},
    {WordKind::OUTPUT_TYPE, CODE_HZ, "", "Written as a frequency; 440 for a4.", "p4(hz) no c4 a"},
    {WordKind::OUTPUT_TYPE, CODE_TR, "", "Written as a ratio of frequencies; 2 for 12 semitones.",
     "p4(tr) 12 7 0"},
    {WordKind::OUTPUT_TYPE, CODE_DB, "", "An amplitude is written as decibels.", "p4(db) 1000 32000"},
    {WordKind::OUTPUT_TYPE, CODE_BN, "[size]",
     "Written as the bin of a Fourier transform of 4096 samples, or of 256 (0) to 32768 (7).",
     "p4(bn) no c4 a", EIGHT},
    {WordKind::OUTPUT_TYPE, CODE_XX, "", "Not written; equations may use it.", "p4(xx) 60 62"},

    {WordKind::GENERATOR, CODE_RA, "(time weight range ...)", "Random values.",
     "p4 ra(8 .25 60 .75 [g 72 84])"},
    {WordKind::GENERATOR, CODE_RW, "(time weight [low high] window start ...)",
     "A random walk: each value lies in a window around the one before.", "p4 rw(T 1 [60 72] .2 66)"},
    {WordKind::GENERATOR, CODE_MO, "(time weight [curve] from to ...)",
     "A movement from a value or range to another one.", "p4 mo(T 1 60 72)"},
    {WordKind::GENERATOR, CODE_SE, "(time weight [mark] [value ...] ...)", "Values drawn from a set.",
     "p4 se(T 1 * [60 62 64])"},
    {WordKind::GENERATOR, CODE_S2, "(time weight [mark] [element ...] ...)",
     "Values and chords drawn from a set, in P4 and above.", "p4 no s2(T 1 [c4 d4:f])"},
    {WordKind::GENERATOR, CODE_MS, "(time weight [curve] [value ...] [value ...] ...)",
     "Values drawn from a set that gradually gives way to another one.", "p4 ms(T 1 [60 62] [72 74])"},
    {WordKind::GENERATOR, CODE_EX, "(time weight equation ...)",
     "Values computed from other p-fields, from left to right.", "p4 ex(T 1 [p2 * 2 + 60])"},
    {WordKind::GENERATOR, CODE_HO, "(time value)", "One value held.", "p4 ho(-2 60) 62"},
};

}  // namespace

std::span<const CommandRow> command_rows() { return ROWS; }

}  // namespace vorn::kit
