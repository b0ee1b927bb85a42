<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a tick; p5 its colour in hertz
    aenv    expseg 1, p3, .001
    anoise  rand   ampdb(p4), .5, 1
    asound  butterbp anoise * aenv, p5, p5 * .3
    adeep   butterbp anoise * aenv, p5 * .29, 300
    asound  =      (asound + adeep * .7) * 1.6
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .15
    garight =      garight + aright * .15
endin

instr 2                             ; a small wheel; p5 in hertz
    aenv    expseg .01, .002, 1, p3 - .002, .001
    kring   expon  1.5, p3, .05
    asound  foscili ampdb(p4), p5, 1, 2.01, kring
    asound  =      asound * aenv
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .2
    garight =      garight + aright * .2
endin

instr 3                             ; the weight; p5 in hertz
    aenv    expseg .01, .004, 1, p3 - .004, .001
    kdrop   expseg p5 * 2.5, .06, p5, 1, p5
    asound  oscili ampdb(p4), kdrop
    asound  =      asound * aenv
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .1
    garight =      garight + aright * .1
endin

instr 4                             ; the bell; p5 as octave.pitch-class
    ifreq   =      cpspch(p5)
    aenv    expseg .001, .003, 1, p3 - .003, .001
    kring   expon  5, p3, .5
    ahum    oscili .5, ifreq * .5
    abeat   oscili .5, ifreq * .5 + .7
    asound  foscili 1, ifreq, 1, 1.4, kring
    asound  =      (asound + ahum + abeat) * aenv * ampdb(p4)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 5                             ; the music box; p5 in hertz
    aenv    expseg .001, .002, 1, p3 - .002, .001
    apluck  expseg 1, .05, .001, 1, .001
    asound  oscili 1, p5
    aover   oscili .25, p5 * 3.01
    aclick  oscili .4, p5 * 6.27
    asound  =      (asound + aover * aenv + aclick * apluck) * aenv * ampdb(p4)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .35
    garight =      garight + aright * .35
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .8, 8000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Clockwork: ticks, a weight, wheels of three and of five strokes turn against each
; other and drive a music box. Then the spring runs down, and the clock strikes five.
;
; What to learn from it: several rhythms in one time, a tempo that slows down and a
; block that does not follow it, durations in seconds, rests, a block taken out.
; To hear it, from any folder:
;     csound path/to/clockwork.csd
;     vornkit play path/to/clockwork.vorn path/to/clockwork.orc
;
; p4 amplitude in decibels, p5 pitch or colour, p6 place between left and right

te(0 72 120 120)                    ; two beats to the second
> i9 0 75 ; the room in which all sounds, for 75 seconds

/* A tempo acts on the blocks that follow it. This block comes first because its
   strokes must not slow down, though they are heard last: beat 111 of the steady
   tempo is second 55.5. */
i4 = 6, 111, -5 {                   ; five strokes by number
p2 6
p3 1006                             ; each sounds on into the next
p4 80
p5(op) no c3                        ; octave.pitch-class, for cpspch
p6 < .4 .6 >
}

te(72 96 120 40 c)                  ; from beat 72 on the spring runs down

i1 = 6, 0, 96 {                     ; the escapement: four ticks to the beat
p2 .25
p3 1000.06                          ; each 0.06 seconds, whatever the tempo
p4 < 76 63 69 63 >
p5(hz) no < fs8 cs8 ef8 cs8 >
p6 < .35 .65 >
}

/* Each interval is converted at the tempo of its beginning. So all that still turns
   when the spring runs down keeps the quarter beats of the escapement and counts rests:
   the weight with durations below 0, the music box with the note r. */
i3 = 6, 0, 96 {                     ; the weight: one stroke in sixteen quarters
p2 .25
p3 < 1001.2 -1 x15 >
p4 81
p5(hz) no a1
p6 .5
}

i2 = 6, 8, 60 {                     ; a wheel of three strokes to two beats
p2 rh 6                             ; a sixth of a whole note
p3 1000.25
p4 < 74 66// >                      ; as many 66s as there are slashes
p5(hz) no < e5 b4 b >
p6 .15
}

i2 = 6, 24, -60 {                   ; a wheel of five strokes to four beats
p2 rh 5
p3 1000.25
p4 < 73 65 x4 >
p5(hz) no < a4 c5 d e g >
p6 .85
}

i5 = 6, 40, 56 {                    ; the music box
p2 .25
p3 1001.5
p4 < 72 70 71 70 >
p5(hz) no < a5 r r e r r c6 r   b5 r g r e r r r
            a5 r r e r r d6 r   c r b5 r a r r r >
p6 < .55 .7 .6 .75 >
}

i-2 = 6, 0, 48 {                    ; a wheel taken out: its number is negative
p2 rh 12  p3 1000.05  p4 60  p5(hz) no c6  p6 .5
}
</CsScore>
</CsoundSynthesizer>
