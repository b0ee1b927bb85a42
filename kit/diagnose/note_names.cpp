#include "kit/diagnose/note_names.h"

#include <algorithm>

#include "input/characters.h"

// What is known: sharp and flat signs, trackers' "C-4" and "C#4", and the German
// names with "is", "es" and "h".

namespace vorn::kit {

namespace {

bool is_note_letter(char c) { return to_lower(c) >= 'a' && to_lower(c) <= 'g'; }

bool are_digits(std::string_view text) { return std::all_of(text.begin(), text.end(), is_digit); }

std::size_t behind_accidentals(std::string_view word) {
    const std::size_t behind = word.find_first_not_of("sfn", 1);
    return std::min(behind, word.size());
}

// Behind the letter: what is written elsewhere, and what Vorn has for it.
struct Accidental {
    std::string_view written;
    std::string_view meant;
};

constexpr Accidental ACCIDENTALS[] = {
    {"##", "ss"},   {"#", "s"},  {"-", ""},  {"isis", "ss"}, {"is", "s"},
    {"eses", "ff"}, {"es", "f"}, {"S", "s"}, {"F", "f"},     {"", ""},
};

}  // namespace

bool is_note_name(std::string_view word) {
    return !word.empty() && is_note_letter(word[0]) && are_digits(word.substr(behind_accidentals(word)));
}

std::string note_from_elsewhere(std::string_view word) {
    if (word.empty()) return {};
    const char letter = to_lower(word[0]);
    if (!is_note_letter(letter) && letter != 'h') return {};
    for (const Accidental& accidental : ACCIDENTALS) {
        if (!word.substr(1).starts_with(accidental.written)) continue;
        const std::string_view octave = word.substr(1 + accidental.written.size());
        if (octave.size() > 1 || !are_digits(octave)) continue;
        return std::string(1, letter == 'h' ? 'b' : letter) + std::string(accidental.meant) +
               std::string(octave);
    }
    return {};
}

int octave_of(std::string_view word) {
    if (!is_note_name(word)) return -1;
    const std::string_view digits = word.substr(behind_accidentals(word));
    if (digits.empty() || digits.size() > 6) return -1;
    return std::stoi(std::string(digits));
}

}  // namespace vorn::kit
