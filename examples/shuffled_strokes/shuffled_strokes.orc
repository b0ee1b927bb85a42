sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

instr 1                             ; wood
    kenv   expon  1, p3, .001
    asound oscili ampdb(p4) * kenv, p5, 1
    aknock oscili ampdb(p4) * kenv * kenv * .4, p5 * 3.93, 1
           outs   (asound + aknock) * (1 - p6), (asound + aknock) * p6
endin

instr 2                             ; skins
    kenv   expon  1, p3, .001
    kdrop  expon  p5 * 1.6, p3, p5
    asound oscili ampdb(p4) * kenv, kdrop, 1
    anoise rand   ampdb(p4) * kenv * kenv * .3
           outs   (asound + anoise) * (1 - p6), (asound + anoise) * p6
endin

instr 3                             ; metal
    kenv   expon   1, p3, .001
    asound foscili ampdb(p4) * kenv, p5, 1, 1.41, 3 * kenv, 1
           outs    asound * (1 - p6), asound * p6
endin
