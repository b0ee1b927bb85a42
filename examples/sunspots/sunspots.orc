sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0
gaecho  init 0                      ; what is heard again

instr 1                             ; the year: a tone that opens with its brightness
    aenv    linsegr 0, .03, 1, p3 * .5, .6, p3 * .5, .2, .1 + p3 * .2, 0
    kopen   expseg  1, .15, .6, p3, .2
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.004, 10
    asound  butterlp afirst + asecond, p4 * 1.5 + 300 + 8000 * p6 * kopen
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .3
    garight =       garight + aright * .3
    gaecho  =       gaecho + asound * .5
endin

instr 2                             ; the bell of the bright years
    aenv    expseg  .01, .004, 1, p3 - .004, .001
    kring   expseg  2.2, p3, .05
    asound  foscili 1, p4, 1, 2.76, kring
    ahigh   oscili  .2, p4 * 5.4
    asound  =       (asound + ahigh * aenv) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .5
    garight =       garight + aright * .5
endin

instr 3                             ; the ground
    aenv    linsegr 0, .8, 1, p3 - .8, .8, 1.2, 0
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.003
    asound  butterlp afirst + asecond, 150 + 900 * p6
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .15
    garight =       garight + aright * .15
endin

instr 8                             ; echoes, after three and six eighths of a year
    afirst  delay   gaecho, .1875
    asecond delay   afirst, .1875
            outs    afirst * .8 + asecond * .1, afirst * .1 + asecond * .5
    galeft  =       galeft + afirst * .3
    garight =       garight + asecond * .3
            clear   gaecho
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .85, 8500
            outs    aleft, aright
            clear   galeft, garight
endin
