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

instr 1                             ; a stroke
    aenv   expseg .01, .003, 1, p3 - .003, .001
    kopen  expseg 1, p3, .02
    asound oscili ampdb(p4) * 1.4, p5, 1
    asound tone   asound * aenv, p5 * 16 * kopen + 400
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .3
    garight =     garight + aright * .3
endin

instr 2                             ; a breath of wind
    aenv   linseg  0, p3 * .5, 1, p3 * .5, 0
    kblow  linseg  .8, p3 * .5, 1.2, p3 * .5, .7
    anoise rand    ampdb(p4), .5, 1
    asound butterbp anoise, p5 * kblow, p5 * .12
    asound =       asound * aenv * 4
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .84, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Flywheel: from 40 to 280 beats per minute in 88 beats, slowly at first. Three
; wheels of one, two and three strokes to the beat are coupled one after the other;
; the faster they turn, the higher and louder they sound, until they stand still.
;
; What to learn from it: a tempo that follows a curve, and how blocks keep together
; in it; movements along a curve; an equation that uses the start time.
; To hear it, from any folder:
;     csound path/to/flywheel.csd
;     vornkit play path/to/flywheel.vorn path/to/flywheel.orc
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

te(0 88 40 280 e)                   ; e: in the shape of x squared
rs(40)
> f1 0 8192 10 1 .7 .6 .5 .4 .3 .25 .2 .15 .1
> i9 0 75 ; the room in which all sounds, for 75 seconds

/* A start interval is converted at the tempo of its beginning, however long it
   is. So that they keep together, all wheels turn in sixths of a beat, and their
   strokes are those of the sixths that are no rests: a negative duration is one.
   For the same reason the wheels that enter later count their rests from beat 0. */

i1 = 6, 0, -529 {                   ; the first wheel, and the last stroke of all
p2 rh 24
p3 < 1000.8 -1 x5 >                 ; one stroke in six
p4 mo(-528 1 e 77 80) 83
p5(hz) no mo(-528 1 e d2 d4) d2
p6 .5
}

i1 = 6, 0, -528 {                   ; two strokes to the beat, from beat 10 on
p2 rh 24
p3 -1 x60 < 1000.5 -1 x2 >
p4 mo(T 1 e 70 77)
p5(hz) no mo(T 1 e a2 a4)
p6 < .2 .35 >
}

i1 = 6, 0, -528 {                   ; three strokes to the beat, from beat 24 on
p2 rh 24
p3 -1 x144 < 1000.3 -1 >
p4 mo(T 1 e 60 75)
p5(hz) no mo(T .7 e d4 d6  .3 e a4 a6)          ; two rising lines, one more often
p6 < .65 .75 .85 >
}

/* The wind of the wheels, which turns in whole beats and so falls behind them: a
   breath a beat, and a long one when they have stopped. Its pitch follows the
   start time in seconds, P2; EX can use every p-field given before. */
i2 = 6, 0, -89 {                    ; vornkit: ignore L8, it is to fall behind
p2 1
p3 rd(.2) 1.5 x88 1008              ; not quite even
p4 rd(0) mo(T 1 e 61 72)
p5(hz) ex(T 1 [p2 / 2 + 44])
p6 se(T 1 x [.1 .3 .7 .9])
}
</CsScore>
</CsoundSynthesizer>
