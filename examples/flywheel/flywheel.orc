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
