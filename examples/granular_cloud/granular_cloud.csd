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

instr 1                             ; a grain: one swell of a window
    kenv   oscili ampdb(p4), 1 / p3, 3
    asound oscili kenv, p5, p6
           outs   asound * sqrt(1 - p7), asound * sqrt(p7)
endin
</CsInstruments>
<CsScore bin="vorn -s">
; A granular cloud: a few low grains gather into a dense, high swarm, which sinks
; and thins out again, while sparks above it move from one harmony to another.
;
; p4 amplitude in decibels, p5 frequency in hertz, p6 wave: 1 dark, 2 bright,
; p7 place between left (0) and right (1)

rs(1871)                            ; another seed is another cloud
> f1 0 8192 10 1 .2
> f2 0 8192 10 1 .5 .3 .25 .2 .15 .1
> f3 0 8192 20 2                    ; the window of a grain

/* MO moves from a start range to an end range: each grain draws a start and an
   end value and takes the place between them that belongs to its moment, so that
   the two ranges are the ends of a mask. */

i1 = 7, 0, 44 {                     ; the cloud
p2 mo(22 1 e [.15 .3] [.02 .04])    ; ever denser for 22 beats,
   mo(22 1 l [.02 .04] [.2 .6])     ; then thinner
p3 mo(22 1 [1000.3 1000.6] [1000.06 1000.12])   ; 1000 and more: seconds
   mo(22 1 [1000.06 1000.12] [1000.5 1001])
p4(db) db mo(22 1 s [48 54] [54 64])
          mo(22 1 c [54 64] [42 50])
p5(hz) nox mo(22 1 c [f c2 g2] [f c5 c7])       ; nox: between the keys, too
           mo(22 1 e [f c5 c7] c2)
p6(in) ms(T 1 s 1 2)                ; from mostly dark to mostly bright
p7 rw(T 1 [0 1] .4 .5)              ; wanders from the middle
}

i1 = 7, 6, 32 {                     ; the sparks
p2 ra(T 1 [l .08 .8])               ; short intervals more often than long ones
p3 ra(T .7 [1000.1 1000.2] .3 [1000.5 1001.2])
p4(db) db ra(T 1 [g 50 70])
p5(hz) no ms(T 1 s [c4 g d5 a e6] [fs4 cs5 gs ds6 as])
p6(in) 2
p7 ra(T .5 [0 .3] .5 [.7 1])        ; never in the middle
}
</CsScore>
</CsoundSynthesizer>
