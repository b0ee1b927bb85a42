sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 place between left and right

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; wood: a bar with its overtones and the stick
    aenv   expseg .01, .0015, 1, p3 - .0015, .001
    aover  expseg .01, .0015, 1, .09, .001, 1, .001
    abar   oscili 1, p5
    aknock oscili .5, p5 * 3.93
    atick  oscili .2, p5 * 9.4
    asound =      (abar * aenv + (aknock + atick) * aover) * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .2
    garight =     garight + aright * .2
endin

instr 2                             ; skins
    aenv   expseg .01, .002, 1, p3 - .002, .001
    anoisy expseg 1, .03, .05, 1, .001
    kdrop  expseg p5 * 1.6, .08, p5, 1, p5
    asound oscili 1, kdrop
    asecond oscili .35, kdrop * 1.59
    anoise rand   .5, .5, 1
    anoise tone   anoise, 3500
    asound =      (asound + asecond * aenv + anoise * anoisy) * aenv * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .15
    garight =     garight + aright * .15
endin

instr 3                             ; metal
    aenv   expseg .01, .002, 1, p3 - .002, .001
    kring  expseg 3, p3, .3
    asound foscili 1, p5, 1, 1.41, kring
    asound =      asound * aenv * ampdb(p4)
    aleft  =      asound * sqrt(1 - p6)
    aright =      asound * sqrt(p6)
           outs   aleft, aright
    galeft  =     galeft + aleft * .35
    garight =     garight + aright * .35
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .78, 8000
            outs    aleft, aright
            clear   galeft, garight
endin
