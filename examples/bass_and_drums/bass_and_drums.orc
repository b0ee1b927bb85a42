sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, in which drums are tuned, too

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; bass drum: a tone that drops, and the beater
    p3      =       .4
    aenv    expseg  .01, .002, 1, p3 - .002, .001
    kdrop   expseg  p5 * 5, .03, p5 * 1.7, p3, p5
    aclick  expseg  1, .008, .001, 1, .001
    adrum   oscili  1, kdrop
    anoise  rand    .4, .5, 1
    asound  =       (adrum * aenv + anoise * aclick) * ampdb(p4) * .62
    asound  butterhp asound, 25
            outs    asound, asound
endin

instr 2                             ; snare: two tones of the skin, and the wires
    p3      =       .22
    aenv    expseg  .01, .001, 1, p3 - .001, .001
    askin   expseg  .01, .001, 1, .08, .001, 1, .001
    alow    oscili  .7, p5
    ahigh   oscili  .4, p5 * 1.78
    anoise  rand    1, .5, 1
    anoise  butterhp anoise, 1500
    asound  =       ((alow + ahigh) * askin + anoise * aenv * .7) * ampdb(p4) * .5
    aleft   =       asound * .75
    aright  =       asound * .65
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 3, 4                          ; hats, closed and open: metal and noise
    p3      =       p1 == 3 ? .06 : .35
    aenv    expseg  .01, .001, 1, p3 - .001, .001
    anoise  rand    1, .5, 1
    afirst  vco2    .5, 3217, 10
    asecond vco2    .5, 4801, 10
    asound  butterhp anoise + afirst * asecond, p5
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .45
    aright  =       asound * .85
            outs    aleft, aright
    galeft  =       galeft + aleft * .06
    garight =       garight + aright * .06
endin

instr 5                             ; bass
    aenv    linsegr 0, .004, 1, p3, .3, .06, 0
    kopen   expseg  24, .12, 8, 2, 3
    asaw    vco2    .6, p5
    asub    oscili  .6, p5
    asaw    butterlp asaw, p5 * kopen + 150
    asound  =       (asaw + asub) * aenv * ampdb(p4) * .8
            outs    asound * .72, asound * .7
endin

instr 6                             ; electric piano
    aenv    linsegr 0, .004, 1, .4, .5, 2.5, .1, .15, 0
    kbark   expseg  1.6, .25, .4, 3, .2
    asound  foscili 1, p5, 1, 1, kbark
    atine   foscili .15, p5, 1, 14, kbark * .5
    asound  butterhp asound + atine * aenv, 60
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .85
    aright  =       asound * .5
            outs    aleft, aright
    galeft  =       galeft + aleft * .3
    garight =       garight + aright * .3
endin

instr 7                             ; lead
    aenv    linsegr 0, .02, 1, p3, .8, .1, 0
    kvib    linseg  0, .2, 0, .3, .006
    kvib    oscili  kvib, 5.5
    afirst  vco2    .5, p5 * (1 + kvib), 10
    asecond vco2    .5, p5 * (1.004 + kvib)
    asound  butterlp afirst + asecond, 2500
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .5
    aright  =       asound * .8
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .75, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
