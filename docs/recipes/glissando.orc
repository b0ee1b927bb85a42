; p4 frequency in hertz, p5 level from 0 to 1, p6 the frequency into which instrument 1 slides
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1                             ; holds its tone for half of its time, then slides by even semitones
    koct   linseg octcps(p4), p3 / 2, octcps(p4), p3 / 2, octcps(p6)
    asound vco2   p5 * .4, cpsoct(koct)
    asound tone   asound, 2000
    asound linen  asound, .03, p3, .05
           out    asound
endin

instr 2
    asound pluck  p5 * .5, p4, p4, 0, 1
    asound linen  asound, .001, p3, .3
           out    asound
endin
