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

instr 1                             ; a stroke
    kenv   expon  1, p3, .001
    asound oscili ampdb(p4) * kenv, p5, 1
    asound tone   asound, p5 * 8 * kenv + 200
           outs   asound * sqrt(1 - p6), asound * sqrt(p6)
endin

instr 2                             ; a breath of wind
    kenv   linseg  0, p3 * .5, 1, p3 * .5, 0
    anoise rand    ampdb(p4) * kenv
    asound butterbp anoise, p5, p5 * .3
           outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Flywheel: from 40 to 280 beats per minute in 88 beats, slowly at first. Three
; wheels of one, two and three strokes to the beat are coupled one after the other;
; the faster they turn, the higher and louder they sound, until they stand still.
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

te(0 88 40 280 e)                   ; e: in the shape of x squared
rs(40)
> f1 0 8192 10 1 .5 .3 .2 .15 .1

/* A start interval is converted at the tempo of its beginning, however long it
   is. So that they keep together, all wheels turn in sixths of a beat, and their
   strokes are those of the sixths that are no rests: a negative duration is one.
   For the same reason the wheels that enter later count their rests from beat 0. */

i1 = 6, 0, -529 {                   ; the first wheel, and the last stroke of all
p2 rh 24
p3 < 1000.4 -1 x5 >                 ; one stroke in six
p4 mo(-528 1 e 70 76) 80
p5(hz) no mo(-528 1 e d2 d4) d2
p6 .5
}

i1 = 6, 0, -528 {                   ; two strokes to the beat, from beat 24 on
p2 rh 24
p3 -1 x144 < 1000.3 -1 x2 >
p4 mo(T 1 e 62 74)
p5(hz) no mo(T 1 e a2 a4)
p6 < .2 .35 >
}

i1 = 6, 0, -528 {                   ; three strokes to the beat, from beat 48 on
p2 rh 24
p3 -1 x288 < 1000.2 -1 >
p4 mo(T 1 e 57 72)
p5(hz) no mo(T .7 e d4 d6  .3 e a4 a6)          ; two rising lines, one more often
p6 < .65 .75 .85 >
}

/* The wind of the wheels, which turns in whole beats and so falls behind them: a
   breath a beat, and a long one when they have stopped. Its pitch follows the
   start time in seconds, P2; EX can use every p-field given before. */
i2 = 6, 0, -89 {                    ; vornkit: ignore L8, it is to fall behind
p2 1
p3 rd(.2) 1.5 x88 1006              ; not quite even
p4 rd(0) mo(T 1 e 54 68)
p5 ex(T 1 [p2 * 20 + 200])
p6 se(T 1 x [.1 .3 .7 .9])
}
</CsScore>
</CsoundSynthesizer>
