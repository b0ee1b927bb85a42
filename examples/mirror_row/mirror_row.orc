sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a struck string: two strings and the hammer
    iring   =       1.2 + 220 / p4
    aenv    linsegr 0, .003, 1, p3, 1, .25, 0
    adecay  expseg  1, iring, .2, 1, .1
    kfade   expseg  1, .25, .35, 2, .15
    afirst  vco2    .5, p4, 0
    asecond vco2    .5, p4 * 1.0015, 4, .3
    kopen   =       p4 * 2 + 4500 * kfade * ampdb(p5 - 80)
    asound  butterlp afirst + asecond, kopen
    asound  =       asound * aenv * adecay * ampdb(p5) * .9
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .22
    garight =       garight + aright * .22
endin

instr 2                             ; a celesta
    p3      =       1.8
    aenv    expseg  .01, .002, 1, p3 - .002, .001
    kring   expseg  1.6, .3, .2, 2, .1
    asound  foscili 1, p4, 1, 4.01, kring
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .35
    garight =       garight + aright * .35
endin

instr 3                             ; a reed: odd partials
    aenv    linsegr 0, .06, 1, p3, .7, .1, 0
    kvib    linseg  0, .3, 0, .4, .004
    kvib    oscili  kvib, 5
    asound  vco2    1, p4 * (1 + kvib), 10
    asound  butterlp asound, p4 * 4 + 300
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .83, 8500
            outs    aleft, aright
            clear   galeft, garight
endin
