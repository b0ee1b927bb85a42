sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p6 place between left (0) and right (1)

instr 1                             ; a tick; p5 its colour in hertz
    kenv   expon 1, p3, .001
    anoise rand  ampdb(p4) * kenv
    asound butterbp anoise, p5, p5 * .4
           outs  asound * (1 - p6), asound * p6
endin

instr 2                             ; a small wheel; p5 in hertz
    kenv   expon  1, p3, .001
    asound oscili ampdb(p4) * kenv, p5, 1
           outs   asound * (1 - p6), asound * p6
endin

instr 3                             ; the weight; p5 in hertz
    kenv   expon  1, p3, .001
    kdrop  expon  p5 * 2, p3, p5
    asound oscili ampdb(p4) * kenv, kdrop, 1
           outs   asound * (1 - p6), asound * p6
endin

instr 4                             ; the bell; p5 as octave.pitch-class
    ifreq  =      cpspch(p5)
    kenv   expon  1, p3, .001
    kring  expon  5, p3, .5
    asound foscili ampdb(p4) * kenv, ifreq, 1, 1.4, kring, 1
           outs   asound * (1 - p6), asound * p6
endin
