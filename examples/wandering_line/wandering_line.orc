sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; p4 amplitude in decibels, p5 frequency in hertz
    aenv   linsegr 0, .03, 1, p3, .45, .2, 0
    kdepth linseg  0, .4, .005, 1, .005
    kvib   oscili  kdepth * p5, 5.2
    kcolour linseg 2, .1, 1, p3, .6
    asound foscili 1, p5 + kvib, 1, 2, kcolour * ampdb(p4 - 74)
    asound =       asound * aenv * ampdb(p4) * 1.7
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .35
    garight =      garight + aright * .35
endin

instr 2                             ; p4 octave.pitch-class, p5 amplitude in decibels
    aenv   linsegr 0, .5, 1, p3, .5, .9, 0
    kopen  linseg  300, p3 * .4, 600 + 250 * (p5 - 62), p3 * .6, 400
    afirst vco2    .5, cpspch(p4)
    asecond vco2   .5, cpspch(p4) * 1.004
    asound butterlp afirst + asecond, kopen
    asound =       asound * aenv * ampdb(p5) * 1.7
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .86, 8000
            outs    aleft, aright
            clear   galeft, garight
endin
