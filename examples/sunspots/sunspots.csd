<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0
gaecho  init 0                      ; what is heard again

instr 1                             ; the year: a tone that opens with its brightness
    aenv    linsegr 0, .03, 1, p3 * .5, .6, p3 * .5, .2, .1 + p3 * .2, 0
    kopen   expseg  1, .15, .6, p3, .2
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.004, 10
    asound  butterlp afirst + asecond, p4 * 1.5 + 300 + 8000 * p6 * kopen
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .3
    garight =       garight + aright * .3
    gaecho  =       gaecho + asound * .5
endin

instr 2                             ; the bell of the bright years
    aenv    expseg  .01, .004, 1, p3 - .004, .001
    kring   expseg  2.2, p3, .05
    asound  foscili 1, p4, 1, 2.76, kring
    ahigh   oscili  .2, p4 * 5.4
    asound  =       (asound + ahigh * aenv) * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .5
    garight =       garight + aright * .5
endin

instr 3                             ; the ground
    aenv    linsegr 0, .8, 1, p3 - .8, .8, 1.2, 0
    afirst  vco2    .5, p4
    asecond vco2    .5, p4 * 1.003
    asound  butterlp afirst + asecond, 150 + 900 * p6
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p7)
    aright  =       asound * sqrt(p7)
            outs    aleft, aright
    galeft  =       galeft + aleft * .15
    garight =       garight + aright * .15
endin

instr 8                             ; echoes, after three and six eighths of a year
    afirst  delay   gaecho, .1875
    asecond delay   afirst, .1875
            outs    afirst * .8 + asecond * .1, afirst * .1 + asecond * .5
    galeft  =       galeft + afirst * .3
    garight =       garight + asecond * .3
            clear   gaecho
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .85, 8500
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Sunspots: 120 years of the sun, half a second each. The yearly means of the sunspot
; numbers (Wolf numbers) of 1749 to 1868 are heard as a melody, their rise and fall as
; brightness and loudness, and years above 72 are struck on a bell.
;
; What to learn from it: a table of data as a list that is not written out; equations
; that make pitch, level and rests of it; a scale by rounding.
; To hear it, from any folder:
;     csound path/to/sunspots.csd
;     vornkit play path/to/sunspots.vorn path/to/sunspots.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 brightness from 0 to 1,
; p7 place between left (0) and right (1)

#const YEAR .5
> i8 0 68 ; the echoes of the melody
> i9 0 68 ; the room in which all sounds, for 68 seconds

#define SUNSPOTS #
 80.9 83.4 47.7 47.8 30.7 12.2  9.6 10.2 32.4 47.6   ; 1749 to 1758
 54.0 62.9 85.9 61.2 45.1 36.4 20.9 11.4 37.8 69.8   ; 1759
106.1 100.8 81.6 66.5 34.8 30.6 7.0 19.8 92.5 154.4  ; 1769
125.9 84.8 68.1 38.5 22.8 10.2 24.1 82.9 132.0 130.9 ; 1779
118.1 89.9 66.6 60.0 46.9 41.0 21.3 16.0  6.4  4.1   ; 1789
  6.8 14.5 34.0 45.0 43.1 47.5 42.2 28.1 10.1  8.1   ; 1799
  2.5  0.0  1.4  5.0 12.2 13.9 35.4 45.8 41.1 30.1   ; 1809
 23.9 15.6  6.6  4.0  1.8  8.5 16.6 36.3 49.6 64.2   ; 1819
 67.0 70.9 47.8 27.5  8.5 13.2 56.9 121.5 138.3 103.2 ; 1829
 85.7 64.6 36.7 24.2 10.7 15.0 40.1 61.5 98.5 124.7  ; 1839
 96.3 66.6 64.5 54.1 39.0 20.6  6.7  4.3 22.7 54.8   ; 1849
 93.8 95.8 77.2 59.1 44.0 47.0 30.5 16.3  7.3 37.6   ; 1859 to 1868
#

/* The melody. P8 is the table and P9 the step of a scale, eight sunspots to each step;
   neither is written ("xx"). Seven steps fill the twelve semitones of an octave: under
   "no" the places are rounded to semitones, and a Dorian scale comes out. */
i1 = 9, 0, -120 {
p2 ~YEAR
p3 1.6
p8(xx) $SUNSPOTS
p9(xx) ex(T 1 I[p8 / 8])
p4(hz) no ex(T 1 [p9 * 12 / 7 + 38])
p5 ex(T 1 [p8 / 12 + 66])
p6 ex(T 1 [p8 / 160])
p7 ex(T 1 [p8 / 200 + .15])
}

/* The bell, an octave higher. A P3 of 0 or less is a rest, so "p8 - 72" leaves the years
   above 72, and the more spots they have the longer they ring. */
i2 = 9, 0, -120 {
p2 ~YEAR
p8(xx) $SUNSPOTS
p3 ex(T 1 [p8 - 72 / 8])
p9(xx) ex(T 1 I[p8 / 8])
p4(hz) no ex(T 1 [p9 * 12 / 7 + 50])
p5 ex(T 1 [p8 / 16 + 65])
p6 .5
p7 < .2 .8 .4 .6 >
}

; The ground: a new tone every eleven years, the cycle that the eye sees in the table.
i3 = 7, 0, -11 {
p2 ~[YEAR * 11]
p3 1.2
p4(hz) no < d2 a1 c2 g1 >
p5 73 74 75 76 73 72 70 72 75 76 74
p6 .3 .4 .6 .6 .2 .2 .1 .2 .5 .6 .4
p7 .5
}

; The end: the first tone of the scale, for all.
i1 = 7, 60, -1 {
p2 1
p3 1006
p4(hz) no d2:a:d3:f:a
p5 70
p6 .15
p7 < .5 .3 .7 .2 .8 >
}
</CsScore>
</CsoundSynthesizer>
