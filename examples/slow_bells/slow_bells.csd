<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 32768

; p5 amplitude, p6 seconds of the stroke, p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

; The partials of a bell: hum, prime, minor third, fifth, octave and above. The higher
; they are, the sooner they are gone.
opcode Bell, a, iii
    ifreq, istroke, ilong xin
    astrike cosseg 0, istroke, 1
    klong   expon  1, ilong, .001
    kmiddle expon  1, ilong * .7, .001
    kshort  expon  1, ilong * .4, .001
    ahum    oscili .5 * klong, ifreq * .5
    aprime  oscili .8 * klong, ifreq
    abeat   oscili .5 * klong, ifreq * 1.0021
    athird  oscili .5 * kmiddle, ifreq * 1.19
    afifth  oscili .25 * kmiddle, ifreq * 1.506
    aoctave oscili .6 * kshort, ifreq * 2
    ahigh   oscili .3 * kshort, ifreq * 2.66
    atop    oscili .25 * kshort, ifreq * 4.07
    aedge   oscili .15 * kshort * kshort, ifreq * 6.28
    asound  =      ahum + aprime + abeat + athird + afifth + aoctave + ahigh + atop + aedge
            xout   asound * astrike
endop

instr 1                             ; a bell; p4 as octave.pitch-class
    aend    linseg 1, p3 - .1, 1, .1, 0
    asound  Bell   cpspch(p4), p6, p3
    asound  =      asound * aend * p5 * .7
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .35
    garight =      garight + aright * .35
endin

instr 2                             ; the recorded bell, without its stroke; p4 the speed
    aswell  cosseg 0, p3 * .4, 1, p3 * .6, 0
    asound  Bell   cpspch(8) * p4, p6, p3 * 4 / p4
    asound  =      asound * aswell * p5 * .8
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .6
    garight =      garight + aright * .6
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .88, 7500
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Slow bells: chords of bells that are struck by hand, so that neither their times nor
; their levels are even; below them a great bell, and one bell that is played as a
; recording at other speeds.
;
; What to learn from it: deviations, where they begin and end; chords and rests; levels
; in decibels; a transposition written as a ratio; a p-field that is not written.
; To hear it, from any folder:
;     csound path/to/slow_bells.csd
;     vornkit play path/to/slow_bells.vorn path/to/slow_bells.orc
;
; p4 pitch as octave.pitch-class, p5 amplitude, p6 seconds of the stroke,
; p7 place between left (0) and right (1)

rs(11)                              ; the same unevenness in every run
> i9 0 64 ; the room in which all sounds, for 64 seconds

i1 = 7, 0, 44 {
rd(.08)                             ; start times and durations by 4 % up and down
p2(re5) rh < 2 4 4. 8 >             ; start times with five decimals
p3 1005                             ; about five seconds
p4(op) rd(0) no < c4:g:e5 a3:e4 f3:c4:a:c5 r    ; pitches are exact again; r is a rest
                  g3:d4:b c4:e:g5 a3:e4:c5:e d4 >
p5(in) dv(.5) db 68                 ; amplitudes by a quarter up and down
p6(re4) .004
p7 < .3 .5 .7 .4 .6 >
}

i1 = 7, 4, -7 {                     ; the great bell, even again
p2 6
p3 1011
p4(op) no < c3 a2 f2 g2 >
p5(in) db 74 75 75 76 x3 75
p6(re4) .012
p7 .5
}

i1 = 7, 20, -40 {                   ; a peal that comes nearer and goes away
p2(re5) rd(.15) .5
p3 1002.5
p4(op) rd(0) no < g5 e c6 d a5 >
p5(in) dv(.4) db mo(-20 1 46 64) mo(-20 1 64 44)
p6(re4) .002
p7 mo(-20 1 .05 .5) mo(-20 1 .5 .95)
}

/* The recording is the bell of pitch c4. A transposition in semitones becomes the
   speed at which it is played; the pitch itself is kept, not written, for reading. */
rd(0)
i2 = 8, 2, -9 {
p2 5
p3 pf(.5) 1010                      ; half of ten seconds
p4(tr) 0 7 12 -12 -5 0 4 -5 -12
p5(in) db 66 x5 68 x4
p6(re4) .3
p7 < .15 .85 >
p8(xx) no c4 g c5 c3 g c4 e g3 c
}

i1 = 7, 48, -1 {                    ; all bells of the chord, and the great one
p2 1
p3 1014
p4(op) no c2:c3:g:e4:c5:g
p5(in) db 76 73 70 67 66 64
p6(re4) .01
p7 .5 .5 .3 .7 .4 .6
}
</CsScore>
</CsoundSynthesizer>
