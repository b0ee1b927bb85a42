<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, in which drums are tuned, too

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; bass drum: a tone that drops, and the beater
    p3      =       .4
    aenv    expseg  .01, .002, 1, p3 - .002, .001
    kdrop   expseg  p5 * 5, .03, p5 * 1.7, p3, p5
    aclick  expseg  1, .008, .001, 1, .001
    adrum   oscili  1, kdrop
    anoise  rand    .4, .5, 1
    asound  =       (adrum * aenv + anoise * aclick) * ampdb(p4) * .62
    asound  butterhp asound, 25
            outs    asound, asound
endin

instr 2                             ; snare: two tones of the skin, and the wires
    p3      =       .22
    aenv    expseg  .01, .001, 1, p3 - .001, .001
    askin   expseg  .01, .001, 1, .08, .001, 1, .001
    alow    oscili  .7, p5
    ahigh   oscili  .4, p5 * 1.78
    anoise  rand    1, .5, 1
    anoise  butterhp anoise, 1500
    asound  =       ((alow + ahigh) * askin + anoise * aenv * .7) * ampdb(p4) * .5
    aleft   =       asound * .75
    aright  =       asound * .65
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 3, 4                          ; hats, closed and open: metal and noise
    p3      =       p1 == 3 ? .06 : .35
    aenv    expseg  .01, .001, 1, p3 - .001, .001
    anoise  rand    1, .5, 1
    afirst  vco2    .5, 3217, 10
    asecond vco2    .5, 4801, 10
    asound  butterhp anoise + afirst * asecond, p5
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .45
    aright  =       asound * .85
            outs    aleft, aright
    galeft  =       galeft + aleft * .06
    garight =       garight + aright * .06
endin

instr 5                             ; bass
    aenv    linsegr 0, .004, 1, p3, .3, .06, 0
    kopen   expseg  24, .12, 8, 2, 3
    asaw    vco2    .6, p5
    asub    oscili  .6, p5
    asaw    butterlp asaw, p5 * kopen + 150
    asound  =       (asaw + asub) * aenv * ampdb(p4) * .8
            outs    asound * .72, asound * .7
endin

instr 6                             ; electric piano
    aenv    linsegr 0, .004, 1, .4, .5, 2.5, .1, .15, 0
    kbark   expseg  1.6, .25, .4, 3, .2
    asound  foscili 1, p5, 1, 1, kbark
    atine   foscili .15, p5, 1, 14, kbark * .5
    asound  butterhp asound + atine * aenv, 60
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .85
    aright  =       asound * .5
            outs    aleft, aright
    galeft  =       galeft + aleft * .3
    garight =       garight + aright * .3
endin

instr 7                             ; lead
    aenv    linsegr 0, .02, 1, p3, .8, .1, 0
    kvib    linseg  0, .2, 0, .3, .006
    kvib    oscili  kvib, 5.5
    afirst  vco2    .5, p5 * (1 + kvib), 10
    asecond vco2    .5, p5 * (1.004 + kvib)
    asound  butterlp afirst + asecond, 2500
    asound  =       asound * aenv * ampdb(p4)
    aleft   =       asound * .5
    aright  =       asound * .8
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .75, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Bass and drums: a groove of sixteenths in bars of four, with a drum part for each
; instrument, ghost strokes left to chance, fills, a break, and a bass line below.
;
; What to learn from it: drum patterns as loops of strokes and rests, patterns and
; parts as macros, a song laid out in bars, chance that stays within the groove.
; To hear it, from any folder:
;     csound path/to/bass_and_drums.csd
;     vornkit play path/to/bass_and_drums.vorn path/to/bass_and_drums.orc
;
; p4 amplitude in decibels, p5 frequency in hertz, in which drums are tuned, too

te(98)
rs(98)
> i9 0 60 ; the room in which all sounds, for 60 seconds

/* A part: instrument, first bar (from 0), number of bars. It is a flow of sixteenths,
   and a bar is sixteen of them. Then come its strokes or notes and "}". */
#define PART(player'bar'bars) #i$player = 5, ~[$bar * 4], ~[$bars * 4] {
p2 rh 16#

/* The bars of the drums, in P3: 1 is a stroke, -1 none, and "-1 x3" three times none.
   The last stroke of a bar may be the first of a roll into the next. */
#define KICK_A  #1 -1 x5 1 -1 x3 1 -1 x5#
#define KICK_B  #1 -1 x6 1 -1 x2 1 -1 x4 1#
#define SNARE   #-1 x4 1 -1 x7 1 -1 x3#
#define SNARE_B #-1 x4 1 -1 x2 1 -1 1 -1 x2 1 -1 x3#
#define FILL    #-1 x4 1 -1 1 1 -1 1 1 -1 1 1 1 1#

