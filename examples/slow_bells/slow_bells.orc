sr = 44100
ksmps = 64
nchnls = 1
0dbfs = 32768

; p5 amplitude, p6 seconds of the stroke

instr 1                             ; a bell; p4 as octave.pitch-class
    ifreq  =       cpspch(p4)
    kenv   expseg  .001, p6, 1, p3 - p6, .001
    kring  line    4, p3, 0
    asound foscili p5 * kenv, ifreq, 1, 2.76, kring, 1
           out     asound
endin

instr 2                             ; the recorded bell; p4 the speed
    kenv   expseg  .001, p6, 1, p3 - p6, .001
    asound oscili  p5 * kenv, cpspch(8) * p4, 1
           out     asound
endin
