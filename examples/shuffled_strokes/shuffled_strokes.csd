<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; wood: a bar with its overtones and the stick
    aenv   expseg .01, .0015, 1, p3 - .0015, .001
    aover  expseg .01, .0015, 1, .09, .001, 1, .001
    abar   oscili 1, p5
    aknock oscili .5, p5 * 3.93
    atick  oscili .2, p5 * 9.4
    asound =      (abar * aenv + (aknock + atick) * aover) * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .2
    garight =     garight + aright * .2
endin

instr 2                             ; skins
    aenv   expseg .01, .002, 1, p3 - .002, .001
    anoisy expseg 1, .03, .05, 1, .001
    kdrop  expseg p5 * 1.6, .08, p5, 1, p5
    asound oscili 1, kdrop
    asecond oscili .35, kdrop * 1.59
    anoise rand   .5, .5, 1
    anoise tone   anoise, 3500
    asound =      (asound + asecond * aenv + anoise * anoisy) * aenv * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .15
    garight =     garight + aright * .15
endin

instr 3                             ; metal
    aenv   expseg .01, .002, 1, p3 - .002, .001
    kring  expseg 3, p3, .3
    asound foscili 1, p5, 1, 1.41, kring
    asound =      asound * aenv * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .35
    garight =     garight + aright * .35
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .78, 8000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Shuffled strokes: a rhythm in which no bar is like another and yet every bar is
; full. Wood begins, skins and metal join, the wood falls silent, all come back and
; end together.
;
; What to learn from it: sets that are used up before they begin anew, sets in step
; with bars, values that never follow themselves.
; To hear it, from any folder:
;     csound path/to/shuffled_strokes.csd
;     vornkit play path/to/shuffled_strokes.vorn path/to/shuffled_strokes.orc
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

te(116)
rs(116)
> i9 0 62 ; the room in which all sounds, for 62 seconds

/* A set marked "*" is used up before it begins anew. The rhythm values of each set add
   up to the four beats of a bar, so that each bar is full. */
i1 = 6, 0, -84 {                    ; wood: 12 bars of seven strokes
p2 rh se(T 1 * [4 8. 8. 8 8 16 16])
p3 1000.4

/* Sets of seven keep in step with the bars: one loud stroke in each, and each of
   the seven pitches once, in ever new pairs of stroke and pitch. */
p4 se(T 1 * [80 72 72 68 68 64 64])
p5(hz) no se(T 1 * [d4 f g a c5 d f])
p6 se(T 1 x [.1 .3 .5 .7])          ; "x": never twice in one place
}

i2 = 6, 16, -88 {                   ; skins: 22 bars of four strokes, from bar 5 on
p2 rh se(T 1 * [4. 4. 8 8])
p3 1000.3
p4 se(T 1 * [82 77 74 74])
p5(hz) no se(T 1 x [fs2 b2 ef3])
p6 se(T 1 x [.4 .6])
}

i3 = 6, 32, -90 {                   ; metal: 18 bars of five strokes, from bar 9 on
p2 rh se(T 1 * [4 4 4 8 8])
p3 1001.5
p4 se(T 1 * [70 66 66 62 62])
p5(hz) no se(T .8 x [d6 e g a b]  .2 bf6)
p6 se(T 1 x [.6 .8 .9])
}

i2 = 6, 48, -44 {                   ; four bars without wood: a second pair of skins,
p2 rh se(T 1 * [8 8 8 8 16 16 16 16 16 16 8])   ; lower and quicker, answers the first
p3 1000.2
p4 mo(T 1 66 80)
p5(hz) no se(T 1 x [d2 f2 g2 c3])
p6 se(T 1 x [.15 .3 .7 .85])
}

i1 = 6, 64, -70 {                   ; wood again, 6 bars and now higher, together with
p2 rh se(-42 1 * [4 8. 8. 8 8 16 16])           ; 4 bars that come ever closer to one tone
   se(-28 1 * [4 8. 8. 8 8 16 16])
p3 1000.4
p4 se(T 1 * [81 73 73 69 69 65 65])
p5(hz) no se(-42 1 * [g4 a c5 d f g a])  ms(-28 1 [g4 a c5 d f g a] [d5])
p6 se(T 1 x [.1 .3 .5 .7])
}

i2 = 6, 104, -9 {                   ; the end, all together
p2 rh 8. 8. 8 8. 8. 8 8 8 4
p3 1000.3 x8 1001
p4 mo(-8 1 77 82) 82
p5(hz) no ef3 b2 fs2 ef3 b2 fs2 ef3 b2 d2
p6 .5
}
i1 = 6, 104, -9 {
p2 rh 8. 8. 8 8. 8. 8 8 8 4
p3 1000.4
p4 mo(-8 1 70 79) 79
p5(hz) no d5:d4
p6 < .3 .7 >
}
i3 = 6, 104, -9 {
p2 rh 8. 8. 8 8. 8. 8 8 8 4
p3 1001 x8 1004
p4 mo(-8 1 58 70) 73
p5(hz) no < d6 a6 >
p6 .8
}
</CsScore>
</CsoundSynthesizer>
