<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a bowed voice: two strings, hardly apart
    iloud   =       (p5 - 60) / 20
    kenv    linsegr 0, .05, 1, p3 * .4, .75, p3 * .6, .5, .08 + p3 * .12, 0
    kvib    oscili  .003, 5.3 + p6
    afirst  vco2    .5, p4 * (1 + kvib)
    asecond vco2    .5, p4 * 1.003
    asound  butterlp afirst + asecond, p4 * (1.5 + 2.5 * iloud * kenv) + 300
    asound  =       asound * kenv * ampdb(p5) * .8
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 2                             ; the bass: plucked
    aenv    linsegr 0, .01, 1, p3, .25, .15, 0
    afirst  oscili  1, p4
    asecond oscili  .35, p4 * 2
    athird  oscili  .15, p4 * 3
    asound  =       (afirst + asecond * aenv + athird * aenv * aenv) * aenv * ampdb(p5) * .8
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .1
    garight =       garight + aright * .1
endin

instr 3                             ; a small bell
    aenv    expseg  .001, .005, 1, p3 - .005, .001
    kring   expon   2.5, p3, .1
    asound  foscili ampdb(p5) * .7, p4, 1, 3.5, kring
    asound  =       asound * aenv
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .82, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A minor canon: three voices play one melody of 24 beats, each two bars behind the
; voice before, over a bass of four notes. They enter one by one, each tells the
; melody three times, and as they came they fall silent, up to a last chord.
;
; What to learn from it: rhythm values and note names in loops, macros for what
; several blocks share, a crescendo by a movement, a chord.
; To hear it, from any folder:
;     csound path/to/a_minor_canon.csd
;     vornkit play path/to/a_minor_canon.vorn path/to/a_minor_canon.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

te(100)                             ; one tempo throughout
> i9 0 60 ; the room in which all sounds, for 60 seconds

/* The melody is two loops, one of rhythm values and one of note names, which are
   cycled until the beats of the block are over. A note name without an octave takes
   the octave of the note before it. The two octaves of the melody are arguments, so
   that a voice can have it lower. */

#define RHYTHM #rh < 4 x8   4 8 8  4 8 8  4 8 8  2   8 x16 >#
#define MELODY(low'high) #no
    < a$low e$high d b$low    c$high a$low b gs
      c$high b$low c$high     b$low a b     a g a     gs
      a$high e c e   g d b$low d$high   f c a$low c$high   e b$low gs b >#

i1 = 6, 0, 72 {                     ; first voice, from beat 0 for 72 beats
p2 $RHYTHM
p3 .95                              ; nearly legato
p4(hz) $MELODY(4'5)
p5 mo(T*.5 1 68 77) mo(T*.5 1 77 70)      ; louder up to the middle, and back
p6 .2
}

i1 = 6, 8, 72 {                     ; second voice, eight beats later
p2 $RHYTHM
p3 .95
p4(hz) $MELODY(4'5)
p5 mo(T*.5 1 66 77) mo(T*.5 1 77 70)
p6 .8
}

i1 = 6, 16, 72 {                    ; third voice, an octave lower
p2 $RHYTHM
p3 .95
p4(hz) $MELODY(3'4)
p5 mo(T*.5 1 72 79) mo(T*.5 1 79 70)
p6 .5
}

i2 = 6, 0, 88 {                     ; the bass: half notes from beginning to end,
p2 rh 2                             ; which rise by an octave when all voices are there
p3 1
p4(hz) no < a2 g f e >
p5 mo(T*.5 1 74 80) mo(T*.5 1 80 72)
p6 .5
}

i3 = 6, 40, 24 {                    ; the height of the piece: bells that outline the
p2 rh 4 x8 2 x8                     ; melody two octaves higher, and sink
p3 404                              ; each rings for four beats
p4(hz) no a6 e b g c7 a6 b gs   e d c b5 c6 b5 a gs
p5 mo(T 1 70 62)
p6 < .3 .7 >
}

i1 = 6, 88, -1 {                    ; the last chord: one event that the colons
p2 1                                ; of P4 make five
p3 408                              ; eight beats long
p4(hz) no a2:e3:a:e4:c5
p5 72
p6 .1 .3 .5 .7 .9                   ; one place for each of its notes
}
</CsScore>
</CsoundSynthesizer>
