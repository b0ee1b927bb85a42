#include "kit/orchestra/first_piece.h"

// A piece to be changed: each line shows one thing, and none is needed by another.

namespace vorn::kit {

const char* const FIRST_SCORE =
    R"(; A first piece: a melody of six tones over a bass. Change a number, play it again.
;
; p4 frequency in hertz, p5 level from 0 to 1

rs(1)                               ; another number is another melody
te(100)                             ; quarter notes a minute

i1 = 5 0 32 {                       ; instrument 1, p-fields up to p5, from beat 0, 32 beats
p2 rh <4 8 8 4 4>                   ; rhythm: quarters and eighths
p3 .9                               ; each note nearly as long as the time to the next
p4(hz) no se(T 1 * [c4 d e g a c5]) ; each tone once before any comes again
p5 ra(T 1 [.3 .5])                  ; levels by chance
}

i2 = 5 0 32 {                       ; the bass: a whole note for each bar
p2 4
p3 1
p4(hz) no <c2 a1 f g>
p5 .4
}
)";

const char* const FIRST_ORCHESTRA =
    R"(; p4 frequency in hertz, p5 level from 0 to 1

sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1

instr 1                             ; plucked
    asound pluck  p5, p4, p4, 0, 1
    asound linen  asound, 0, p3, .05
           outs   asound * .6, asound * .4
endin

instr 2                             ; the bass
    asound poscil p5, p4
    asound linen  asound, .02, p3, .1
           outs   asound * .4, asound * .6
endin
)";

}  // namespace vorn::kit
