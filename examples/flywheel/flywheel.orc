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