; The bars of the bass, as notes; r is a rest.
#define BASS_E #e1 r r e2 r r d r r e1 r g r a bf b#
#define BASS_G #e1 r r e2 r r d r r g1 r a r b d2 r#
#define BASS_A #a1 r r a2 r r g r r a1 r c2 r d ef e#
#define BASS_B #b1 r r b2 r r a r r b1 r fs2 r ds2 b1 r#

; Two bars of hats and single strokes; with bar 2 the groove begins.
$PART(1'0'2)
p3 < 1 -1 x15 >
p4 83
p5(hz) no e1
}
$PART(3'0'10)                       ; closed hats in eighths
p3 < 1 -1 >
p4 < 76 50 70 50 >
p5(hz) no a8
}
$PART(3'0'22)                       ; and between them ghosts: one sixteenth in four
p3 ra(T .25 1 .75 -1)
p4 ra(T 1 [60 67])
p5(hz) no c9
}
$PART(1'2'8)
p3 < $KICK_A $KICK_B $KICK_A $KICK_A >
p4 86
p5(hz) no e1
}
$PART(2'1'1)                        ; a fill leads in
p3 -1 x8 1 -1 1 -1 1 1 1 1
p4 < 74 72 76 78 >
p5(hz) no fs3
}
$PART(2'2'8)
p3 $SNARE $SNARE $SNARE $SNARE_B  $SNARE $SNARE $SNARE_B $FILL
p4 < 80 76 >
p5(hz) no fs3
}
$PART(4'2'8)                        ; an open hat at the end of every second bar
p3 < -1 x30 1 -1 >
p4 72
p5(hz) no g8
}
$PART(5'2'8)
p3 .9
p4 79
p5(hz) no < $BASS_E $BASS_G >
}

; The break, bars 10 to 13: no drums but ghosts, the bass walks, chords come in.
$PART(5'10'4)
p3 1.2
p4 77
p5(hz) no $BASS_A $BASS_A $BASS_B $BASS_B
}
i6 = 5, 40, 16 {
p2 4
p3 .95
p4 mo(T 1 67 72)
p5(hz) no e4:g:a:c5 d4:g:a:b ds4:fs:a:c5 ds4:fs:a:b
}
$PART(2'13'1)
p3 $FILL
p4 mo(T 1 64 80)
p5(hz) no fs3
}

; Bars 14 to 21: all together, with chords off the beat and a lead.
$PART(3'14'8)
p3 < 1 -1 >
p4 < 76 50 70 50 >
p5(hz) no a8
}
$PART(1'14'8)
p3 < $KICK_A $KICK_B >
p4 86
p5(hz) no e1
}
$PART(2'14'8)
p3 $SNARE $SNARE_B $SNARE $SNARE_B  $SNARE $SNARE_B $SNARE_B $FILL
p4 < 80 76 >
p5(hz) no fs3
}
$PART(4'14'8)
p3 < -1 x14 1 -1 >
p4 72
p5(hz) no g8
}
$PART(5'14'8)
p3 .9
p4 79
p5(hz) no $BASS_E $BASS_G $BASS_E $BASS_G $BASS_A $BASS_A $BASS_E $BASS_B
}
i6 = 5, 56, 32 {
p2 rh < 8 8. 16 2 >
p3 .6
p4 70
p5(hz) no r e4:g:b:d5 e4:g:b:d5 r   r e4:g:b:d5 d4:g:b:d5 r
          r e4:g:b:d5 e4:g:b:d5 r   r e4:g:b:d5 d4:g:b:d5 r
          r e4:g:a:c5 e4:g:a:c5 r   r e4:g:a:c5 e4:fs:a:c5 r
          r e4:g:b:d5 e4:g:b:d5 r   r ds4:fs:a:b ds4:fs:a:c5 r
}
i7 = 5, 56, 32 {
p2 rh 4 8 8 8. 16 8 8   2 4 8 8     4. 8 8 8 4         2. 4
      4 8 8 8. 16 8 8   2 4 8 8     8 8 8 8 8. 16 8 8  1
p3 .95
p4 mo(T 1 71 76)
p5(hz) no r e5 g a bf a g    e r d e   g d e b4 a     b4 r
          r e5 g a bf a g    a r g a   c6 a5 g e g bf a b   e6
}

; The last stroke, all together.
i1 = 5, 88, -1 { p2 1 p3 1 p4 86 p5(hz) no e1 }
i4 = 5, 88, -1 { p2 1 p3 1 p4 72 p5(hz) no g8 }
i5 = 5, 88, -1 { p2 1 p3 1003 p4 81 p5(hz) no e1 }
i6 = 5, 88, -1 { p2 1 p3 1003 p4 66 p5(hz) no e4:g:b:d5:fs }
</CsScore>
</CsoundSynthesizer>
