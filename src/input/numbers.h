#pragma once

#include <cstdint>

// Number readers. All skip leading white space on the line, accept one "+"
// (the signed ones also "-"), and return false, storing nothing, when no digit
// (for the reals: digit or ".") follows; pos then rests behind the sign.
// There is no exponent syntax.

namespace vorn {

// -32768 to 32767; out of range: false with pos on the first digit.
[[nodiscard]] bool get_i(std::int32_t& value, const char* text, std::int32_t& pos);

// 0 to 65535, no "-"; out of range as get_i.
[[nodiscard]] bool get_ui(std::uint32_t& value, const char* text, std::int32_t& pos);

// 64-bit, wrapping; trailing white space is skipped.
[[nodiscard]] bool get_li(std::int64_t& value, const char* text, std::int32_t& pos);

// 64-bit, wrapping, no "-"; trailing white space is skipped.
[[nodiscard]] bool get_uli(std::uint64_t& value, const char* text, std::int32_t& pos);

// Mantissa in single precision, divided once by ten to the number of fraction
// digits; at most nine fraction digits count, further ones are ignored.
[[nodiscard]] bool get_f(float& value, const char* text, std::int32_t& pos);

// As get_f in double precision, with at most 18 fraction digits.
[[nodiscard]] bool get_df(double& value, const char* text, std::int32_t& pos);

}  // namespace vorn
