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
