sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p6 place between left (0) and right (1)

instr 1                             ; p4 amplitude in decibels, p5 step of the scale
    ifreq  =       cpspch(table:i(p5, 2))
    kenv   linsegr 0, .02, 1, p3, .3, .15, 0
    kdepth linseg  0, .4, .006, 1, .006
    kvib   oscili  kdepth * ifreq, 5.2, 1
    asound foscili ampdb(p4) * kenv, ifreq + kvib, 1, 1, .6 * kenv, 1
           outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin

instr 2                             ; p4 octave.pitch-class, p5 amplitude in decibels
    kenv   linsegr 0, .3, 1, p3, .4, .5, 0
    asound oscili  ampdb(p5) * kenv, cpspch(p4), 1
           outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin
