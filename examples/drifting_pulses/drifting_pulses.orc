sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a marimba: the bar, its two overtones, the mallet
    p3      =      .9
    aenv    expseg .01, .002, 1, p3 - .002, .001
    aover   expseg .01, .002, 1, .12, .001, 1, .001
    abar    oscili 1, p4
    afourth oscili .5, p4 * 3.93
    atenth  oscili .25, p4 * 9.6
    asound  =      (abar * aenv + (afourth + atenth) * aover) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .2
    garight =      garight + aright * .2
endin

instr 2                             ; a long low tone
    aenv    linsegr 0, .4, 1, p3 - .4, .7, .6, 0
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.004
    asound  butterlp afirst + asecond, 500
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .2
    garight =       garight + aright * .2
endin

instr 3                             ; a vibraphone
    aenv    expseg .01, .004, 1, p3 - .004, .001
    kmotor  oscili .35, 5
    abar    oscili 1, p4
    afourth oscili .15, p4 * 4
    asound  =      (abar + afourth * aenv) * aenv * (.65 + kmotor) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .8, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
