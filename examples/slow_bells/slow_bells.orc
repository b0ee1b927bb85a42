sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 32768

; p5 amplitude, p6 seconds of the stroke, p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

; The partials of a bell: hum, prime, minor third, fifth, octave and above. The higher
; they are, the sooner they are gone.
opcode Bell, a, iii
    ifreq, istroke, ilong xin
    astrike cosseg 0, istroke, 1
    klong   expon  1, ilong, .001
    kmiddle expon  1, ilong * .7, .001
    kshort  expon  1, ilong * .4, .001
    ahum    oscili .5 * klong, ifreq * .5
    aprime  oscili .8 * klong, ifreq
    abeat   oscili .5 * klong, ifreq * 1.0021
    athird  oscili .5 * kmiddle, ifreq * 1.19
    afifth  oscili .25 * kmiddle, ifreq * 1.506
    aoctave oscili .6 * kshort, ifreq * 2
    ahigh   oscili .3 * kshort, ifreq * 2.66
    atop    oscili .25 * kshort, ifreq * 4.07
    aedge   oscili .15 * kshort * kshort, ifreq * 6.28
    asound  =      ahum + aprime + abeat + athird + afifth + aoctave + ahigh + atop + aedge
            xout   asound * astrike
endop

instr 1                             ; a bell; p4 as octave.pitch-class
    aend    linseg 1, p3 - .1, 1, .1, 0
    asound  Bell   cpspch(p4), p6, p3
    asound  =      asound * aend * p5 * .7
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .35
    garight =      garight + aright * .35
endin

instr 2                             ; the recorded bell, without its stroke; p4 the speed
    aswell  cosseg 0, p3 * .4, 1, p3 * .6, 0
    asound  Bell   cpspch(8) * p4, p6, p3 * 4 / p4
    asound  =      asound * aswell * p5 * .8
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .6
    garight =      garight + aright * .6
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .88, 7500
            outs    aleft, aright
            clear   galeft, garight
endin
