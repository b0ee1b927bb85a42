sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a bowed voice: two strings, hardly apart
    iloud   =       (p5 - 60) / 20
    kenv    linsegr 0, .05, 1, p3 * .4, .75, p3 * .6, .5, .08 + p3 * .12, 0
    kvib    oscili  .003, 5.3 + p6
    afirst  vco2    .5, p4 * (1 + kvib)
    asecond vco2    .5, p4 * 1.003
    asound  butterlp afirst + asecond, p4 * (1.5 + 2.5 * iloud * kenv) + 300
    asound  =       asound * kenv * ampdb(p5) * .8
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 2                             ; the bass: plucked
    aenv    linsegr 0, .01, 1, p3, .25, .15, 0
    afirst  oscili  1, p4
    asecond oscili  .35, p4 * 2
    athird  oscili  .15, p4 * 3
    asound  =       (afirst + asecond * aenv + athird * aenv * aenv) * aenv * ampdb(p5) * .8
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .1
    garight =       garight + aright * .1
endin

instr 3                             ; a small bell
    aenv    expseg  .001, .005, 1, p3 - .005, .001
    kring   expon   2.5, p3, .1
    asound  foscili ampdb(p5) * .7, p4, 1, 3.5, kring
    asound  =       asound * aenv
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .82, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
