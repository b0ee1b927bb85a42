; p4 frequency in hertz, p5 level from 0 to 1
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1, 2, 9
    asound vco2  p5 * .3, p4
    asound tone  asound, p4 * 4
    asound linen asound, .01, p3, .1
           out   asound
endin
