// What the sources of musl expect of its own header of this name, in C++: views of a
// double's bits, and hints that here mean nothing. It is read outside any namespace,
// before the sources, and reads for them the standard headers that they name.
//
// No multiplication is fused with an addition even where the processor could: the
// sources ask for __FP_FAST_FMA and would then give other last bits.

#pragma once

#include <float.h>
#include <math.h>
#include <stdint.h>

#include <bit>

#undef __FP_FAST_FMA

#define hidden
#define WANT_ROUNDING 1
#define TOINT_INTRINSICS 0
#define issignaling_inline(x) 0
#define predict_true(x) __builtin_expect(!!(x), 1)
#define predict_false(x) __builtin_expect(!!(x), 0)

static inline uint64_t asuint64(double x) { return std::bit_cast<uint64_t>(x); }
static inline double asdouble(uint64_t bits) { return std::bit_cast<double>(bits); }
static inline double eval_as_double(double x) { return x; }
static inline double fp_barrier(double x) { return x; }
static inline void fp_force_eval(double) {}

#define GET_HIGH_WORD(high, x) ((high) = static_cast<uint32_t>(asuint64(x) >> 32))
#define FORCE_EVAL(x) fp_force_eval(x)
