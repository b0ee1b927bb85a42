<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left and right

instr 1                             ; a player: plucked
    asound pluck  ampdb(p5), p4, p4, 0, 1
    kenv   linsegr 1, p3, 1, .08, 0
           outs   asound * kenv * (1 - p6), asound * kenv * p6
endin

instr 2                             ; the bass
    kenv   linsegr 0, .01, 1, p3, .5, .15, 0
    asound oscili  ampdb(p5) * kenv, p4, 1
           outs    asound * (1 - p6), asound * p6
endin

instr 3                             ; a bell
    kenv   expon   1, p3, .001
    asound foscili ampdb(p5) * kenv, p4, 1, 2.76, 2 * kenv, 1
           outs    asound * (1 - p6), asound * p6
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Hocket: two players share one tune, each silent while the other plays, first
; apart, then together, then above a bass; the bells of the reprise may be left
; out. Everything that the blocks have in common is in hocket.inc.
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left and right

#include |hocket.inc|

#const BELLS 1
; BELLS 0 leaves the bells out

te(~TEMPO)
> f1 0 8192 10 1 .6 .2 .1

; Four bars of the first player alone, four of the second: half a tune each.
$PLAYER(1'0'4'~LOUD'.15)
p4(hz) no < $FIRST(4) >
}
$PLAYER(1'4'4'~LOUD'.85)
p4(hz) no < $SECOND(4) >
}

; Together they make it whole: eight bars, and eight an octave higher.
$PLAYER(1'8'8'~LOUD'.15)
p4(hz) no < $FIRST(4) >
}
$PLAYER(1'8'8'~LOUD'.85)
p4(hz) no < $SECOND(4) >
}
$PLAYER(1'16'8'~SOFT'.15)
p4(hz) no < $FIRST(5) >
}
$PLAYER(1'16'8'~SOFT'.85)
p4(hz) no < $SECOND(5) >
}

; The bass enters with the repeat, one bar to each of four chords.
$PLAYER(2'12'12'~LOUD'.5)
p4(hz) no < $BASS(d2'f2'a2) $BASS(c2'e2'g2) $BASS(bf1'd2'f2) $BASS(a1'c2'e2) >
}

#if(~BELLS)
; The bells come in with the higher octave: two strokes to the bar on the five tones
; of the tune, none of which returns before all others have been heard.
rs(6)
i3 = 6, ~[16 * BAR], ~[8 * BAR] {
p2 3
p3 1003
p4(hz) no se(T 1 * [d6 f a c7 e])
p5 ~SOFT
p6 < .3 .7 >
}
#endif

i2 = 6, ~[24 * BAR], -1 {           ; the last note, for all
p2 1
p3 1004
p4(hz) no d2:a:d3:f4
p5 ~LOUD
p6 .5
}
</CsScore>
</CsoundSynthesizer>
