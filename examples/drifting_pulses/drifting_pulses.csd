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

instr 1                             ; a marimba: the bar, its two overtones, the mallet
    p3      =      .9
    aenv    expseg .01, .002, 1, p3 - .002, .001
    aover   expseg .01, .002, 1, .12, .001, 1, .001
    abar    oscili 1, p4
    afourth oscili .5, p4 * 3.93
    atenth  oscili .25, p4 * 9.6
    asound  =      (abar * aenv + (afourth + atenth) * aover) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .2
    garight =      garight + aright * .2
endin

instr 2                             ; a long low tone
    aenv    linsegr 0, .4, 1, p3 - .4, .7, .6, 0
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.004
    asound  butterlp afirst + asecond, 500
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .2
    garight =       garight + aright * .2
endin

instr 3                             ; a vibraphone
    aenv    expseg .01, .004, 1, p3 - .004, .001
    kmotor  oscili .35, 5
    abar    oscili 1, p4
    afourth oscili .15, p4 * 4
    asound  =      (abar + afourth * aenv) * aenv * (.65 + kmotor) * ampdb(p5)
    aleft   =      asound * sqrt(1 - p6)
    aright  =      asound * sqrt(p6)
            outs   aleft, aright
    galeft  =      galeft + aleft * .4
    garight =      garight + aright * .4
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .8, 9000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Drifting pulses: two players repeat one pattern of twelve notes. The second leaves
; the first by a forty-eighth note at a time, stays wherever the two fit together, and
; drifts on, until they are in step again; over them a third one picks out single tones.
;
; What to learn from it: phase shifting without rounding, by rhythm values tied with a
; comma; macros for patterns; patterns on which further voices rest.
; To hear it, from any folder:
;     csound path/to/drifting_pulses.csd
;     vornkit play path/to/drifting_pulses.vorn path/to/drifting_pulses.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

te(112)
> i9 0 104 ; the room in which all sounds, for 104 seconds

#define PATTERN #e4 fs b cs5 d fs4 e cs5 b4 fs d5 cs#

/* A round is twelve sixteenths, which are three beats. The first player plays 60 of
   them without a change. */
i1 = 6, 0, -720 {
p2 rh 16
p3 .9
p4(hz) no < $PATTERN >
p5 mo(-96 1 62 73) 73 x575 mo(-48 1 73 77) 79
p6 .2
}

/* The second one enters after four rounds. STAY are two rounds in step; in STEP the
   last note of a round is longer by a forty-eighth, "16,48", and the next round begins
   that much later. Three steps are a sixteenth, and twelve times three lead back
   to the beginning. All values are notes: no number had to be rounded. */
#define ROUND #16 x12#
#define STAY #$ROUND $ROUND#
#define STEP #16 x11 16,48#
#define MOVE #$STEP $STEP $STEP#
i1 = 6, 12, -660 {
p2 rh $STAY  $MOVE $STAY  $MOVE $STAY  $MOVE $MOVE $STAY
      $MOVE $STAY  $MOVE $MOVE $STAY  $MOVE $MOVE $STAY
      $MOVE $MOVE $STAY  $MOVE $ROUND $ROUND $ROUND
p3 .9
p4(hz) no < $PATTERN >
p5 mo(-72 1 60 73) 73 x527 mo(-60 1 73 77) 79
p6 .8
}

/* A bass lays long tones under them; the third player has single tones of the pattern. */
i2 = 6, 48, 120 {
p2 < 6 6 3 9 >
p3 1.1
p4(hz) no < b2 e3 fs2 d3 >
p5 mo(T*.6 1 70 78) mo(T*.4 1 78 68)
p6 .5
}
i3 = 6, 72, 96 {
p2 rh < 4. 4. 8 4 8. 16 8 2 >
p3 404
p4(hz) no < b5 fs e cs6 d b5 fs6 e >
p5 mo(T*.5 1 56 69) mo(T*.5 1 69 58)
p6 < .4 .6 >
}
</CsScore>
</CsoundSynthesizer>
