#include "kit/language/word_form.h"

#include <nlohmann/json.hpp>

#include "kit/language/words.h"

// One object a word; what a word has not is left out.

namespace vorn::kit {

namespace {

constexpr int JSON_INDENT = 2;
constexpr int JSON_VERSION = 1;  // raised when what stands in the data changes its meaning

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

std::string words_json(const std::vector<Word>& words) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Word& word : words) list.push_back(word_json(word));
    const nlohmann::ordered_json json = {{"version", JSON_VERSION}, {"words", list}};
    return json.dump(JSON_INDENT) + "\n";
}

}  // namespace vorn::kit
