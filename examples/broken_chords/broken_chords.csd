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

instr 1                             ; a harp
    aenv    expseg  .01, .002, 1, p3 - .002, .003
    aplay   linseg  1, p3 - .05, 1, .05, 0
    kopen   expseg  1, .2, .3, 2, .1
    astring vco2    1, p4, 4, .15
    asound  butterlp astring, p4 * 2 + 5000 * kopen * ampdb((p5 - 78) / 2)
    asound  =       asound * aenv * aplay * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 2                             ; the bass
    aenv    linseg  0, .03, 1, p3 - .4, .5, .37, 0
    afirst  oscili  1, p4
    asecond oscili  .4, p4 * 2
    athird  oscili  .15, p4 * 3
    asound  =       (afirst + asecond + athird) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .1
    garight =       garight + aright * .1
endin

instr 3                             ; the tune: a flute
    aenv    linseg  0, .08, 1, p3 - .2, .8, .12, 0
    kvib    linseg  0, .35, 0, .5, .006, p3, .006
    kvib    oscili  kvib, 5.1
    afirst  oscili  1, p4 * (1 + kvib)
    asecond oscili  .22, p4 * 2 * (1 + kvib)
    athird  oscili  .07, p4 * 3 * (1 + kvib)
    abreath rand    .25, .5, 1
    abreath butterbp abreath, p4 * 2, p4
    asound  =       (afirst + asecond + athird + abreath) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .4
    garight =       garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .84, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Broken chords: a prelude in D minor. One figure of sixteenths runs through twenty
; chords, from the middle down, up to a height and home, over a bass and under a tune.
;
; What to learn from it: an arpeggio as a macro whose arguments are the notes of a
; chord; parts on one grid, so that a slowing tempo keeps them together; small
; unevenness that makes a line breathe.
; To hear it, from any folder:
;     csound path/to/broken_chords.csd
;     vornkit play path/to/broken_chords.vorn path/to/broken_chords.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

te(0 72 84 84)                      ; 84 beats per minute,
te(72 84 84 40 e)                   ; slower in the last three bars
> i9 0 67 ; the room in which all sounds, for 67 seconds

/* Five notes of a chord, played up and down in a bar of sixteen. */
#define ARP(a'b'c'd'e) #$a $b $c $d  $e $d $c $b  $a $c $b $d  $c $e $d $c#

i1 = 6, 0, -337 {                   ; 21 bars and the last note
p2 .25
p3 1001.4                           ; each string rings on
p4(hz) no
$ARP(d3'a3'd4'f4'a4)   $ARP(d3'bf3'd4'g4'a4)   $ARP(c3'a3'd4'f4'a4)   $ARP(b2'a3'd4'f4'g4)
$ARP(c3'g3'c4'e4'g4)   $ARP(a2'g3'c4'e4'g4)    $ARP(bf2'f3'a3'd4'f4)  $ARP(g2'f3'bf3'd4'f4)
$ARP(a2'e3'a3'd4'e4)   $ARP(a2'e3'a3'cs4'e4)   $ARP(d3'a3'c4'fs4'a4)  $ARP(g2'd3'bf3'g4'bf4)
$ARP(c3'bf3'e4'g4'c5)  $ARP(f2'c4'e4'a4'c5)    $ARP(bf2'd4'f4'a4'd5)  $ARP(e2'bf3'd4'g4'e5)
$ARP(a2'g4'bf4'cs5'e5) $ARP(d3'f4'a4'd5'f5)    $ARP(g2'bf3'd4'e4'bf4) $ARP(a2'g3'cs4'e4'a4)
$ARP(d2'a2'fs3'a3'd4)  d2
p5 dv(.015) mo(-128 1 66 71) mo(-96 1 71 69) mo(-48 1 69 78) mo(-64 1 78 64) 66
p6 < .25 .4 .5 .6 .75 .6 .5 .4 >
}

/* The bass and the tune count the sixteenths of the figure, too, so that they slow down
   with it. A duration of -1 is a rest; the note names hold while they last. */
#define BAR(note) #$note x16#
i2 = 6, 0, -336 {                   ; a bass note to the bar
p2 .25
p3 < 1003.2 -1 x15 >
p4(hz) no $BAR(d2) $BAR(d2) $BAR(c2) $BAR(b1)  $BAR(c2) $BAR(a1) $BAR(bf1) $BAR(g1)
          $BAR(a1) $BAR(a1) $BAR(d2) $BAR(g1)  $BAR(c2) $BAR(f1) $BAR(bf1) $BAR(e2)
          $BAR(a1) $BAR(d2) $BAR(g1) $BAR(a1)  $BAR(d1)
p5 mo(-256 1 70 77) mo(-80 1 77 68)
p6 .5
}

/* The tune enters in the fifth bar: a long note and two short ones, or one note. */
#define LONG #1002.9 -1 x15#
#define SIGH #1002 -1 x11 1000.7 -1 1000.7 -1#
#define TWO(first'second'third) #$first x12 $second x2 $third x2#
i3 = 6, 0, -336 {
p2 .25
p3 -1 x64
   $SIGH $LONG $SIGH $LONG  $SIGH $LONG $SIGH $SIGH
   $SIGH $SIGH $SIGH $LONG  $LONG $SIGH $SIGH $LONG  $LONG
p4(hz) no d5 x64
   $TWO(e5'd5'c5)  $BAR(e5)  $TWO(d5'c5'a4)  $BAR(bf4)
   $TWO(a4'b4'd5)  $BAR(cs5)  $TWO(d5'e5'fs5)  $TWO(g5'a5'bf5)
   $TWO(g5'f5'e5)  $TWO(a5'g5'f5)  $TWO(f5'g5'a5)  $BAR(bf5)
   $BAR(a5)  $TWO(a5'g5'f5)  $TWO(e5'd5'g5)  $BAR(e5)  $BAR(d5)
p5 70 x64  mo(-96 1 66 70) mo(-96 1 70 78) mo(-80 1 78 66)
p6 .6
}
</CsScore>
</CsoundSynthesizer>
