<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
; p4 amplitude, p5 the note; c4 is 48

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

galeft  init 0                      ; what goes into the room
garight init 0
alwayson "Room"

instr 1                             ; a small organ: low voices left, high ones right
    ifreq   =      cpsmidinn(p5 + 12)
    iplace  =      (p5 - 28) / 40 * .6 + .2
    aground oscili .6, ifreq
    aoctave oscili .3, ifreq * 2.001
    atwelve oscili .12, ifreq * 3
    afour   oscili .1, ifreq * 3.998
    kchiff  expseg .5, .07, .001, p3, .001
    abreath noise  kchiff, 0
    achiff  butterbp abreath, ifreq * 4, ifreq
    asound  =      (aground + aoctave + atwelve + afour + achiff) * p4 * .17
    asound  linen  asound, .03, p3, .12
    aleft   =      asound * sqrt(1 - iplace)
    aright  =      asound * sqrt(iplace)
            outs   aleft, aright
    galeft  =      galeft + aleft * .3
    garight =      garight + aright * .3
endin

instr 2                             ; the flute, whose tone begins to tremble when it is held
    ifreq   =      cpsmidinn(p5 + 12)
    kdepth  linseg 0, .25, 0, .4, .005, 1, .005
    ktremor oscili kdepth, 5.2
    kfreq   =      ifreq * (1 + ktremor)
    aground oscili 1, kfreq
    aoctave oscili .22, kfreq * 2
    atwelve oscili .06, kfreq * 3
    anoise  noise  .25, 0
    abreath butterbp anoise, ifreq * 2, ifreq * .5
    asound  =      (aground + aoctave + atwelve + abreath) * p4 * .13
    asound  linen  asound, .05, p3, .08
            outs   asound * .6, asound * .8
    galeft  =      galeft + asound * .3
    garight =      garight + asound * .3
endin

instr Room
    aleft, aright reverbsc galeft, garight, .75, 7000
            outs   aleft, aright
            clear  galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A chorale for MIDI: four voices in two verses of eight bars. In the second one a
; flute plays a descant above them.
;
; What to learn from it: chords of a list, rhythm values with dots and ties, verses as
; a macro, voices for MIDI in blocks of their own, with a sound for each.
; To hear it, from any folder:
;     vornkit midi --program 1=49 --program 2=74 path/to/midi_chorale.vorn midi_chorale.mid
;     vornkit play midi_chorale.mid
; or, with the sounds of an orchestra:
;     csound path/to/midi_chorale.csd
;     vornkit play path/to/midi_chorale.vorn path/to/midi_chorale.orc
; The chorale without the flute, by Vorn itself: vorn -m path/to/midi_chorale.vorn chorale.mid
;
; P4 is the amplitude (32767 is velocity 127) and P5 the note.

te(72)
> f0 57     ; Csound waits for the echo of the last chord

/* Rhythm values: 4 is a quarter note, a dot lengthens by half, and a comma directly
   behind a value ties the next one to it. */
#define RHYTHM #
      4 4 2     4 4 4 4     4. 8 2    4 4 2
      4 4 2     4 4 4 4     4,8 8 2   4 4 2
#

/* Colons put notes together, bass first. An octave holds until another one is written,
   and r is a rest: the chord of that quarter is silent. */
#define VERSE #
      c3:g:e4:c5    b2:g3:d4:d5    c3:g:c4:e5
      f3:a:c4:f5    e3:g:c4:e5     g2:g3:b:d5     r
      a2:a3:c4:e5   b2:g3:d4:d5    c3:g:e4:c5
      f3:a:d4:d5    g2:g3:f4:b     c3:g:e4:c5

      a2:e3:c4:a    gs2:e3:b:b4    a2:e3:a:c5
      d3:f:a:d5     c3:e:a:c5      e2:e3:gs:b4    r
      f2:f3:a:c5    g2:g3:b:d5     c3:g:c4:e5
      a2:f3:c4:f5   g2:f3:b:d5     c3:e:c4:c5
#

i1 = 5 0 -52 {

p2 rh $RHYTHM $RHYTHM

; Every chord is let go a little before the next one; the last rings.
p3 re .95 x51 1.5

; Phrases of four bars swell and fall back, the second verse is louder.
p4 re 14000 x3  16000 x4    18000 x3  14000 x3
      16000 x3  18000 x4    21000 x3  17000 x3
      18000 x3  20000 x4    22000 x3  19000 x3
      21000 x3  23000 x4    27000 x3  24000 x3

p5 no $VERSE $VERSE
}

; The descant begins with the ninth bar, on beat 32.
i2 = 5 32 -46 {
p2 rh 4 4 4 4  8 x4 4 4  8 x8  8 x4 2
      4 4 8 x4  8 x4 4 4  8 x8  4 4 2
p3 .95 x45 1.5
p4 mo(-32 1 28000 31000) mo(-14 1 31000 32700)
p5 no g5 b c6 g5   a5 c6 c g5 b r   c6 b5 a b c6 b5 a g   a f g f g
      e5 gs a b c6 a5   a d6 c a5 gs r   a c6 a5 b c6 d e c   c b5 c6
}
</CsScore>
</CsoundSynthesizer>
