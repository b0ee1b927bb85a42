<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
; p4 amplitude, p5 the note; c4 is 48, and the drums are numbers of their own

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

galeft  init 0                      ; what goes into the room
garight init 0
alwayson "Room"

instr 1                             ; a tube, struck; low ones hang left, high ones right
    ifreq   =      cpsmidinn(p5 + 12)
    iplace  =      (p5 - 48) / 26 * .6 + .2
    klong   expon  1, p3, .001
    kshort  expon  1, p3 * .4, .001
    ahum    oscili .35 * klong, ifreq * .5
    aprime  oscili .7 * klong, ifreq
    abeat   oscili .3 * klong, ifreq * 1.003
    athird  oscili .25 * kshort, ifreq * 2.38
    aoctave oscili .4 * kshort, ifreq * 2.01
    ahigh   oscili .2 * kshort, ifreq * 3.76
    aedge   oscili .12 * kshort * kshort, ifreq * 6.1
    asound  =      (ahum + aprime + abeat + athird + aoctave + ahigh + aedge) * p4 * .11
    asound  linen  asound, .002, p3, .1
    aleft   =      asound * sqrt(1 - iplace)
    aright  =      asound * sqrt(iplace)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; strings: three a little out of tune
    ifreq   =      cpsmidinn(p5 + 12)
    aone    vco2   p4 * .05, ifreq
    atwo    vco2   p4 * .05, ifreq * 1.004
    athree  vco2   p4 * .05, ifreq * .996
    kswell  linseg 500, p3 * .5, 1600, p3 * .5, 500
    aleft   tone   aone + atwo, kswell
    aright  tone   aone + athree, kswell
    aenv    linen  .5, .4, p3, .5
    aleft   =      aleft * aenv
    aright  =      aright * aenv
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 3                             ; drums: skins, whose notes say how high, and a cymbal
    if p5 == 49 then
    p3      =      3
    aenv    expseg 1, p3, .001
    anoise  noise  p4 * .1, 0
    asound  butterhp anoise * aenv, 5000
    else
    p3      =      .8
    aenv    expseg 1, p3, .001
    kpitch  expseg cpsmidinn(p5) * 1.8, .07, cpsmidinn(p5), p3, cpsmidinn(p5)
    asound  oscili p4 * .32, kpitch
    aslap   noise  p4 * .06, 0
    kslap   expseg 1, .04, .001, p3, .001
    asound  =      asound * aenv + aslap * kslap
    endif
    asound  linen  asound, .002, p3, .05
            outs   asound * .7, asound * .7
    galeft  =      galeft + asound * .1
    garight =      garight + asound * .1
endin

instr Room
    aleft, aright reverbsc galeft, garight, .75, 8000
            outs   aleft, aright
            clear  galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Bells for MIDI: a peal that rises out of the distance while it slows down; strings
; come in below it, and at the end drums.
;
; What to learn from it: voices for MIDI, one to a block, one of them for the drum
; channel; sounds and channels chosen on the command line; a tempo that is kept by
; voices which all count the same strokes.
; To hear it, from any folder:
;     vornkit midi --program 1=15 --program 2=49 --channel 3=10 path/to/midi_bells.vorn midi_bells.mid
;     vornkit play midi_bells.mid
; or, with the sounds of an orchestra:
;     csound path/to/midi_bells.csd
;     vornkit play path/to/midi_bells.vorn path/to/midi_bells.orc
; The first voice alone, by Vorn itself: vorn -m path/to/midi_bells.vorn bells.mid
;
; P4 is the amplitude (32767 is velocity 127) and P5 the note.

te(0 72 120 66 e)   ; from 120 to 66 beats per minute over 72 beats, gently at first
rs(5)               ; another seed rings another peal

/* A limping pattern of six strokes, rung round and round, sixteen times. All three
   voices have it, and leave out strokes by a duration of -1. */
#define STROKES #rh < 8 8 4 8 8 4. >#

i1 = 5 0 -97 {
p2 $STROKES
p3 1002 x96 1005    ; every stroke rings for two seconds, however soon the next one comes
p4 db mo(-60 1 s 84 90) mo(-36 1 90 88) 90      ; decibels, out of the distance and near
; Six bells in rounds: the "*" lets each of them strike once before any strikes again.
; At the end the two great bells close together.
p5 no se(-96 1 * [c5 d f g bf d6]) c4:f
}

i2 = 5 0 -97 {      ; the strings: a chord to a round, from the fifth round on
p2 $STROKES
p3 -1 x24 < 1002.6 -1 x5 > -1
p4 db mo(-60 1 80 88) mo(-37 1 88 86)
p5 no f3:a x24
      bf2:f3:d4 x6  c3:g3:d4 x6  d3:f3:c4 x6  bf2:f3:d4 x6
      ef3:g3:bf3 x6  f3:a3:c4 x6  g2:d3:bf3 x6  bf2:f3:d4 x6
      ef3:g3:bf3 x6  bf2:f3:d4 x6  c3:g3:ef4 x6  f2:c3:a3 x6  f2:c3:f3:a3
}

i3 = 5 0 -97 {      ; the drums: number 35 is a low drum, 41 and 43 are toms, 49 a cymbal
p2 $STROKES
p3 -1 x48 < .9 -1 x2 .9 .9 -1 > 1003
p4 db 80 x48 mo(-48 1 80 90) 90
p5 35 x48 < 35 35 35 41 43 35 >
}
</CsScore>
</CsoundSynthesizer>
