#include "output/written_value.h"

#include "blocks/command_codes.h"
#include "generators/arithmetic.h"
#include "output/pitch_conversion.h"

// A value in its output type:
//
//     48 as "hz"    "  261.62555"      column of 11
//     48 as "op"    " 8.000"           column of 6
//     0.5 as "re"   "    0.500"        column of 6, and 3 for its own decimals
//
// Start and duration, P2 and P3, have no output type: they are numbers in columns
// of their own widths.

namespace vorn {

namespace {

constexpr int START_WIDTH = 5;     // beside the decimals
constexpr int DURATION_WIDTH = 3;  // beside the decimals

char* write_real(char* to, const ValueForm& form, float value) {
    return format_real(to, value, form.width, form.decimals);
}

template <float (*convert)(float)>
char* write_converted(char* to, const ValueForm& form, float value) {
    return format_real(to, convert(value), form.width, form.decimals);
}

char* write_rounded(char* to, const ValueForm& form, float value) {
    return format_integer(to, Round(value), form.width);
}

char* write_bin(char* to, const ValueForm& form, float value) {
    return format_integer(to, cpc_to_bin(form.fft_size, value, form.sample_rate), form.width);
}

float rounded_amp_to_db(float amplitude) { return amp_to_db(Round(amplitude)); }

// For "re" width and decimals are what the p-field's own decimals are added to.
struct OutputConversion {
    int type;
    int width;
    int decimals;
    char* (*write)(char* to, const ValueForm& form, float value);
};

constexpr OutputConversion OUTPUT_CONVERSIONS[] = {
    {CODE_DB, 4, 1, write_converted<rounded_amp_to_db>},
    {CODE_HZ, 11, 5, write_converted<cpc_to_hz>},
    {CODE_IN, 5, 0, write_rounded},
    {CODE_OP, 6, 3, write_converted<cpc_to_pch>},
    {CODE_OD, 4, 2, write_converted<cpc_to_oct>},
    {CODE_RE, 6, 0, write_real},
    {CODE_TR, 8, 6, write_converted<st_to_tr>},
    {CODE_BN, 5, 0, write_bin},
};

constexpr OutputConversion START_CONVERSION = {CODE_RE, START_WIDTH, 0, write_real};
constexpr OutputConversion DURATION_CONVERSION = {CODE_RE, DURATION_WIDTH, 0, write_real};

// The row of a p-field, or null when its type writes nothing.
const OutputConversion* find_conversion(const FieldFormat& format) {
    if (format.pfield == 2) return &START_CONVERSION;
    if (format.pfield == 3) return &DURATION_CONVERSION;
    for (const OutputConversion& conversion : OUTPUT_CONVERSIONS) {
        if (static_cast<std::uint32_t>(conversion.type) == format.type) return &conversion;
    }
    return nullptr;
}

}  // namespace

bool plan_value(ValueForm& form, const FieldFormat& format) {
    const OutputConversion* conversion = find_conversion(format);
    if (conversion == nullptr) return false;
    const int own = conversion->type == CODE_RE ? static_cast<int>(format.decimals) : 0;
    form = {conversion->write, conversion->width + own, conversion->decimals + own, format.fft_size,
            format.sample_rate};
    return true;
}

}  // namespace vorn
