<CsoundSynthesizer>
<CsOptions>
-d -odac
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 32768

; p4 amplitude in decibels, p5 frequency in hertz, p6 wave,
; p7 place between left (0) and right (1)

galeft  init 0                      ; what goes into the room
garight init 0

instr 1                             ; a grain: one swell of a window
    aenv   oscili ampdb(p4), 1 / p3, 3
    asound oscili aenv, p5, p6
    aleft  =      asound * sqrt(1 - p7)
    aright =      asound * sqrt(p7)
           outs   aleft, aright
    galeft  =     galeft + aleft * .3
    garight =     garight + aright * .3
endin

instr 9                             ; the room
    aleft, aright reverbsc galeft, garight, .88, 10000
            outs    aleft, aright
            clear   galeft, garight
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A granular cloud: a few low grains gather into a dense, high swarm, which sinks
; and thins out again, while sparks above it move from one harmony to another and
; two deep tones hold it from below.
;
; What to learn from it: masks, whose borders move each along a curve of its own;
; distributions; a harmony that turns into another; a walk between left and right.
; To hear it, from any folder:
;     csound path/to/granular_cloud.csd
;     vornkit play path/to/granular_cloud.vorn path/to/granular_cloud.orc
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 wave: 1 dark, 2 bright,
; p7 place between left (0) and right (1)

rs(1871)                            ; another seed is another cloud
> f1 0 8192 10 1 .2
> f2 0 8192 10 1 .5 .3 .25 .2 .15 .1
> f3 0 8192 20 2                    ; the window of a grain
> i9 0 68 ; the room in which all sounds, for 68 seconds

/* MO moves from a start range to an end range: each grain draws a start and an
   end value and takes the place between them that belongs to its moment, so that
   the two ranges are the ends of a mask. */

i1 = 7, 0, 60 {                     ; the cloud
p2 mo(30 1 e [.12 .25] [.02 .04])   ; ever denser for 30 beats,
   mo(30 1 e [.02 .04] [.2 .7])     ; then thinner
p3 mo(30 1 [1000.4 1000.9] [1000.08 1000.2])    ; 1000 and more: seconds
   mo(30 1 [1000.08 1000.2] [1000.8 1001.6])
p4 mo(30 1 s [67 72] [67 77])
   mo(30 1 c [67 77] [58 66])
p5(hz) nox mo(30 1 c [f c2 g2] [f c5 c7])       ; nox: between the keys, too
           mo(30 1 e [f c5 c7] c2)
p6(in) ms(T 1 s 1 2)                ; from mostly dark to mostly bright
p7 rw(T 1 [0 1] .4 .5)              ; wanders from the middle
}

i1 = 7, 10, 44 {                    ; the sparks
p2 ra(T 1 [l .1 1.2])               ; short intervals more often than long ones
p3 ra(T .7 [1000.15 1000.4] .3 [1000.8 1002])
p4 ra(T 1 [g 62 78])
p5(hz) no ms(T 1 s [c4 g d5 a e6] [fs4 cs5 gs ds6 as])
p6(in) 2
p7 ra(T .5 [0 .3] .5 [.7 1])        ; never in the middle
}

i1 = 7, 0, -14 {                    ; the deep tones, each a single long grain
p2 4.4
p3 1007
p4 64 65 66 67 68 69 x4 68 67 66 64 62
p5(hz) no < c2 g >
p6(in) 1
p7 < .35 .65 >
}
</CsScore>
</CsoundSynthesizer>
