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

instr 1                             ; a struck string: two strings and the hammer
    iring   =       1.2 + 220 / p4
    aenv    linsegr 0, .003, 1, p3, 1, .25, 0
    adecay  expseg  1, iring, .2, 1, .1
    kfade   expseg  1, .25, .35, 2, .15
    afirst  vco2    .5, p4, 0
    asecond vco2    .5, p4 * 1.0015, 4, .3
    kopen   =       p4 * 2 + 4500 * kfade * ampdb(p5 - 80)
    asound  butterlp afirst + asecond, kopen
    asound  =       asound * aenv * adecay * ampdb(p5) * .9
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .22
    garight =       garight + aright * .22
endin

instr 2                             ; a celesta
    p3      =       1.8
    aenv    expseg  .01, .002, 1, p3 - .002, .001
    kring   expseg  1.6, .3, .2, 2, .1
    asound  foscili 1, p4, 1, 4.01, kring
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .35
    garight =       garight + aright * .35
endin

instr 3                             ; a reed: odd partials
    aenv    linsegr 0, .06, 1, p3, .7, .1, 0
    kvib    linseg  0, .3, 0, .4, .004
    kvib    oscili  kvib, 5
    asound  vco2    1, p4 * (1 + kvib), 10
    asound  butterlp asound, p4 * 4 + 300
    asound  =       asound * aenv * ampdb(p5)
    aleft   =       asound * sqrt(1 - p6)
    aright  =       asound * sqrt(p6)
            outs    aleft, aright
    galeft  =       galeft + aleft * .25
    garight =       garight + aright * .25
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .83, 8500
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; Mirror row: a row of twelve tones, its inversion, and both from their ends. A string
; instrument, a celesta and a reed share them, ever closer together, up to three chords
; that hold all twelve tones. From there the piece goes back, note by note.
;
; What to learn from it: a row as a list that is not written out, transposed and
; inverted by equations; macros for the forms of a row and of a rhythm; chords.
; To hear it, from any folder:
;     csound path/to/mirror_row.csd
;     vornkit play path/to/mirror_row.vorn path/to/mirror_row.orc
;
; p4 frequency in hertz, p5 amplitude in decibels, p6 place between left (0) and right (1)

te(84)
> i9 0 84 ; the room in which all sounds, for 84 seconds

/* Row, rhythm (twelve beats) and registers, forwards and backwards. */
#define ROW        #0 4 1 9 10 6 8 7 11 5 2 3#
#define ROW_BACK   #3 2 5 11 7 8 6 10 9 1 4 0#
#define TIMES      #4 8 8 2 4. 8 4 8. 16 4 2 4#
#define TIMES_BACK #4 2 4 16 8. 4 8 4. 2 8 8 4#
#define PLACES      #12 0 24 12 0 -12 12 24 0 12 -12 0#
#define PLACES_BACK #0 -12 12 0 24 12 -12 0 12 24 0 12#

/* A form of the row. P7 and P8, step and register, are not written out ("xx"): the
   equation makes the pitch of them. It tells the row as it is, "48 + p7 + p8", or
   inverted, "59 - p7 + p8"; 48 is the middle c. "no" rounds to semitones. */
#define FORM(player'beat'times'row'places'pitch'level'place) #i$player = 8, $beat, -12 {
p2 rh $times
p3 1.4
p7(xx) $row
p8(xx) $places
p4(hz) no ex(T 1 [$pitch])
p5 $level
p6 $place
}#

; Towards the middle: one form, two, three; the instruments come nearer to each other.
$FORM(1'0'$TIMES'$ROW'$PLACES'48 + p7 + p8'74'.3)
$FORM(1'12'$TIMES'$ROW'$PLACES'59 - p7 + p8'75'.3)
$FORM(2'18'$TIMES'$ROW_BACK'$PLACES'60 + p7 + p8'70'.8)
$FORM(1'24'$TIMES'$ROW'$PLACES'53 + p7 + p8'77'.3)
$FORM(3'27'$TIMES'$ROW_BACK'$PLACES'52 - p7 + p8'72'.55)
$FORM(2'33'$TIMES'$ROW'$PLACES'65 + p7 + p8'72'.8)
$FORM(1'36'$TIMES'$ROW_BACK'$PLACES'59 - p7 + p8'79'.3)
$FORM(3'39'$TIMES'$ROW'$PLACES'41 + p7 + p8'74'.55)

; The middle: the row as three chords of four tones, there and back.
i1 = 6, 49, -5 {
p2 2
p3 1.5
p4(hz) no c3:e:cs4:a4  bf2:fs3:gs4:g5  b2:f4:d5:ef5  bf2:fs3:gs4:g5  c3:e:cs4:a4
p5 74 x4 77 x4 79 x4 77 x4 74 x4
p6 < .1 .35 .65 .9 >
}

; And back: each form from its end, rhythm and registers too.
$FORM(3'57'$TIMES_BACK'$ROW_BACK'$PLACES_BACK'41 + p7 + p8'74'.55)
$FORM(1'60'$TIMES_BACK'$ROW'$PLACES_BACK'59 - p7 + p8'79'.3)
$FORM(2'63'$TIMES_BACK'$ROW_BACK'$PLACES_BACK'65 + p7 + p8'72'.8)
$FORM(3'69'$TIMES_BACK'$ROW'$PLACES_BACK'52 - p7 + p8'72'.55)
$FORM(1'72'$TIMES_BACK'$ROW_BACK'$PLACES_BACK'53 + p7 + p8'77'.3)
$FORM(2'78'$TIMES_BACK'$ROW'$PLACES_BACK'60 + p7 + p8'70'.8)
$FORM(1'84'$TIMES_BACK'$ROW_BACK'$PLACES_BACK'59 - p7 + p8'75'.3)
$FORM(1'96'$TIMES_BACK'$ROW_BACK'$PLACES_BACK'48 + p7 + p8'74'.3)
</CsScore>
</CsoundSynthesizer>
