sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left and right

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a player: plucked
    iloud  =       ampdb(p5) * 3.4
    asound pluck   iloud, p4, p4, 0, 1
    asound butterhp asound, 80              ; the string begins as noise, which has a steady part
    asound tone    asound, 5000 * ampdb(p5 - 74)
    aenv   linsegr 0, .003, 1, p3, .8, .12, 0
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .2
    garight =      garight + aright * .2
endin

instr 2                             ; the bass
    aenv   linsegr 0, .01, 1, p3, .25, .25, 0
    asound oscili  ampdb(p5) * 1.7, p4, 1
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .1
    garight =      garight + aright * .1
endin

instr 3                             ; a bell
    aenv   expseg  .01, .003, 1, p3 - .003, .001
    kring  expon   2, p3, .01
    asound foscili ampdb(p5) * 1.3, p4, 1, 2.76, kring, 1
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .78, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
