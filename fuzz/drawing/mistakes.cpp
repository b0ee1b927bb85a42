#include "drawing/mistakes.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <iterator>
#include <string_view>

// A text is a row of words, that is numbers and names, single other characters,
// and white space. A mistake drops, doubles, moves or replaces one of them, puts
// one in, changes a character, cuts the text off or drops its last line end.
// Numbers that are put in stay small where they could be a count, so that the run
// stays short whatever the mistake.

namespace vorn::fuzz {

namespace {

constexpr std::size_t MAX_TIME_DIGITS = 4;

constexpr std::string_view STRANGE_WORDS[] = {
    "}",     "{",     "(",     ")",    "<",   ">",        "[",         "]",         "/",       ":",  "'",
    ",",     ";",     "/*",    "*/",   "#",   "$",        "~",         "=",         "*",       "x",  "z",
    "-",     "1e3",   "-1",    "0",    "p2",  "p4",       "p9",        "p129",      "i1",      "T",  "T*",
    "$none", "~none", "~[1 /", "~[",   "~@5", "#if(1)\n", "#if(0)\n",  "#endif\n",  "#const ", "\n", "x0",
    "dd",    "re8",   "te(",   "ra(",  "ho(", "#undef A", "#define A", "#include ", "33333",   "",   "-.0001",
    ".",     "32768", "\x01",  "\xff", "db",  "r",        "rd(101)",   "rs(65536)", "i",       "%",  "no"};

bool is_word_character(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.'; }

struct Word {
    std::size_t begin;
    std::size_t size;
};

// The word that begins, or a part of which stands, at this place.
Word word_at(const std::string& text, std::size_t place) {
    std::size_t end = place + 1;
    if (is_word_character(text[place])) {
        while (end < text.size() && is_word_character(text[end])) ++end;
    }
    return {place, end - place};
}

Word some_word(const std::string& text, Dice& dice) { return word_at(text, dice.place(text.size())); }

void drop_word(std::string& text, Dice& dice) {
    const Word word = some_word(text, dice);
    text.erase(word.begin, word.size);
}

void double_word(std::string& text, Dice& dice) {
    const Word word = some_word(text, dice);
    text.insert(word.begin, text.substr(word.begin, word.size));
}

void move_word(std::string& text, Dice& dice) {
    const Word word = some_word(text, dice);
    const std::string moved = text.substr(word.begin, word.size);
    text.erase(word.begin, word.size);
    text.insert(dice.place(text.size() + 1), moved);
}

void replace_word(std::string& text, Dice& dice) {
    const Word word = some_word(text, dice);
    text.replace(word.begin, word.size, STRANGE_WORDS[dice.roll(std::size(STRANGE_WORDS))]);
}

void insert_word(std::string& text, Dice& dice) {
    const std::size_t place = dice.place(text.size());
    text.insert(place, STRANGE_WORDS[dice.roll(std::size(STRANGE_WORDS))]);
}

void cut_off(std::string& text, Dice& dice) { text.resize(dice.place(text.size())); }

void change_character(std::string& text, Dice& dice) {
    const std::size_t place = dice.place(text.size());
    text[place] = static_cast<char>(dice.roll(256));
}

// Each event that a time wants beyond its block is a warning of three lines, so the factor of T*1 and the
// events of a generator, as in ho(-4 1), stay few, too.
void shorten_times(std::string& text) {
    for (const std::string_view before : {"T*", "(-"}) {
        for (std::size_t at = text.find(before); at != text.npos; at = text.find(before, at)) {
            at += before.size();
            const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
            const std::size_t last = std::min(at + MAX_TIME_DIGITS, end);
            text.erase(last, end - last);
        }
    }
}

void drop_last_line_end(std::string& text, Dice&) {
    if (text.back() == '\n') text.pop_back();
}

using Mistake = void (*)(std::string& text, Dice& dice);

constexpr Mistake MISTAKES[] = {drop_word,   double_word, move_word,        replace_word,      replace_word,
                                insert_word, cut_off,     change_character, drop_last_line_end};

}  // namespace

void make_mistake(std::string& text, Dice& dice) {
    if (text.empty()) return;
    MISTAKES[dice.roll(std::size(MISTAKES))](text, dice);
    shorten_times(text);
}

}  // namespace vorn::fuzz
