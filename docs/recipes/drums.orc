; p4 level from 0 to 1; a drum sounds as long as it likes

sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1                             ; the bass drum: a tone that falls
    p3     = .3
    kpitch expon  140, .3, 45
    asound poscil p4 * .4, kpitch
    asound linen  asound, .001, p3, .2
           out    asound
endin

instr 2                             ; the snare: noise over a short tone
    p3     = .2
    anoise rand   p4 * .35
    anoise butterhp anoise, 1500
    abody  poscil p4 * .3, 190
    kenv   expon  1, p3, .001
           out    (anoise + abody) * kenv
endin

instr 3                             ; the hat: high noise
    p3     = .06
    anoise rand   p4 * .5
    anoise butterhp anoise, 7000
    kenv   expon  1, p3, .001
           out    anoise * kenv
endin
