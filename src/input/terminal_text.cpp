#include "input/terminal_text.h"

#include <cstdint>

// A score from elsewhere, its name and its messages are text, not commands: a
// terminal that obeyed them could be told to hide a message or to type one.
//
//     \x1B[2J      the byte 27 and "[2J": the screen is not cleared
//     \x9B2J       the same command with a byte of the upper half
//     \xC2\x9B2J   the same as a letter of UTF-8
//     Stück ½      stands as it is
//
// Bytes that are no UTF-8 are taken for Latin-1 each: its letters are shown, its
// control characters are not. Line feed and tab lay out every message and stay.

namespace vorn {

namespace {

struct Letter {
    std::uint32_t code;
    std::size_t size;  // bytes
};

struct Range {
    std::uint32_t first, last;
};

constexpr Range SURROGATES = {0xD800, 0xDFFF};
constexpr std::uint32_t LAST_CODE = 0x10FFFF;
constexpr std::uint32_t LEAST_CODES[] = {0, 0, 0x80, 0x800,
                                         0x10000};  // indexed by bytes: shorter forms exist below

constexpr Range ESCAPED[] = {
    {0x00, 0x08},     {0x0B, 0x1F},      // controls but for tab and line feed
    {0x7F, 0x9F},                        // delete and the upper controls
    {0x61C, 0x61C},   {0x200E, 0x200F},  // marks of direction
    {0x202A, 0x202E}, {0x2066, 0x2069},  // embeddings, overrides and isolates
};

bool lies_in(std::uint32_t code, Range range) { return range.first <= code && code <= range.last; }

// As the first byte tells; 1 for one that begins no letter.
std::size_t letter_size(unsigned char first) {
    if (first >= 0xC0 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF8 ? 4 : 1;
}

bool is_valid(Letter letter) {
    return letter.code >= LEAST_CODES[letter.size] && letter.code <= LAST_CODE &&
           !lies_in(letter.code, SURROGATES);
}

// A letter of UTF-8, or the first byte alone.
Letter first_letter(const char* text, std::size_t size) {
    const auto first = static_cast<unsigned char>(*text);
    const Letter alone = {first, 1};
    Letter letter = {0, letter_size(first)};
    if (letter.size == 1 || letter.size > size) return alone;
    letter.code = first & (0x7FU >> letter.size);
    for (std::size_t k = 1; k < letter.size; ++k) {
        const auto byte = static_cast<unsigned char>(text[k]);
        if ((byte & 0xC0) != 0x80) return alone;
        letter.code = letter.code << 6 | (byte & 0x3FU);
    }
    return is_valid(letter) ? letter : alone;
}

bool is_escaped(std::uint32_t code) {
    for (const Range range : ESCAPED) {
        if (lies_in(code, range)) return true;
    }
    return false;
}

std::size_t size_as_it_is(const char* text, std::size_t size) {
    std::size_t end = 0;
    while (end < size) {
        const TerminalCharacter character = terminal_character(text + end, size - end);
        if (character.is_escaped) break;
        end += character.size;
    }
    return end;
}

}  // namespace

TerminalCharacter terminal_character(const char* text, std::size_t size) {
    const Letter letter = first_letter(text, size);
    return {letter.size, is_escaped(letter.code)};
}

void write_to_terminal(std::FILE* terminal, const char* text, std::size_t size) {
    const char* const end = text + size;
    while (text < end) {
        const std::size_t plain = size_as_it_is(text, static_cast<std::size_t>(end - text));
        std::fwrite(text, 1, plain, terminal);
        text += plain;
        if (text == end) return;
        const char* const behind = text + terminal_character(text, static_cast<std::size_t>(end - text)).size;
        for (; text < behind; ++text) std::fprintf(terminal, "\\x%02X", static_cast<unsigned char>(*text));
    }
}

}  // namespace vorn
