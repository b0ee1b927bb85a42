#include "blocks/commands.h"

#include <array>
#include <iterator>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "input/characters.h"
#include "input/numbers.h"
#include "input/reader.h"

// Command recognition. The second letters of all commands form one ordered
// chain; the first letter only says where in the chain the comparison begins,
// and a failed comparison goes on to the end of the chain:
//
//     "db" -> 2      the first link of entry "d"
//     "dz" -> 4      falls through to the "z" of "hz"
//     "tq" -> true, nothing recognised
//
// The falling through is kept on purpose; scores cannot see it, because
// is_command and is_gcommand let only whole names pass.

namespace vorn {

namespace {

enum class Suffix { NONE, EXACT_PITCH, DECIMALS, FFT_SIZE };

struct ChainLink {
    char second;
    CommandCode code;
    Suffix suffix = Suffix::NONE;
};

constexpr ChainLink CHAIN[] = {
    {'b', CODE_DB},
    {'v', CODE_DV},
    {'x', CODE_EX},
    {'z', CODE_HZ},
    {'o', CODE_HO},
    {'n', CODE_IN},
    {'o', CODE_MO},
    {'s', CODE_MS},
    {'o', CODE_NO, Suffix::EXACT_PITCH},
    {'d', CODE_OD},
    {'p', CODE_OP, Suffix::EXACT_PITCH},
    {'f', CODE_PF},
    {'e', CODE_SE},
    {'2', CODE_S2},
    {'r', CODE_SR},
    {'a', CODE_RA},
    {'d', CODE_RD},
    {'e', CODE_RE, Suffix::DECIMALS},
    {'h', CODE_RH},
    {'s', CODE_RS},
    {'w', CODE_RW},
    {'e', CODE_TE},
    {'r', CODE_TR},
    {'x', CODE_XX},
    {'n', CODE_BN, Suffix::FFT_SIZE},
};

struct ChainEntry {
    char first;
    int link;  // index in CHAIN
};

constexpr ChainEntry ENTRIES[] = {
    {'d', 0},  {'e', 2},  {'h', 3},  {'i', 5},  {'m', 6},  {'n', 8},  {'o', 9},
    {'p', 11}, {'s', 12}, {'r', 15}, {'t', 21}, {'x', 23}, {'b', 24},
};

// A link's name begins with the letter of the last entry up to it.
struct LinkName {
    char text[2];
};

constexpr std::array<LinkName, std::size(CHAIN)> make_names() {
    std::array<LinkName, std::size(CHAIN)> names = {};
    for (const ChainEntry& entry : ENTRIES) {
        for (auto link = static_cast<std::size_t>(entry.link); link < names.size(); ++link) {
            names[link] = {{entry.first, CHAIN[link].second}};
        }
    }
    return names;
}

constexpr std::array<LinkName, std::size(CHAIN)> NAMES = make_names();

constexpr std::int32_t MAX_SUFFIX_DIGIT = 7;

// ["x"]: the pitch is read exactly, with quarter-tones and without rounding.
void read_exact_pitch(const char* text, std::int32_t& pos) {
    NX = to_lower(text[pos]) == 'x' ? 1 : 0;
    pos += NX;
}

// [digits]: the setting of the current p-field; its default when there are none.
template <typename Setting>
bool read_digit_suffix(Setting* settings, Setting otherwise, const char* text, std::int32_t& pos) {
    Setting setting = otherwise;
    if (is_digit(text[pos])) {
        std::int32_t digit = 0;
        if (!get_i(digit, text, pos) || digit > MAX_SUFFIX_DIGIT) return false;
        setting = static_cast<Setting>(digit);
    }
    const bool in_statement = settings != nullptr && P_NO >= 2 && P_NO <= MAX_PFIELDS;
    if (in_statement) settings[P_NO - 2] = setting;
    return true;
}

bool read_suffix(Suffix suffix, const char* text, std::int32_t& pos) {
    switch (suffix) {
        case Suffix::EXACT_PITCH:
            read_exact_pitch(text, pos);
            return true;
        case Suffix::DECIMALS:
            return read_digit_suffix(RE_FW, RE_FW_DEFAULT, text, pos);
        case Suffix::FFT_SIZE:
            return read_digit_suffix(FFT_SZ, FFT_SZ_DEFAULT, text, pos);
        case Suffix::NONE:
            break;
    }
    return true;
}

const ChainEntry* find_entry(char first) {
    for (const ChainEntry& entry : ENTRIES) {
        if (entry.first == first) return &entry;
    }
    return nullptr;
}

// Whether the two characters at pos, in lower case, are one of the names.
bool is_one_of(std::string_view names, const char* text, std::int32_t pos) {
    const char name[] = {to_lower(text[pos]), to_lower(peek(text, pos))};
    for (std::size_t at = 0; at < names.size(); at += 2) {
        if (names[at] == name[0] && names[at + 1] == name[1]) return true;
    }
    return false;
}

// "dx" is another name of "ex" only with its "(": under note names "dx3" is the
// note d three times.
bool is_dx_call(const char* text, std::int32_t pos) {
    if (!is_one_of("dx", text, pos)) return false;
    pos += 2;
    while (is_space(text[pos])) ++pos;
    return text[pos] == '(';
}

}  // namespace

bool get_command(int& code, const char* text, std::int32_t& pos) {
    const char first = to_lower(text[pos]);
    if (first == '#' || first == '$') {
        ++pos;
        code = text[pos] == 'c' ? CODE_CONST : CODE_MACRO;
        return true;
    }
    if (first == '>') {
        ++pos;
        code = CODE_DIRECT;
        return true;
    }
    const ChainEntry* entry = find_entry(first);
    if (entry == nullptr) return false;
    const char second = to_lower(peek(text, pos));
    for (const ChainLink* link = CHAIN + entry->link; link != std::end(CHAIN); ++link) {
        if (link->second != second) continue;
        pos += 2;
        code = link->code;
        return read_suffix(link->suffix, text, pos);
    }
    return true;
}

std::string_view command_name(int code) {
    for (std::size_t link = 0; link < NAMES.size(); ++link) {
        if (CHAIN[link].code == code) return {NAMES[link].text, std::size(NAMES[link].text)};
    }
    return {};
}

bool is_gcommand(const char* text, std::int32_t pos) {
    return text[pos] == '>' || text[pos] == '#' || is_one_of(GLOBAL_COMMANDS, text, pos);
}

bool is_command(const char* text, std::int32_t pos) {
    return text[pos] == '#' || is_one_of(STATEMENT_COMMANDS, text, pos) || is_dx_call(text, pos);
}

bool is_output_specifier(const char* text, std::int32_t pos) {
    return is_one_of(OUTPUT_SPECIFIERS, text, pos);
}

}  // namespace vorn
