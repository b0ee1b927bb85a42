;;; vorn-words.el --- The words of Vorn scores  -*- lexical-binding: t; -*-

;; Made by scripts/words from scripts/lib/words/vorn-words.el: change that.

;;; Code:

(defconst vorn-words-directives '("#include" "#define" "#const" "#endif" "#undef" "#if")
  "Words of includes, macros, constants and conditions.")

(defconst vorn-words-commands '("dv" "pf" "rd" "rs" "sr" "te" ">")
  "Commands between the blocks, and settings.")

(defconst vorn-words-generators '("dx" "ex" "ho" "mo" "ms" "ra" "rw" "s2" "se")
  "Generators.")

(defconst vorn-words-with-ranges '("mo" "ra" "rw")
  "Generators with ranges, which a letter may open.")

(defconst vorn-words-with-curves '("mo" "ms")
  "Generators with curves.")

(defconst vorn-words-with-equations '("dx" "ex")
  "Generators with equations.")

(defconst vorn-words-input-types '("nox" "opx" "db" "in" "no" "op" "re" "rh")
  "Types that values are written down in.")

(defconst vorn-words-output-types '("bn" "db" "hz" "in" "od" "op" "re" "tr" "xx")
  "Types that values are written out in.")

(defconst vorn-words-distributions '("b" "f" "g" "h" "l" "t" "x")
  "Letters behind the bracket of a range.")

(defconst vorn-words-curves '("c" "e" "f" "l" "s" "v")
  "Letters of curves.")

(defconst vorn-words-notes '("a" "b" "c" "d" "e" "f" "g" "r")
  "Letters of notes.")

(defconst vorn-words-accidentals '("+" "-" "f" "n" "s")
  "What may stand behind the letter of a note.")

(defconst vorn-words-told
  '(("te" . "te(tempo) | te(start end tempo1 tempo2 [curve]): Tempo in beats per minute, or its movement between two beats.")
    ("rs" . "rs(seed): Seed of all random values from here on, 0 to 65535.  rs(seed): Seed of all random values from here on, 0 to 65535.")
    ("rd" . "rd(deviation): Random deviation of all values from here on; .1 moves a value by up to 5 per cent up or down.  rd(deviation): Random deviation of all values from here on, in other blocks, too.")
    ("sr" . "sr(rate): Sample rate for the output type bn; 44100 without it.")
    (">" . "> text: Writes the rest of the line to the Csound score as it is.")
    ("#include" . "#include |file|: The text of another file in this place.")
    ("#define" . "#define NAME(a'b) #body#: A macro; $a and $b in its body stand for the arguments of a call.")
    ("#undef" . "#undef NAME: Forgets a macro, so that its name is free.")
    ("#const" . "#const NAME value: A constant: a number, or an equation in ~[...].")
    ("#if" . "#if(value): The lines up to #endif are read when the value is not 0.")
    ("#endif" . "#endif: Ends what #if began; alone on its line.")
    ("dv" . "dv(deviation): Random deviation of the values of this statement, added to that of rd.")
    ("pf" . "pf(factor): Factor of the values of this statement, in P3 and above.")
    ("re" . "re[decimals] number ...: Values are numbers; the type of every p-field at its beginning. A digit sets the decimals written.  re[decimals]: Written as a number with 3 decimals, or 0 to 7.")
    ("in" . "in number ...: Values are rounded to whole numbers, halves upward.  in: Written as the nearest whole number.")
    ("no" . "no note ...: Values are note names, rounded to semitones; c4 is 48.")
    ("op" . "op octave.pitch-class ...: Values are octave and pitch-class, rounded to semitones; 8.00 is the middle c, 8.07 the g above it.  op: Written as octave.pitch-class; 8.00 for c4.")
    ("rh" . "rh rhythm ...: Values are rhythms: 4 a quarter, 8 an eighth, 12 a triplet eighth, with dots and ties.")
    ("db" . "db decibels ...: Values are decibels, 0 to 96, which become amplitudes.  db: An amplitude is written as decibels.")
    ("nox" . "nox note ...: Values are note names with quarter-tones, nothing rounded.")
    ("opx" . "opx octave.pitch-class ...: As op, nothing rounded.")
    ("od" . "od: Written as octave and decimal fraction; 8.5 for fs4.")
    ("hz" . "hz: Written as a frequency; 440 for a4.")
    ("tr" . "tr: Written as a ratio of frequencies; 2 for 12 semitones.")
    ("bn" . "bn[size]: Written as the bin of a Fourier transform of 4096 samples, or of 256 (0) to 32768 (7).")
    ("xx" . "xx: Not written; equations may use it.")
    ("ra" . "ra(time weight range ...): Random values.")
    ("rw" . "rw(time weight [low high] window start ...): A random walk: each value lies in a window around the one before.")
    ("mo" . "mo(time weight [curve] from to ...): A movement from a value or range to another one.")
    ("se" . "se(time weight [mark] [value ...] ...): Values drawn from a set.")
    ("s2" . "s2(time weight [mark] [element ...] ...): Values and chords drawn from a set, in P4 and above.")
    ("ms" . "ms(time weight [curve] [value ...] [value ...] ...): Values drawn from a set that gradually gives way to another one.")
    ("ex" . "ex(time weight equation ...): Values computed from other p-fields, from left to right.")
    ("ho" . "ho(time value): One value held.")
    ("dx" . "dx(time weight equation ...): Another name of ex."))
  "What each word means, in a line.")

(provide 'vorn-words)

;;; vorn-words.el ends here
