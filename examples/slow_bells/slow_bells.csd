<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 64
nchnls = 1
0dbfs = 32768

; p5 amplitude, p6 seconds of the stroke

instr 1                             ; a bell; p4 as octave.pitch-class
    ifreq  =       cpspch(p4)
    kenv   expseg  .001, p6, 1, p3 - p6, .001
    kring  line    4, p3, 0
    asound foscili p5 * kenv, ifreq, 1, 2.76, kring, 1
           out     asound
endin

instr 2                             ; the recorded bell; p4 the speed
    kenv   expseg  .001, p6, 1, p3 - p6, .001
    asound oscili  p5 * kenv, cpspch(8) * p4, 1
           out     asound
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Slow bells: chords of bells that are struck by hand, so that neither their
; times nor their levels are even, and one bell that is played as a recording at
; other speeds.
;
; p4 pitch as octave.pitch-class, p5 amplitude, p6 seconds of the stroke

rs(11)                              ; the same unevenness in every run
te(0 24 72 50 e)                    ; from beat 0 to 24 the bells slow down
> f1 0 8192 10 1

i1 = 6, 0, 24 {
rd(.08)                             ; start times and durations by 4 % up and down
p2(re5) rh <2 4 4. 8>               ; start times with five decimals
p3 1005                             ; about five seconds
p4(op) rd(0) no <c4:g:e5 a3:e4 f3:c4:a:c5 r>  ; pitches are exact again; r is a rest
p5(in) dv(.5) db 68                 ; amplitudes by a quarter up and down
p6(re4) .005
}

i1 = 6, 24, 12 {                    ; the low bell, even again
p2 4
p3 408
p4(op) no c3:c2 g2 c
p5(in) db 74 72 x3
p6(re4) .02 .01
}

/* The recording is the bell of pitch c4. A transposition in semitones becomes
   the speed at which it is played; the pitch itself is kept for reading. */
i2 = 7, 2, -6 {
p2 5
p3 pf(.5) 1006                      ; half of six seconds
p4(tr) 0 7 12 -12 -5 0
p5(in) db 66
p6(re4) .1
p7(xx) no c4 g c5 c3 g c4           ; not written
}
</CsScore>
</CsoundSynthesizer>
