<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p6 place between left (0) and right (1)

instr 1                             ; a tick; p5 its colour in hertz
    kenv   expon 1, p3, .001
    anoise rand  ampdb(p4) * kenv
    asound butterbp anoise, p5, p5 * .4
           outs  asound * (1 - p6), asound * p6
endin

instr 2                             ; a small wheel; p5 in hertz
    kenv   expon  1, p3, .001
    asound oscili ampdb(p4) * kenv, p5, 1
           outs   asound * (1 - p6), asound * p6
endin

instr 3                             ; the weight; p5 in hertz
    kenv   expon  1, p3, .001
    kdrop  expon  p5 * 2, p3, p5
    asound oscili ampdb(p4) * kenv, kdrop, 1
           outs   asound * (1 - p6), asound * p6
endin

instr 4                             ; the bell; p5 as octave.pitch-class
    ifreq  =      cpspch(p5)
    kenv   expon  1, p3, .001
    kring  expon  5, p3, .5
    asound foscili ampdb(p4) * kenv, ifreq, 1, 1.4, kring, 1
           outs   asound * (1 - p6), asound * p6
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Clockwork: wheels of three, four and five strokes turn against each other,
; run down, and then the clock strikes five.
;
; p4 amplitude in decibels, p5 pitch or colour, p6 place between left and right

sr(44100)
te(0 32 120 120)                    ; two beats to the second
> f1 0 8192 10 1

/* A tempo acts on the blocks that follow it. This block comes first because
   its strokes must not slow down, though they are heard last: beat 58 of the
   steady tempo is second 29. */
i4 = 6, 58, -5 {                    ; five strokes by number
p2 6
p3 1004.5                           ; each sounds on into the next
p4 76
p5(op) no c3                        ; octave.pitch-class, for cpspch
p6 <.4 .6>
}

te(32 48 120 40 c)                  ; from beat 32 on the spring runs down

i1 = 6, 0, 48 {                     ; the escapement: four ticks to the beat
p2 .25
p3 1000.04                          ; each 0.04 seconds, whatever the tempo
p4 <70 60 64 60>
p5 <6000 4500 5000 4500>
p6 <.35 .65>
}

i2 = 6, 4, 44 {                     ; a wheel of three strokes to two beats
p2 rh 6                             ; a sixth of a whole note
p3 1000.09
p4 <72 64// >                       ; as many 64s as there are slashes
p5(hz) no <e5 b4 b>
p6 .2
}

i2 = 6, 8, 40 {                     ; a wheel of five strokes to four beats
p2 rh 5
p3 1000.09
p4 <70 62 x4>
p5(hz) no <a4 c5 d e g>
p6 .8
}

i3 = 6, 0, -12 {                    ; the weight: twelve strokes
p2 4
p3 .5 x8 .8                         ; the last four are longer
p4 80
p5 55
p6 .5
}

i-2 = 6, 0, 48 {                    ; a wheel taken out: its number is negative
p2 rh 12  p3 1000.05  p4 60  p5(hz) no c6  p6 .5
}
</CsScore>
</CsoundSynthesizer>
