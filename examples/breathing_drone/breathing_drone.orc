sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a breath: it brightens as it swells
    aenv    cosseg 0, p3 * .45, 1, p3 * .1, 1, p3 * .45, 0
    kenv    cosseg 0, p3 * .5, 1, p3 * .5, 0
    ksway   oscili .0015, .11 + p7 * .1
    afirst  vco2   .5, p4 * (1 + ksway)
    asecond vco2   .5, p4 * 1.0022, 12
    kopen   =      p4 * 1.2 + 5000 * p6 * kenv
    asound  butterlp afirst + asecond, kopen
    asound  butterlp asound, kopen * 1.5
    asound  =      asound * aenv * ampdb(p5) * .85
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; a glass
    aenv    cosseg 0, p3 * .3, 1, p3 * .7, 0
    ktremor oscili .25 * p6, 4 + 2 * p6
    afirst  oscili 1, p4
    asecond oscili .2 * p6, p4 * 2.003
    asound  =      (afirst + asecond) * aenv * (1 + ktremor) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .6
    garight =      garight + aright * .6
endin

instr 3                             ; a gong: six partials, the higher the shorter
    astrike linseg 0, .008, 1
    along   expon  1, p3, .001
    amiddle expon  1, p3 * .6, .001
    ashort  expon  1, p3 * .35, .001
    a1      oscili 1, p4
    a2      oscili .8, p4 * 1.98
    a3      oscili .6, p4 * 2.71
    a4      oscili .5, p4 * 3.87
    a5      oscili .35, p4 * 5.43
    a6      oscili .25, p4 * 8.21
    asound  =      (a1 + a2) * along + (a3 + a4) * amiddle + (a5 + a6) * ashort
    asound  =      asound * astrike * ampdb(p5) * .5
    aleft   =      asound * sqrt(1 - p7)
    aright  =      asound * sqrt(p7)
            outs   aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .9, 7000
            outs    aleft, aright
            clear   galeft, garight
endin
