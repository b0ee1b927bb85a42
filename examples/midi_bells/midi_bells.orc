; p4 amplitude, p5 the note; c4 is 48, and the drums are numbers of their own

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

galeft  init 0                      ; what goes into the room
garight init 0
alwayson "Room"

instr 1                             ; a tube, struck; low ones hang left, high ones right
    ifreq   =      cpsmidinn(p5 + 12)
    iplace  =      (p5 - 48) / 26 * .6 + .2
    klong   expon  1, p3, .001
    kshort  expon  1, p3 * .4, .001
    ahum    oscili .35 * klong, ifreq * .5
    aprime  oscili .7 * klong, ifreq
    abeat   oscili .3 * klong, ifreq * 1.003
    athird  oscili .25 * kshort, ifreq * 2.38
    aoctave oscili .4 * kshort, ifreq * 2.01
    ahigh   oscili .2 * kshort, ifreq * 3.76
    aedge   oscili .12 * kshort * kshort, ifreq * 6.1
    asound  =      (ahum + aprime + abeat + athird + aoctave + ahigh + aedge) * p4 * .11
    asound  linen  asound, .002, p3, .1
    aleft   =      asound * sqrt(1 - iplace)
    aright  =      asound * sqrt(iplace)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; strings: three a little out of tune
    ifreq   =      cpsmidinn(p5 + 12)
    aone    vco2   p4 * .05, ifreq
    atwo    vco2   p4 * .05, ifreq * 1.004
    athree  vco2   p4 * .05, ifreq * .996
    kswell  linseg 500, p3 * .5, 1600, p3 * .5, 500
    aleft   tone   aone + atwo, kswell
    aright  tone   aone + athree, kswell
    aenv    linen  .5, .4, p3, .5
    aleft   =      aleft * aenv
    aright  =      aright * aenv
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 3                             ; drums: skins, whose notes say how high, and a cymbal
    if p5 == 49 then
    p3      =      3
    aenv    expseg 1, p3, .001
    anoise  noise  p4 * .1, 0
    asound  butterhp anoise * aenv, 5000
    else
    p3      =      .8
    aenv    expseg 1, p3, .001
    kpitch  expseg cpsmidinn(p5) * 1.8, .07, cpsmidinn(p5), p3, cpsmidinn(p5)
    asound  oscili p4 * .32, kpitch
    aslap   noise  p4 * .06, 0
    kslap   expseg 1, .04, .001, p3, .001
    asound  =      asound * aenv + aslap * kslap
    endif
    asound  linen  asound, .002, p3, .05
            outs   asound * .7, asound * .7
    galeft  =      galeft + asound * .1
    garight =      garight + asound * .1
endin

instr Room
    aleft, aright reverbsc galeft, garight, .75, 8000
            outs   aleft, aright
            clear  galeft, garight
endin
