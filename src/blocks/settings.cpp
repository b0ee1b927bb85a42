#include "blocks/settings.h"

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "generators/random.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"

// The setting commands. All read NAME "(" value ")"; line ends may stand only
// between "(" and the value. The value is stored as soon as it is read, before
// its range is looked at.

namespace vorn {

namespace {

constexpr float MAX_DEVIATION = 100;  // 10000 %
constexpr float LARGE_DEVIATION = 1;  // 100 %; more than that is asked back

// "(" value ")" of a command, the value read by a number reader; format_error when
// it cannot be read.
template <typename Value>
int read_setting(CommandCode command, Reader& reader, Value& value,
                 bool (*read)(Value&, const char*, std::int32_t&), int format_error) {
    if (const int result = good_cmd_format(reader.text, reader.pos)) return result;
    ++reader.pos;
    if (const int result = skip_white(reader)) return result;
    const LinePlace begin = place(reader);
    if (!read(value, reader.text, reader.pos)) return format_error;
    const std::int32_t end = reader.pos;
    skip_blanks(reader.text, reader.pos);
    if (reader.text[reader.pos] != ')') return error::MISSING_PARENTHESIS;
    ++reader.pos;
    if (reader.observer != nullptr) {
        reader.observer->on_setting({command, static_cast<double>(value), begin, end});
    }
    return 0;
}

int set_deviation(CommandCode command, Reader& reader, float& deviation) {
    const int result = read_setting(command, reader, deviation, get_f, error::BAD_DEVIATION);
    if (result != 0) return result;
    if (deviation > MAX_DEVIATION || deviation < 0) return error::BAD_DEVIATION;
    if (deviation > LARGE_DEVIATION) warning_no(warning::LARGE_DEVIATION, reader);
    return 0;
}

}  // namespace

int good_cmd_format(const char* text, std::int32_t& pos) {
    skip_blanks(text, pos);
    return text[pos] == '(' ? 0 : error::COMMAND_WITHOUT_PARENTHESIS;
}

int set_rand_seed(Reader& reader) {
    std::uint32_t seed = 0;
    const int result = read_setting(CODE_RS, reader, seed, get_ui, error::BAD_SEED);
    if (result == 0) srand(seed);
    return result;
}

int set_samp_rate(Reader& reader) {
    return read_setting(CODE_SR, reader, SRATE, get_uli, error::BAD_SAMPLE_RATE);
}

int set_rand_dev(Reader& reader) { return set_deviation(CODE_RD, reader, MAX_DEV); }

int set_rand_dev2(Reader& reader) { return set_deviation(CODE_DV, reader, MAX_DEV2); }

int set_pfactor(Reader& reader) {
    if (P_NO == 2) return error::FACTOR_IN_P2;
    return read_setting(CODE_PF, reader, PFACTOR, get_f, error::BAD_FACTOR);
}

}  // namespace vorn
