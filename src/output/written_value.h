#pragma once

#include <cstdint>

#include "input/real_text.h"

namespace vorn {

// What decides how the values of one p-field are written.
struct FieldFormat {
    int pfield;              // 2: P2
    std::uint32_t type;      // output type code, from P4 on
    std::uint32_t decimals;  // of type "re", and of P2 and P3
    std::int32_t fft_size;   // size index of type "bn"
    std::uint64_t sample_rate;
};

// The same, worked out so that the loop over the events looks nothing up.
struct ValueForm {
    char* (*write)(char* to, const ValueForm& form, float value);
    int width;
    int decimals;
    std::int32_t fft_size;
    std::uint64_t sample_rate;
};

// False: values of this type are left out of the score ("xx" and codes that are no
// output types).
[[nodiscard]] bool plan_value(ValueForm& form, const FieldFormat& format);

// Writes a value as it stands in the score, with the blanks that fill its column
// and without a terminating zero: REAL_TEXT_SIZE bytes at most. Returns the end.
inline char* write_value(char* to, const ValueForm& form, float value) { return form.write(to, form, value); }

}  // namespace vorn
