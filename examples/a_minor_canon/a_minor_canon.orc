sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude, p6 place between left (0) and right (1)

instr 1                             ; a voice: struck, then slowly fading
    kenv    linsegr 0, .01, 1, p3, .4, .08, 0
    kbright expon   6, p3, 1
    asound  oscili  p5 * kenv, p4, 1
    asound  tone    asound, p4 * kbright
            outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin

instr 2                             ; the bass
    kenv    linsegr 0, .03, 1, p3, .6, .1, 0
    asound  oscili  p5 * kenv, p4, 2
            outs    asound * sqrt(1 - p6), asound * sqrt(p6)
endin
