sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 wave,
; p7 place between left (0) and right (1)

instr 1                             ; a grain: one swell of a window
    kenv   oscili ampdb(p4), 1 / p3, 3
    asound oscili kenv, p5, p6
           outs   asound * sqrt(1 - p7), asound * sqrt(p7)
endin
