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

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a player: plucked
    iloud  =       ampdb(p5) * 3.4
    asound pluck   iloud, p4, p4, 0, 1
    asound butterhp asound, 80              ; the string begins as noise, which has a steady part
    asound tone    asound, 5000 * ampdb(p5 - 74)
    aenv   linsegr 0, .003, 1, p3, .8, .12, 0
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .2
    garight =      garight + aright * .2
endin

instr 2                             ; the bass
    aenv   linsegr 0, .01, 1, p3, .25, .25, 0
    asound oscili  ampdb(p5) * 1.7, p4, 1
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .1
    garight =      garight + aright * .1
endin

instr 3                             ; a bell
    aenv   expseg  .01, .003, 1, p3 - .003, .001
    kring  expon   2, p3, .01
    asound foscili ampdb(p5) * 1.3, p4, 1, 2.76, kring, 1
    asound =       asound * aenv
    aleft  =       asound * sqrt(1 - p6)
    aright =       asound * sqrt(p6)
           outs    aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .78, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Hocket: two players share one tune, each silent while the other plays. A rondo of
; sections: alone, together, a darker episode, together an octave higher with bells.
; Each section may be left out, and what follows it moves up.
;
; What to learn from it: sections switched on and off by constants, starts that are
; computed, parts in a file of their own (hocket.inc), macros with arguments.
; To hear it, from any folder:
;     csound path/to/hocket.csd
;     vornkit play --relative path/to/hocket.vorn path/to/hocket.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left and right

; The parts of the hocket: what all its blocks have in common.

#const TEMPO 132
#const BAR 6
#const LOUD 74
#const SOFT 68

/* The opening of a block: instrument, beat, number of bars, level and place. The block
   is a flow of half beats; its notes and "}" follow. */
#define PLAYER(number'beat'bars'level'place) #i$number = 6, $beat, ~[$bars * BAR] {
p2 .5
p3 .9
p5 $level
p6 $place#

/* The tune, told to two players: where one has a rest, r, the other has a note.
   The octave is the argument. */
#define FIRST(octave)  #d$octave r a r f r e r a r g r#
#define SECOND(octave) #r f$octave r d r a r g r c r f#

; The second tune, darker, told in the same way.
#define THIRD(octave)  #bf$octave r d r r f r d c r a r#
#define FOURTH(octave) #r g$octave r a bf r g r r a r g#

; The bass: a bar of three tones.
#define BASS(root'third'fifth) #$root r r r $third r r r $fifth r $third r#

; The sections: 1 plays one, 0 leaves it out.
#const ALONE 1
#const TOGETHER 1
#const EPISODE 1
#const REPRISE 1

; Where each begins, in beats: they have 8, 8, 8 and 8 bars. Equations are computed
; from left to right.
#const TOGETHER_AT ~[ALONE * 8 * BAR]
#const EPISODE_AT  ~[TOGETHER * 8 * BAR + TOGETHER_AT]
#const REPRISE_AT  ~[EPISODE * 8 * BAR + EPISODE_AT]
#const LAST_AT     ~[REPRISE * 8 * BAR + REPRISE_AT]

te(~TEMPO)
> f1 0 8192 10 1 .6 .2 .1
> i9 0 96 ; the room in which all sounds, for 96 seconds

#if(~ALONE)
; Four bars of the first player alone, four of the second: half a tune each.
$PLAYER(1'0'4'~LOUD'.15)
p4(hz) no < $FIRST(4) >
}
$PLAYER(1'~[4 * BAR]'4'~LOUD'.85)
p4(hz) no < $SECOND(4) >
}
#endif

#if(~TOGETHER)
; Together they make it whole; the bass enters halfway, a bar to each of four chords.
$PLAYER(1'~TOGETHER_AT'8'~LOUD'.15)
p4(hz) no < $FIRST(4) >
}
$PLAYER(1'~TOGETHER_AT'8'~LOUD'.85)
p4(hz) no < $SECOND(4) >
}
$PLAYER(2'~[4 * BAR + TOGETHER_AT]'4'~LOUD'.5)
p4(hz) no < $BASS(d2'f2'a2) $BASS(c2'e2'g2) $BASS(bf1'd2'f2) $BASS(a1'c2'e2) >
}
#endif

#if(~EPISODE)
; The darker tune, softer, over a bass that steps down.
$PLAYER(1'~EPISODE_AT'8'~SOFT'.3)
p4(hz) no < $THIRD(3) >
}
$PLAYER(1'~EPISODE_AT'8'~SOFT'.7)
p4(hz) no < $FOURTH(3) >
}
$PLAYER(2'~EPISODE_AT'8'~SOFT'.5)
p4(hz) no < $BASS(g2'bf2'd3) $BASS(f2'a2'c3) $BASS(ef2'g2'bf2) $BASS(d2'f2'a2) >
}
#endif

#if(~REPRISE)
; An octave higher, with all there is: two strokes to the bar of bells on the five tones
; of the tune, none of which returns before all others have been heard.
$PLAYER(1'~REPRISE_AT'8'~LOUD'.15)
p4(hz) no < $FIRST(5) >
}
$PLAYER(1'~REPRISE_AT'8'~LOUD'.85)
p4(hz) no < $SECOND(5) >
}
$PLAYER(2'~REPRISE_AT'8'~LOUD'.5)
p4(hz) no < $BASS(d2'f2'a2) $BASS(c2'e2'g2) $BASS(bf1'd2'f2) $BASS(a1'c2'e2) >
}
rs(6)
i3 = 6, ~REPRISE_AT, ~[8 * BAR] {
p2 3
p3 1003
p4(hz) no se(T 1 * [d6 f a c7 e])
p5 ~SOFT
p6 < .3 .7 >
}
#endif

i2 = 6, ~LAST_AT, -1 {              ; the last chord, for all
p2 1
p3 1005
p4(hz) no d2:a:d3:f4
p5 ~SOFT
p6 .5
}
</CsScore>
</CsoundSynthesizer>
