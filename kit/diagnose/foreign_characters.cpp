#include "kit/diagnose/foreign_characters.h"

#include "kit/run/text_index.h"

// The names are those of Unicode, in lower case; of rare ones what they are.

namespace vorn::kit {

namespace {

enum class Look : std::uint8_t { SIGN, GUESS, BLANK };  // GUESS: what stands instead is not certain

struct Row {
    std::uint32_t code;
    const char* name;
    const char* instead;
    Look look = Look::SIGN;
    std::uint8_t more = 0;  // characters behind it that are the same
};

constexpr Row ROWS[] = {
    {0x0085, "line end", "\n", Look::BLANK},
    {0x00A0, "no-break space", " ", Look::BLANK},
    {0x00AB, "left-pointing double angle quotation mark", "<", Look::GUESS},
    {0x00AD, "soft hyphen", "", Look::BLANK},
    {0x00B4, "acute accent", "'"},
    {0x00B7, "middle dot", ".", Look::GUESS},
    {0x00BB, "right-pointing double angle quotation mark", ">", Look::GUESS},
    {0x00D7, "multiplication sign", "x"},
    {0x02BC, "modifier letter apostrophe", "'"},
    {0x1680, "ogham space mark", " ", Look::BLANK},
    {0x2000, "typographic space", " ", Look::BLANK, 10},
    {0x200B, "zero width space", "", Look::BLANK},
    {0x200C, "zero width joiner", "", Look::BLANK, 1},
    {0x200E, "direction mark", "", Look::BLANK, 1},
    {0x2010, "hyphen", "-", Look::SIGN, 1},
    {0x2012, "figure dash", "-"},
    {0x2013, "en dash", "-"},
    {0x2014, "em dash", "-"},
    {0x2015, "horizontal bar", "-"},
    {0x2018, "left single quotation mark", "'"},
    {0x2019, "right single quotation mark", "'"},
    {0x201A, "single low-9 quotation mark", ",", Look::GUESS},
    {0x201B, "quotation mark", "'"},
    {0x201C, "left double quotation mark", ""},
    {0x201D, "right double quotation mark", ""},
    {0x201E, "double low-9 quotation mark", ""},
    {0x201F, "quotation mark", ""},
    {0x2026, "horizontal ellipsis", "", Look::GUESS},
    {0x2028, "line end", "\n", Look::BLANK, 1},
    {0x202A, "direction mark", "", Look::BLANK, 4},
    {0x202F, "narrow no-break space", " ", Look::BLANK},
    {0x2032, "prime", "'"},
    {0x2033, "double prime", ""},
    {0x2039, "quotation mark", "<", Look::GUESS},
    {0x203A, "quotation mark", ">", Look::GUESS},
    {0x205F, "typographic space", " ", Look::BLANK},
    {0x2060, "word joiner", "", Look::BLANK},
    {0x2066, "direction mark", "", Look::BLANK, 3},
    {0x2212, "minus sign", "-"},
    {0x2215, "division slash", "/"},
    {0x266D, "music flat sign", "f"},
    {0x266E, "music natural sign", "n"},
    {0x266F, "music sharp sign", "s"},
    {0x2E3A, "dash", "-", Look::SIGN, 1},
    {0x3000, "ideographic space", " ", Look::BLANK},
    {0x301C, "wave dash", "-"},
    {0x301D, "quotation mark", "", Look::SIGN, 2},
    {0xFE58, "dash", "-"},
    {0xFE63, "dash", "-"},
    {0xFEFF, "byte-order mark", "", Look::BLANK},
};

constexpr std::uint32_t FIRST_FULL_WIDTH = 0xFF01;  // of "!", the others in the order of ASCII
constexpr std::uint32_t LAST_FULL_WIDTH = 0xFF5E;

ForeignCharacter full_width(Letter letter) {
    const char ascii = static_cast<char>(letter.code - FIRST_FULL_WIDTH + '!');
    return {letter.code, std::string("full-width form of ") + ascii, {ascii}, false, true, letter.size};
}

}  // namespace

Letter letter_beyond_ascii(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (text.empty() || byte(0) < 0x80) return {};
    const std::size_t size = byte(0) >> 5 == 6 ? 2 : byte(0) >> 4 == 14 ? 3 : byte(0) >> 3 == 30 ? 4 : 0;
    if (size == 0 || text.size() < size) return {byte(0), 1};
    std::uint32_t code = byte(0) & (0x7FU >> size);
    for (std::size_t at = 1; at < size; ++at) {
        if (!continues_character(text[at])) return {byte(0), 1};
        code = code << 6 | (byte(at) & 0x3FU);
    }
    return {code, size};
}

ForeignCharacter foreign_character(std::string_view text) {
    const Letter letter = letter_beyond_ascii(text);
    if (letter.code >= FIRST_FULL_WIDTH && letter.code <= LAST_FULL_WIDTH) return full_width(letter);
    for (const Row& row : ROWS) {
        if (letter.code < row.code || letter.code > row.code + row.more) continue;
        return {letter.code, row.name, row.instead, row.look == Look::BLANK, row.look != Look::GUESS,
                letter.size};
    }
    return {};
}

}  // namespace vorn::kit
