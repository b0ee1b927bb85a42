#include "kit/diagnose/explanation.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <tuple>

#include "input/message_table.h"
#include "kit/diagnose/edit_distance.h"
#include "kit/diagnose/explanation_tables.h"
#include "kit/diagnose/plain_words.h"

// A code is a letter for its kind and then a number or a word. The words of a
// number are asked of the engine; one for which it has words and no table a row
// is reserved.

namespace vorn::kit {

namespace {

constexpr int NO_NUMBER = 0;
constexpr std::size_t MAX_NEAREST = 3;
constexpr std::size_t MAX_NUMBERS_APART = 10;
constexpr std::size_t MAX_LETTERS_APART = 3;
constexpr std::size_t FAR_APART = 1000;
constexpr std::string_view KINDS = "EWL";  // in the order in which they are listed

auto tables() {
    return std::array{block_explanations(),    statement_explanations(), generator_explanations(),
                      equation_explanations(), tempo_explanations(),     macro_explanations(),
                      constant_explanations(), condition_explanations(), unnumbered_explanations(),
                      warning_explanations(),  lint_explanations()};
}

// "E27" -> 27; NO_NUMBER for "Einclude".
int number_of(std::string_view code) {
    int number = NO_NUMBER;
    if (code.empty()) return number;
    const char* const end = code.data() + code.size();
    const auto [behind, failure] = std::from_chars(code.data() + 1, end, number);
    return failure == std::errc() && behind == end && number > 0 ? number : NO_NUMBER;
}

// The engine's words for a number; empty when it has none.
std::string_view words_of(std::string_view code) {
    const int number = number_of(code);
    if (number == NO_NUMBER || (code[0] != 'E' && code[0] != 'W')) return {};
    const auto text_of = code[0] == 'E' ? error_text : warning_text;
    const char* const unspecified = text_of(NO_NUMBER);
    const char* const words = text_of(number);
    return std::strcmp(words, unspecified) == 0 ? std::string_view() : words;
}

Explanation reserved(std::string_view code) {
    return {.code = code, .cause = "Vorn keeps the words of this number, and nothing raises it.", .cure = {}};
}

// By kind, then by number, those without one last, then by letters.
auto rank(const Explanation& explanation) {
    const int number = number_of(explanation.code);
    return std::tuple(KINDS.find(explanation.code[0]), number == NO_NUMBER, number, explanation.code);
}

// How far two codes are apart, in numbers or letters; FAR_APART when they are not alike.
std::size_t distance_between(std::string_view a, std::string_view b) {
    const int one = number_of(a);
    const int other = number_of(b);
    if (one == NO_NUMBER && other == NO_NUMBER) {
        const std::size_t letters = edit_distance(a, b);
        return letters <= MAX_LETTERS_APART ? letters : FAR_APART;
    }
    if (one == NO_NUMBER || other == NO_NUMBER || a[0] != b[0]) return FAR_APART;
    const auto apart = static_cast<std::size_t>(one < other ? other - one : one - other);
    return apart <= MAX_NUMBERS_APART ? apart : FAR_APART;
}

}  // namespace

std::optional<Explanation> find_explanation(std::string_view code) {
    for (const ExplanationTable table : tables()) {
        for (const Explanation& explanation : table) {
            if (explanation.code == code) return explanation;
        }
    }
    if (!words_of(code).empty()) return reserved(code);
    return std::nullopt;
}

std::vector<Explanation> all_explanations() {
    std::vector<Explanation> all;
    for (const ExplanationTable table : tables()) all.insert(all.end(), table.begin(), table.end());
    std::sort(all.begin(), all.end(),
              [](const Explanation& a, const Explanation& b) { return rank(a) < rank(b); });
    return all;
}

std::string title_of(const Explanation& explanation) {
    const std::string_view title = explanation.title;
    return on_one_line(title.empty() ? words_of(explanation.code) : title);
}

std::string code_in_full(std::string_view typed) {
    if (typed.starts_with('[') && typed.ends_with(']')) typed = typed.substr(1, typed.size() - 2);
    const bool is_number = !typed.empty() && typed.find_first_not_of("0123456789") == std::string_view::npos;
    std::string code = is_number ? "E" : "";
    for (const char c : typed) code += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    if (!code.empty() && code[0] >= 'a' && code[0] <= 'z') code[0] = static_cast<char>(code[0] - 'a' + 'A');
    return code;
}

std::vector<std::string> nearest_codes(std::string_view code) {
    std::vector<Explanation> all = all_explanations();
    std::erase_if(all, [&](const Explanation& one) { return distance_between(code, one.code) == FAR_APART; });
    std::stable_sort(all.begin(), all.end(), [&](const Explanation& a, const Explanation& b) {
        return distance_between(code, a.code) < distance_between(code, b.code);
    });
    std::vector<std::string> nearest;
    for (const Explanation& one : all) {
        if (nearest.size() < MAX_NEAREST) nearest.emplace_back(one.code);
    }
    return nearest;
}

}  // namespace vorn::kit
