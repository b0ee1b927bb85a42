"""What each editor must colour: a score, and what pieces of its lines are."""

SCORE = """\
; an arpeggio: te(90) is no command here
te(0 16 60 90 f) rs(~SEED)
> f1 0 8192 10 1 ; a sine
#define M(a'b) #i$a = 4 0 -2 { p2 1 ; no # end
p3 1 p4 no $b c4 }#
#const BAR ~[60 / 4]
$M(1'c4eg)
i3 = 7, 0, 4 {
p2 rh < 4 8. 16,4 >
p3 mo(2 1 * 0 1)
p4(hz) no c4 ef g s2(T 1 * [c4 d4:f]) r z
p5(re5) mo(T*.5 1 e 0 1 .5 v2.5 [l 60 72])
p6 no rw(4 .5 [c4 e4] .5 c4 .5 [g c4 e5] .1 d4) x3
p7 ex(T .5 p4 .5 I[p4 / 3 + 2]) dv(.1) db 60
p8 no MS(T 1 c [c4 e] [f4 a]) mo(2 1 e4 c5)
<1
> 2 }
i-4 = 5 0 4 { p2 1 /* } */ p3 ra(T) } te(~[FACE])
#include |part one.vorn|
/* outer /* inner */ te(1) */ te(2)
#if($X)
i$A = 4 ~B 4 { p2 < 1 > }
#endif
"""

# An error, warnings and notes.
BAD = """\
te(400)
i1 = 4 0 4 {
p2 1
p3 1
p4 0,5 }
i2 = 4 0 4 {
p2 1
p3 1
p4 c4 }
"""

# Line, piece, which of the equal pieces of the line, and what it is.
PIECES = [
    (1, "te", 1, "comment"), (2, "te", 1, "command"), (2, "16", 1, "number"), (2, "f", 1, "curve"),
    (2, "rs", 1, "command"), (2, "~SEED", 1, "constant"), (3, ">", 1, "direct"), (3, "f1", 1, "direct"),
    (3, "sine", 1, "comment"), (4, "#define", 1, "directive"), (4, "M", 1, "macro"), (4, "p2", 1, "pfield"),
    (4, "$a", 1, "macro"), (4, "i", 2, "instrument"), (4, "no", 1, "comment"), (4, "end", 1, "comment"),
    (5, "no", 1, "type"), (5, "c4", 1, "note"), (5, "$b", 1, "macro"), (6, "#const", 1, "directive"),
    (6, "BAR", 1, "constant"), (6, "60", 1, "number"), (7, "$M", 1, "macro"), (7, "c4eg", 1, "note"),
    (8, "i3", 1, "instrument"), (8, "7", 1, "number"), (9, "p2", 1, "pfield"), (9, "rh", 1, "type"),
    (9, "8.", 1, "number"), (10, "mo", 1, "generator"), (10, "*", 1, "curve"), (11, "p4", 1, "pfield"),
    (11, "hz", 1, "type"), (11, "ef", 1, "note"), (11, "g", 1, "note"), (11, "s2", 1, "generator"),
    (11, "T", 1, "time"), (11, "f", 2, "note"), (11, "r", 1, "rest"), (11, "z", 2, "repeat"),
    (12, "re5", 1, "type"), (12, "e", 2, "curve"), (12, "v2.5", 1, "curve"), (12, "l", 1, "distribution"),
    (13, "rw", 1, "generator"), (13, "c4", 1, "note"), (13, "c4", 2, "note"), (13, "g", 1, "distribution"),
    (13, "d4", 1, "note"), (13, "x3", 1, "repeat"), (14, "ex", 1, "generator"), (14, "p4", 1, "field"),
    (14, "p4", 2, "field"), (14, "dv", 1, "command"), (14, "db", 1, "type"), (15, "MS", 1, "generator"),
    (15, "c", 1, "curve"), (15, "c4", 1, "note"), (15, "a", 1, "note"), (15, "e", 2, "curve"),
    (15, "c5", 1, "note"), (17, "2", 1, "number"), (18, "i-4", 1, "comment"), (18, "ra", 1, "comment"),
    (18, "te", 1, "command"), (18, "FACE", 1, "constant"), (19, "#include", 1, "directive"), (19, "part one", 1, "include"),
    (20, "inner", 1, "comment"), (20, "te", 2, "comment"), (20, "te", 3, "command"), (21, "#if", 1, "directive"),
    (22, "i", 1, "instrument"), (22, "$A", 1, "macro"), (22, "~B", 1, "constant"), (22, "1", 1, "number"),
    (23, "#endif", 1, "directive"),
]


def column(line, piece, which):
    """Where the piece begins in its line, from 0; bytes and characters are the same here."""
    text = SCORE.splitlines()[line - 1]
    at = -1
    for _ in range(which):
        at = text.index(piece, at + 1)
    return at
