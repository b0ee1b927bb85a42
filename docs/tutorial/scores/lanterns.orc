; p4 frequency in hertz, p5 level from 0 to 1

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1

gasend init 0                       ; what goes into the room
alwayson "Room"

instr 1                             ; the tune: plucked
    asound pluck  p5 * .75, p4, p4, 0, 1
    asound linen  asound, .002, p3, .06
    gasend += asound * .25
           outs   asound * .65, asound * .35
endin

instr 2                             ; the bass: round
    asound poscil p5 * .26, p4
    aover  poscil p5 * .14, p4 * 2
    asound linen  asound + aover, .02, p3, .15
    gasend += asound * .1
           outs   asound * .5, asound * .5
endin

instr 3                             ; the chords: slow strings
    aone   vco2   p5 * .22, p4 * 1.002
    atwo   vco2   p5 * .22, p4 * .998
    asound tone   aone + atwo, 300 + p5 * 3000
    kenv   linen  1, p3 * .3, p3, p3 * .4
    aone   = asound * kenv
    gasend += aone * .5
           outs   aone * .4, aone * .6
endin

instr 4                             ; the melody: a small bell
    kindex expon  3, p3, .3
    asound foscil p5 * .42, p4, 1, 3.01, kindex
    kenv   expseg 1, p3 + .6, .001
    asound = asound * kenv
    asound linen  asound, .003, p3, .1
    gasend += asound * .5
           outs   asound * .35, asound * .65
endin

instr 5                             ; the sparks
    iplace unirand 1
    asound poscil p5 * .26, p4
    kenv   expseg 1, p3, .001
    asound = asound * kenv
    gasend += asound * .6
           outs   asound * sqrt(1 - iplace), asound * sqrt(iplace)
endin

instr Room
    aleft, aright reverbsc gasend, gasend, .85, 8000
           outs   aleft * .8, aright * .8
    gasend = 0
endin
