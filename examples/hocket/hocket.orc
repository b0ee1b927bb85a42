sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left and right

instr 1                             ; a player: plucked
    asound pluck  ampdb(p5), p4, p4, 0, 1
    kenv   linsegr 1, p3, 1, .08, 0
           outs   asound * kenv * (1 - p6), asound * kenv * p6
endin

instr 2                             ; the bass
    kenv   linsegr 0, .01, 1, p3, .5, .15, 0
    asound oscili  ampdb(p5) * kenv, p4, 1
           outs    asound * (1 - p6), asound * p6
endin

instr 3                             ; a bell
    kenv   expon   1, p3, .001
    asound foscili ampdb(p5) * kenv, p4, 1, 2.76, 2 * kenv, 1
           outs    asound * (1 - p6), asound * p6
endin
