sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

; p4 frequency in hertz, p5 level from 0 to 1, .6 where a score has no p5
instr 1, 2, 3, 4, 5
    ilevel = pcount() > 4 ? p(5) : .6
    kend   linseg 1, p3, 1, .03, 0      ; no click where a note ends
           xtratim .03
    asound pluck .4 * ilevel, p4, p4, 0, 1
           out asound * kend
endin
