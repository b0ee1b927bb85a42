<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; p4 amplitude in decibels, p5 frequency in hertz
    aenv   linsegr 0, .03, 1, p3, .45, .2, 0
    kdepth linseg  0, .4, .005, 1, .005
    kvib   oscili  kdepth * p5, 5.2
    kcolour linseg 2, .1, 1, p3, .6
    asound foscili 1, p5 + kvib, 1, 2, kcolour * ampdb(p4 - 74)
    asound =       asound * aenv * ampdb(p4) * 1.7
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .35
    garight =      garight + aright * .35
endin

instr 2                             ; p4 octave.pitch-class, p5 amplitude in decibels
    aenv   linsegr 0, .5, 1, p3, .5, .9, 0
    kopen  linseg  300, p3 * .4, 600 + 250 * (p5 - 62), p3 * .6, 400
    afirst vco2    .5, cpspch(p4)
    asecond vco2   .5, cpspch(p4) * 1.004
    asound butterlp afirst + asecond, kopen
    asound =       asound * aenv * ampdb(p5) * 1.7
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .86, 8000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A wandering line: a melody walks at random through a scale, now in the upper and
; now in the lower register, over chords of which some come more often than others;
; a second melody, slower, answers it in the middle.
;
; What to learn from it: random walks, two of which share a line; weights; sets of
; chords; a scale by rounding; a seed chosen for its ending.
; To hear it, from any folder:
;     csound path/to/wandering_line.csd
;     vornkit play path/to/wandering_line.vorn path/to/wandering_line.orc
;
; instr 1 (melody): p4 amplitude in decibels, p5 frequency in hertz
; instr 2 (chords): p4 pitch as octave.pitch-class, p5 amplitude in decibels
; p6 place between left (0) and right (1)

te(66)
rs(45)                              ; with this seed the melody ends well
> i9 0 70 ; the room in which all sounds, for 70 seconds

/* The chords, of S2: those of the first set come three times as often as those of the
   second, and each of a set's chords is used before one of them returns. */
i2 = 6, 0, -17 {
p2 4
p3 1.1 x16 1008                     ; into the next chord; the last eight seconds
p4(op) no d3:a3:c4:f4
          s2(-15 .75 * [d3:a3:c4:f4 g2:f3:b3:d4 a2:e3:g3:c4 c3:g3:b3:e4]
                 .25 x [bf2:f3:a3:d4 ef3:g3:bf3:d4 f2:e3:g3:a3])
          d2:a2:d3:f3:a3
p5 ra(T 1 [g 63 70])                ; every note of a chord has a level of its own
p6 ra(T .5 .3 .5 .7)
}

/* Two walks share the line. Three notes of four belong to the upper one, whose steps
   lie within .3 of its range; the other goes on where it stopped as well. P7 is the
   step of the scale and is not written out ("xx"). Seven steps fill the twelve semitones
   of an octave: "no" rounds the places to semitones, and they are those of Dorian. */
i1 = 7, 4, -61 {                    ; it enters after the first chord
p2 rh ra(-60 .45 8  .3 4  .15 4.  .1 2)  4
p3 .95 x60 1008                     ; the last note rings for eight seconds
p4 ra(-60 1 [g 66 77]) 70
p7(xx) in rw(-60 .75 [7 15] .3 11  .25 [0 6] .5 4) 7
p5(hz) no ex(T 1 [p7 * 12 / 7 + 38])
p6 rw(T 1 [.2 .8] .2 .5)
}

i1 = 7, 24, -16 {                   ; the answer, two octaves below its top
p2 rh ra(-15 .5 2  .3 4  .2 2.)  1
p3 .95
p4 mo(-8 1 64 72) mo(-8 1 72 64)
p7(xx) in rw(-15 1 [-2 6] .4 2) 4
p5(hz) no ex(T 1 [p7 * 12 / 7 + 38])
p6 .8
}
</CsScore>
</CsoundSynthesizer>
