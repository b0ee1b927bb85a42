#include <array>
#include <cstdio>

#include "kit/diagnose/adviser.h"
#include "kit/diagnose/foreign_characters.h"

// Characters that look like what was meant and are something else. They are
// named, since the eye does not tell them apart.

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST_MARK = 256;  // bytes of it that are looked through

// The first foreign character of what is marked, or the one right before it.
Stretch find_foreign(const Adviser& adviser) {
    const Site& site = adviser.site;
    const std::size_t end = std::min(adviser.mark.end, adviser.mark.begin + LONGEST_MARK);
    for (std::size_t at = adviser.mark.begin; at < std::max(end, adviser.mark.begin + 1); ++at) {
        if (at >= site.text.size()) break;
        const ForeignCharacter found = foreign_character(site.text.substr(at, 4));
        if (found.code != 0) return {at, at + found.size};
    }
    return {site.at, site.at};
}

std::string number_of(std::uint32_t code) {
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(code));
    return text.data();
}

std::string with_article(const std::string& name) {
    return (std::string_view("aeiou").find(name[0]) != std::string_view::npos ? "an " : "a ") + name;
}

std::string what_to_do(const ForeignCharacter& found) {
    if (found.instead.empty()) return "leave it out";
    if (found.instead == " ") return "write a blank";
    if (found.instead == "\n") return "begin a new line";
    return "write `" + found.instead + "`";
}

// Those that are certain, from `begin` to the end of the line: one seldom comes alone.
void replace_all(Adviser& adviser, std::size_t begin) {
    const Stretch line = line_around(adviser.site.text, begin);
    const std::size_t end = std::min(line.end, begin + LONGEST_MARK);
    for (std::size_t at = begin; at < end && adviser.site[at] != ';';) {
        const ForeignCharacter found = foreign_character(adviser.site.text.substr(at, 4));
        if (found.code != 0 && found.is_certain) adviser.edit({at, at + found.size}, found.instead);
        at += found.size;
    }
}

bool advise_foreign(Adviser& adviser) {
    const Stretch where = find_foreign(adviser);
    const ForeignCharacter found = foreign_character(adviser.site.of(where));
    if (found.code == 0) return false;
    const std::string name = with_article(found.name) + " (" + number_of(found.code) + ")";
    if (found.code == 0xFEFF) {
        adviser.help("the file holds " + name + ", which cannot be seen; save it as UTF-8 without one");
    } else if (found.is_blank) {
        const char* const look = found.instead == " " ? "told from a blank" : "seen";
        adviser.help("here stands " + name + ", which cannot be " + look + "; " + what_to_do(found));
    } else {
        adviser.help("`" + std::string(adviser.site.of(where)) + "` is " + name + "; " + what_to_do(found));
    }
    replace_all(adviser, where.begin);
    return true;
}

// Texts of two bytes a character have a NUL beside each ASCII character.
bool advise_utf16(Adviser& adviser) {
    const std::string_view start = adviser.site.text.substr(0, 2);
    const bool has_mark = start == "\xFF\xFE" || start == "\xFE\xFF";
    if (!has_mark && adviser.site.text.substr(0, 64).find('\0') == std::string_view::npos) return false;
    if (has_mark) adviser.point_at({0, 2});
    return adviser.help(
        has_mark ? "the file is UTF-16, with two bytes a character; save it as UTF-8"
                 : "the file holds bytes of 0: it is no text, or UTF-16; a score is a text in UTF-8");
}

// All others: where reading stopped, or at the end of the word there.
bool advise_letter(Adviser& adviser) {
    for (const std::size_t at : {adviser.site.at, adviser.mark.end}) {
        const Letter letter = letter_beyond_ascii(adviser.site.text.substr(at, 4));
        if (letter.code == 0 || !adviser.is_error()) continue;
        adviser.point_at({at, at + letter.size});
        return adviser.help("this is " + number_of(letter.code) +
                            " and not ASCII; only comments and `>` lines may hold it");
    }
    return false;
}

constexpr AdviceRow ROWS[] = {{"", advise_foreign}, {"E22", advise_utf16}, {"", advise_letter}};

}  // namespace

AdviceTable character_advice() { return ROWS; }

}  // namespace vorn::kit
