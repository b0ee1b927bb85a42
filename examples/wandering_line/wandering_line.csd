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

instr 1                             ; p4 amplitude in decibels, p5 step of the scale
    ifreq  =       cpspch(table:i(p5, 2))
    kenv   linsegr 0, .02, 1, p3, .3, .15, 0
    kdepth linseg  0, .4, .006, 1, .006
    kvib   oscili  kdepth * ifreq, 5.2, 1
    asound foscili ampdb(p4) * kenv, ifreq + kvib, 1, 1, .6 * kenv, 1
           outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin

instr 2                             ; p4 octave.pitch-class, p5 amplitude in decibels
    kenv   linsegr 0, .3, 1, p3, .4, .5, 0
    asound oscili  ampdb(p5) * kenv, cpspch(p4), 1
           outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A wandering line: a melody walks at random through a scale, now in the upper and
; now in the lower register, over chords of which some come more often than others.
;
; instr 1 (melody): p4 amplitude in decibels, p5 step of the scale in table 2
; instr 2 (chords): p4 pitch as octave.pitch-class, p5 amplitude in decibels

te(66)
rs(45)                              ; with this seed the melody ends on the last chord
> f1 0 8192 10 1 .4 .1 .05
> f2 0 16 -2 7.02 7.04 7.05 7.07 7.09 7.11 8 8.02 8.04 8.05 8.07 8.09 8.11 9 9.02 9.04

i1 = 6, 4, -65 {                    ; it enters after the first chord
p2 rh ra(-64 .45 8  .3 4  .15 4.  .1 2)  4
p3 .95 x64 1005                     ; the last note rings for five seconds
p4 ra(-64 1 [g 64 74]) 68

/* Two walks share the line. Three notes of four belong to the upper one, whose
   steps lie within .3 of its range; the other goes on where it stopped as well. */
p5(in) in rw(-64 .75 [7 15] .3 11  .25 [0 6] .5 4) 7
p6 rw(T 1 [.2 .8] .2 .5)
}

/* Chords of S2: those of the first set come three times as often as those of the
   second, and each of a set's chords is used before one of them returns. */
i2 = 6, 0, -17 {
p2 4
p3 1.1 x16 1007                     ; into the next chord; the last seven seconds
p4(op) no s2(-16 .75 * [d3:a3:c4:f4 g2:f3:b3:d4 a2:e3:g3:c4 c3:g3:b3:e4]
                 .25 x [bf2:f3:a3:d4 ef3:g3:bf3:d4 f2:e3:g3:a3])
          d2:a2:d3:f3:a3
p5 ra(T 1 [g 60 67])                ; every note of a chord has a level of its own
p6 ra(T .5 .3 .5 .7)
}
</CsScore>
</CsoundSynthesizer>
