#include "kit/language/word_form.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "kit/language/words.h"

// As text a word stands in its form, which shows more than its name:
//
//     Generators in a statement
//       ra(time weight range ...)  Random values.

namespace vorn::kit {

namespace {

constexpr std::size_t WIDEST_FORM = 32;  // a longer one has a line of its own
constexpr int JSON_INDENT = 2;
constexpr int JSON_VERSION = 1;  // raised when what stands in the data changes its meaning

// A word that its form does not begin with stands before it.
std::string shown_form(const Word& word) {
    const bool begins = word.signature.compare(0, word.word.size(), word.word) == 0;
    return begins ? word.signature : word.word + "  as in " + word.signature;
}

std::size_t widest_form(const std::vector<Word>& words) {
    std::size_t width = 0;
    for (const Word& word : words) {
        const std::size_t size = shown_form(word).size();
        if (size <= WIDEST_FORM) width = std::max(width, size);
    }
    return width;
}

std::string word_line(const Word& word, std::size_t width) {
    const std::string form = shown_form(word);
    const std::string gap =
        form.size() > width ? "\n" + std::string(width + 4, ' ') : std::string(width - form.size() + 2, ' ');
    return "  " + form + gap + word.text + "\n";
}

nlohmann::ordered_json word_json(const Word& word) {
    nlohmann::ordered_json json;
    json["word"] = word.word;
    json["kind"] = kind_name(word.kind);
    json["signature"] = word.signature;
    json["text"] = word.text;
    json["example"] = word.example;
    json["any_case"] = word.any_case;
    if (!word.digits.empty()) json["digits"] = word.digits;
    return json;
}

}  // namespace

std::string words_text(const std::vector<Word>& words) {
    const std::size_t width = widest_form(words);
    std::string text;
    const Word* before = nullptr;
    for (const Word& word : words) {
        if (before == nullptr || before->kind != word.kind) {
            if (before != nullptr) text += "\n";
            text += std::string(kind_title(word.kind)) + "\n";
        }
        text += word_line(word, width);
        before = &word;
    }
    return text;
}

std::string words_json(const std::vector<Word>& words) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Word& word : words) list.push_back(word_json(word));
    const nlohmann::ordered_json json = {{"version", JSON_VERSION}, {"words", list}};
    return json.dump(JSON_INDENT) + "\n";
}

}  // namespace vorn::kit
