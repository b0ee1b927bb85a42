#include "portable_math.h"

#include "libm.h"

// The sources of musl, compiled as one piece of C++ in which nothing but the four
// routines of the header is seen from outside: no name meets one of the C library.
// Their macros of one letter make the order: sine comes before those that define C2,
// and what two of them name alike is forgotten between them.

namespace {

namespace of_sine {
int __rem_pio2_large(double*, double*, int, int, int);
#include "__cos.c"
#include "__rem_pio2.c"
#include "__rem_pio2_large.c"
#include "__sin.c"
#include "sin.c"
}  // namespace of_sine

#include "__math_divzero.c"
#include "__math_invalid.c"
#include "__math_xflow.c"
// These two call the one above.
#include "__math_oflow.c"
#include "__math_uflow.c"

namespace of_logarithm {
#include "log_data.c"
#undef N
#include "log.c"
}  // namespace of_logarithm
#undef A
#undef Ln2hi
#undef Ln2lo
#undef N
#undef OFF
#undef T

#include "exp_data.c"

namespace of_exponential {
#include "exp.c"
}
#undef N
#undef T

namespace of_power {
#include "pow_data.c"
#undef A
#include "pow.c"
}  // namespace of_power

}  // namespace

namespace portable {

double exp(double x) { return of_exponential::exp(x); }

double log(double x) { return of_logarithm::log(x); }

double pow(double x, double y) { return of_power::pow(x, y); }

double sin(double x) { return of_sine::sin(x); }

}  // namespace portable
