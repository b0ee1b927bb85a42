#include "kit/diagnose/words.h"

#include <algorithm>
#include <cstdlib>

#include "input/characters.h"
#include "kit/diagnose/edit_distance.h"

// Short words are near only by one letter, longer ones by a third of theirs:
//
//     "rn" may be "ra" or "rw", "MELODIE" may be "MELODY"

namespace vorn::kit {

namespace {

constexpr std::size_t LONGEST_WORD = 64;  // longer ones are no misspelt names

struct OtherName {
    std::string_view word;
    std::string_view command;
};

constexpr OtherName OTHER_NAMES[] = {
    {"bpm", "te"},    {"tempo", "te"},  {"seed", "rs"},   {"srand", "rs"},  {"random", "ra"},
    {"rand", "ra"},   {"rnd", "ra"},    {"walk", "rw"},   {"brown", "rw"},  {"line", "mo"},
    {"ramp", "mo"},   {"move", "mo"},   {"linseg", "mo"}, {"choose", "se"}, {"choice", "se"},
    {"pick", "se"},   {"set", "se"},    {"list", "se"},   {"hold", "ho"},   {"const", "ho"},
    {"expr", "ex"},   {"eval", "ex"},   {"morph", "ms"},  {"scale", "pf"},  {"factor", "pf"},
    {"note", "no"},   {"notes", "no"},  {"int", "in"},    {"real", "re"},   {"float", "re"},
    {"rhythm", "rh"}, {"pch", "op"},    {"cps", "hz"},    {"freq", "hz"},   {"oct", "od"},
    {"chord", "s2"},  {"chords", "s2"}, {"vary", "dv"},   {"jitter", "rd"}, {"humanize", "rd"},
};

std::string lower(std::string_view word) {
    std::string text(word);
    std::transform(text.begin(), text.end(), text.begin(), to_lower);
    return text;
}

std::size_t near_enough(std::size_t length) { return length <= 3 ? 1 : length / 3 + 1; }

}  // namespace

std::vector<std::string> nearest(std::string_view word, const std::vector<std::string>& names) {
    std::size_t best = near_enough(word.size());
    std::vector<std::string> found;
    if (word.size() > LONGEST_WORD) return found;
    for (const std::string& name : names) {
        const std::size_t distance = edit_distance(lower(word), lower(name));
        if (distance > best || distance >= std::max(word.size(), name.size())) continue;
        if (distance < best) found.clear();
        best = distance;
        if (std::find(found.begin(), found.end(), name) == found.end()) found.push_back(name);
    }
    return found;
}

std::vector<std::string> two_letter_names(std::string_view list) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at + 1 < list.size(); at += 2) names.emplace_back(list.substr(at, 2));
    return names;
}

std::string_view command_called(std::string_view word) {
    const std::string name = lower(word);
    for (const OtherName& other : OTHER_NAMES) {
        if (other.word == name) return other.command;
    }
    return {};
}

std::optional<double> number_in(std::string_view word) {
    const bool is_plain =
        !word.empty() && word.find_first_not_of("0123456789.eE+-") == std::string_view::npos;
    if (!is_plain || word.size() > LONGEST_WORD) return std::nullopt;
    const std::string text(word);
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size()) return std::nullopt;
    return value;
}

std::string either(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t at = 0; at < names.size(); ++at) {
        if (at > 0) text += at + 1 == names.size() ? " or " : ", ";
        text += "`" + names[at] + "`";
    }
    return text;
}

}  // namespace vorn::kit
