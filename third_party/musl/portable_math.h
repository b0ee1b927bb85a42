// Logarithm, powers and sine whose every bit is the same on every machine.
//
// The C library's own differ in the last bit between platforms, and on one platform
// between processors. These are musl's, of additions, multiplications and tables alone;
// results are those of C for all arguments, infinities and not-a-number included, and
// never further from the exact value than 0.55 units in the last place (sine: 0.8).
// Neither errno nor the processor's flags say anything afterwards.

#pragma once

namespace portable {

[[nodiscard]] double exp(double x);
[[nodiscard]] double log(double x);
[[nodiscard]] double pow(double x, double y);
[[nodiscard]] double sin(double x);

}  // namespace portable
