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

instr 1                             ; wood
    kenv   expon  1, p3, .001
    asound oscili ampdb(p4) * kenv, p5, 1
    aknock oscili ampdb(p4) * kenv * kenv * .4, p5 * 3.93, 1
           outs   (asound + aknock) * (1 - p6), (asound + aknock) * p6
endin

instr 2                             ; skins
    kenv   expon  1, p3, .001
    kdrop  expon  p5 * 1.6, p3, p5
    asound oscili ampdb(p4) * kenv, kdrop, 1
    anoise rand   ampdb(p4) * kenv * kenv * .3
           outs   (asound + anoise) * (1 - p6), (asound + anoise) * p6
endin

instr 3                             ; metal
    kenv   expon   1, p3, .001
    asound foscili ampdb(p4) * kenv, p5, 1, 1.41, 3 * kenv, 1
           outs    asound * (1 - p6), asound * p6
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Shuffled strokes: a rhythm in which no bar is like another and yet every bar is
; full. A set marked "*" is used up before it begins anew; the values of each set
; of rhythms below add up to the four beats of a bar.
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

te(116)
rs(116)
> f1 0 8192 10 1

i1 = 6, 0, -154 {                   ; wood: 22 bars of seven strokes
p2 rh se(T 1 * [4 8. 8. 8 8 16 16])
p3 1000.3

/* Sets of seven keep in step with the bars: one loud stroke in each, and each of
   the seven pitches once, in ever new pairs of stroke and pitch. */
p4 se(T 1 * [78 70 70 66 66 62 62])
p5(hz) no se(T 1 * [d4 f g a c5 d f])
p6 se(T 1 x [.1 .3 .5 .7])          ; "x": never twice in one place
}

i2 = 6, 16, -72 {                   ; skins: 18 bars of four strokes, from bar 5 on
p2 rh se(T 1 * [4. 4. 8 8])
p3 1000.25
p4 se(T 1 * [80 74 70 70])
p5 se(T 1 x [90 120 160])
p6 se(T 1 x [.4 .6])
}

i3 = 6, 32, -70 {                   ; metal: 14 bars of five strokes, from bar 9 on
p2 rh se(T 1 * [4 4 4 8 8])
p3 1000.6
p4 se(T 1 * [66 62 62 58 58])
p5(hz) no se(T .8 x [d6 e g a b]  .2 bf6)
p6 se(T 1 x [.6 .8 .9])
}

i2 = 6, 88, -3 {                    ; the end, all together
p2 .5 .5 1
p3 1000.3 // 1001
p4 80 // 82
p5 160 120 60
p6 .5
}
</CsScore>
</CsoundSynthesizer>
