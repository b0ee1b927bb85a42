<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a breath: it brightens as it swells
    aenv    cosseg 0, p3 * .45, 1, p3 * .1, 1, p3 * .45, 0
    kenv    cosseg 0, p3 * .5, 1, p3 * .5, 0
    ksway   oscili .0015, .11 + p7 * .1
    afirst  vco2   .5, p4 * (1 + ksway)
    asecond vco2   .5, p4 * 1.0022, 12
    kopen   =      p4 * 1.2 + 5000 * p6 * kenv
    asound  butterlp afirst + asecond, kopen
    asound  butterlp asound, kopen * 1.5
    asound  =      asound * aenv * ampdb(p5) * .85
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; a glass
    aenv    cosseg 0, p3 * .3, 1, p3 * .7, 0
    ktremor oscili .25 * p6, 4 + 2 * p6
    afirst  oscili 1, p4
    asecond oscili .2 * p6, p4 * 2.003
    asound  =      (afirst + asecond) * aenv * (1 + ktremor) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .6
    garight =      garight + aright * .6
endin

instr 3                             ; a gong: six partials, the higher the shorter
    astrike linseg 0, .008, 1
    along   expon  1, p3, .001
    amiddle expon  1, p3 * .6, .001
    ashort  expon  1, p3 * .35, .001
    a1      oscili 1, p4
    a2      oscili .8, p4 * 1.98
    a3      oscili .6, p4 * 2.71
    a4      oscili .5, p4 * 3.87
    a5      oscili .35, p4 * 5.43
    a6      oscili .25, p4 * 8.21
    asound  =      (a1 + a2) * along + (a3 + a4) * amiddle + (a5 + a6) * ashort
    asound  =      asound * astrike * ampdb(p5) * .5
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .9, 7000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A breathing drone: six partials of one low tone swell and sink, each in a rhythm of
; its own, so that the chord never stands still. A gong opens it, and marks where
; the ground sinks by a fifth under it, and where it comes back.
;
; What to learn from it: cycles of unequal length, pure intervals, durations
; that go on into the next breath, slow movements, loops in P2.
; To hear it, from any folder:
;     csound path/to/breathing_drone.csd
;     vornkit play path/to/breathing_drone.vorn path/to/breathing_drone.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

> i9 0 132 ; the room in which all sounds, for 132 seconds

/* Beats are seconds here. A duration of 1.3 goes on into the next breath, so that one
   swells while the other sinks. The pitches are octave.pitch-class with hundredths of a
   semitone ("opx"), since pure intervals lie between the keys: 5.09 is a, 55 hertz, 7.0402
   its third partial, 165 hertz, a fiftieth of a semitone above the e. */

i1 = 7, 0, 120 {                    ; the ground
p2 12
p3 1.35
p4(hz) opx 5.09 x4  5.0198 x3  5.09
p5 79 81 82 83  84 84 83  82 80 77
p6 mo(T*.5 1 .1 .5) mo(T*.5 1 .5 .05)
p7 .5
}

i1 = 7, 4, 108 {                    ; the fifth above its octave
p2 9
p3 1.4
p4(hz) opx 7.0402 x5  7.0198 x3  7.0402
p5 mo(T*.5 1 73 80) mo(T*.5 1 80 71)
p6 < .2 .5 .35 >
p7 < .25 .4 >
}

i1 = 7, 7, 98 {                     ; two octaves
p2 7
p3 1.5
p4(hz) opx < 7.09 7.0904 7.0896 >            ; hardly out of tune, so that they beat
p5 mo(T*.5 1 72 79) mo(T*.5 1 79 69)
p6 < .3 .6 .4 .8 >
p7 < .75 .6 .85 >
}

i1 = 7, 16, 84 {                    ; the natural seventh and the major third come and go
p2 < 5 8 6 >
p3 1.3
p4(hz) opx < 8.0669 8.0086 >
p5 mo(T*.5 1 68 76) mo(T*.5 1 76 66)
p6 < .3 .9 >
p7 < .1 .9 .3 .7 >
}

i3 = 7, 0, -4 {                     ; the gong
p2 48 36 30 1
p3 1018
p4(hz) opx 5.09 5.0198 5.09 5.09
p5 78 80 80 76
p6 .3 .5 .5 .2
p7 .5 .4 .6 .5
}

rs(12)
i2 = 7, 22, 74 {                    ; high partials, like fingers on glasses
p2 ra(T 1 [l 1.5 5])
p3 ra(T 1 [1004 1009])
p4(hz) opx se(T 1 x [8.09 8.1104 9.0086 9.0402 9.0669 9.09 9.1104])
p5 mo(T*.5 1 [58 62] [66 72]) mo(T*.5 1 [66 72] [56 60])
p6 ra(T 1 [.2 .8])
p7 rw(T 1 [0 1] .6 .5)
}
</CsScore>
</CsoundSynthesizer>
