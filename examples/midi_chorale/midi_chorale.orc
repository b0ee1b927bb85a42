; p4 amplitude, p5 the note; c4 is 48

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

galeft  init 0                      ; what goes into the room
garight init 0
alwayson "Room"

instr 1                             ; a small organ: low voices left, high ones right
    ifreq   =      cpsmidinn(p5 + 12)
    iplace  =      (p5 - 28) / 40 * .6 + .2
    aground oscili .6, ifreq
    aoctave oscili .3, ifreq * 2.001
    atwelve oscili .12, ifreq * 3
    afour   oscili .1, ifreq * 3.998
    kchiff  expseg .5, .07, .001, p3, .001
    abreath noise  kchiff, 0
    achiff  butterbp abreath, ifreq * 4, ifreq
    asound  =      (aground + aoctave + atwelve + afour + achiff) * p4 * .17
    asound  linen  asound, .03, p3, .12
    aleft   =      asound * sqrt(1 - iplace)
    aright  =      asound * sqrt(iplace)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; the flute, whose tone begins to tremble when it is held
    ifreq   =      cpsmidinn(p5 + 12)
    kdepth  linseg 0, .25, 0, .4, .005, 1, .005
    ktremor oscili kdepth, 5.2
    kfreq   =      ifreq * (1 + ktremor)
    aground oscili 1, kfreq
    aoctave oscili .22, kfreq * 2
    atwelve oscili .06, kfreq * 3
    anoise  noise  .25, 0
    abreath butterbp anoise, ifreq * 2, ifreq * .5
    asound  =      (aground + aoctave + atwelve + abreath) * p4 * .13
    asound  linen  asound, .05, p3, .08
            outs   asound * .6, asound * .8
    galeft  =      galeft + asound * .3
    garight =      garight + asound * .3
endin

instr Room
    aleft, aright reverbsc galeft, garight, .75, 7000
            outs   aleft, aright
            clear  galeft, garight
endin
