<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
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
</CsInstruments>
<CsScore bin="vorn -s">
; A canon in A minor: three voices play one melody of 24 beats, each two bars
; behind the voice before, over a bass of four notes, and meet in a last chord.
;
; p4 frequency in hertz, p5 amplitude, p6 place between left (0) and right (1)

te(100)                             ; one tempo throughout
> f1 0 4096 10 1 .5 .3 .2 .1        ; the wave of the voices
> f2 0 4096 10 1 .2 .05             ; the wave of the bass

/* The melody lies in two loops, one of rhythm values and one of note names,
   which are cycled until the beats of the block are over. A note name without
   an octave takes the octave of the note before it. */

i1 = 6, 0, 56 {                     ; first voice, from beat 0 for 56 beats
p2 rh <4 x8
       4 8 8  4 8 8  4 8 8  2
       8 x16>
p3 0.9                              ; nearly legato
p4(hz) no <a4 e5 d b4  c5 a4 b gs
           c5 b4 c5  b4 a b  a g a  gs
           a5 e c e  g d b4 d5  f c a4 c5  e b4 gs b>
p5(in) db 72
p6 .2
}

i1 = 6, 8, 48 {                     ; second voice, eight beats later
p2 rh <4 x8
       4 8 8  4 8 8  4 8 8  2
       8 x16>
p3 0.9
p4(hz) no <a4 e5 d b4  c5 a4 b gs
           c5 b4 c5  b4 a b  a g a  gs
           a5 e c e  g d b4 d5  f c a4 c5  e b4 gs b>
p5(in) db 70
p6 .8
}

i1 = 6, 16, 40 {                    ; third voice, an octave lower
p2 rh <4 x8
       4 8 8  4 8 8  4 8 8  2
       8 x16>
p3 0.9
p4(hz) no <a3 e4 d b3  c4 a3 b gs
           c4 b3 c4  b3 a b  a g a  gs
           a4 e c e  g d b3 d4  f c a3 c4  e b3 gs b>
p5(in) db 73
p6 .5
}

i2 = 6, 0, 56 {                     ; the bass: half notes
p2 rh 2
p3 1
p4(hz) no <a2 g f e>
p5(in) db 74
p6 .5
}

i1 = 6, 56, -1 {                    ; the last chord: one event that the colons
p2 1                                ; of P4 make five
p3 406                              ; six beats long
p4(hz) no a2:e3:a:e4:c5
p5(in) db 70
p6 .1 .3 .5 .7 .9                   ; one place for each of its notes
}
</CsScore>
</CsoundSynthesizer>
