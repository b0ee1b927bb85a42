sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 wave,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a grain: one swell of a window
    aenv   oscili ampdb(p4), 1 / p3, 3
    asound oscili aenv, p5, p6
    aleft  =      asound * sqrt(1 - p7)
    aright =      asound * sqrt(p7)
           outs   aleft, aright
    galeft  =     galeft + aleft * .3
    garight =     garight + aright * .3
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .88, 10000
            outs    aleft, aright
            clear   galeft, garight
endin
