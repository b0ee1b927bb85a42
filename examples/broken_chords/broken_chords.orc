sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a harp
    aenv    expseg  .01, .002, 1, p3 - .002, .003
    aplay   linseg  1, p3 - .05, 1, .05, 0
    kopen   expseg  1, .2, .3, 2, .1
    astring vco2    1, p4, 4, .15
    asound  butterlp astring, p4 * 2 + 5000 * kopen * ampdb((p5 - 78) / 2)
    asound  =       asound * aenv * aplay * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 2                             ; the bass
    aenv    linseg  0, .03, 1, p3 - .4, .5, .37, 0
    afirst  oscili  1, p4
    asecond oscili  .4, p4 * 2
    athird  oscili  .15, p4 * 3
    asound  =       (afirst + asecond + athird) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .1
    garight =       garight + aright * .1
endin

instr 3                             ; the tune: a flute
    aenv    linseg  0, .08, 1, p3 - .2, .8, .12, 0
    kvib    linseg  0, .35, 0, .5, .006, p3, .006
    kvib    oscili  kvib, 5.1
    afirst  oscili  1, p4 * (1 + kvib)
    asecond oscili  .22, p4 * 2 * (1 + kvib)
    athird  oscili  .07, p4 * 3 * (1 + kvib)
    abreath rand    .25, .5, 1
    abreath butterbp abreath, p4 * 2, p4
    asound  =       (afirst + asecond + athird + abreath) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .84, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
