#include "kit/diagnose/explanation_form.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "kit/diagnose/plain_words.h"

// A score stands indented among the sentences, so that it can be told from them
// and copied.

namespace vorn::kit {

namespace {

constexpr std::size_t WIDTH = 78;
constexpr int JSON_INDENT = 2;
constexpr int JSON_VERSION = 1;  // raised when what stands in the data changes its meaning

std::string paragraph(std::string_view text) { return "\n" + wrapped(text, WIDTH); }

std::string shown_score(std::string_view score) { return "\n" + indented(score, "    "); }

nlohmann::ordered_json explanation_json(const Explanation& explanation) {
    nlohmann::ordered_json json;
    json["code"] = explanation.code;
    json["title"] = title_of(explanation);
    json["cause"] = explanation.cause;
    if (!explanation.cure.empty()) json["cure"] = explanation.cure;
    if (!explanation.score.empty()) json["score"] = explanation.score;
    if (!explanation.cured.empty()) json["cured"] = explanation.cured;
    if (!explanation.unprovoked.empty()) json["unprovoked"] = explanation.unprovoked;
    return json;
}

}  // namespace

std::string explanation_text(const Explanation& explanation) {
    std::string text = std::string(explanation.code) + ": " + title_of(explanation) + "\n";
    text += paragraph(explanation.cause);
    if (!explanation.score.empty()) text += paragraph("For example:") + shown_score(explanation.score);
    if (!explanation.unprovoked.empty()) text += paragraph(explanation.unprovoked);
    if (!explanation.cure.empty()) text += paragraph(explanation.cure);
    if (!explanation.cured.empty()) text += shown_score(explanation.cured);
    return text;
}

std::string list_text(const std::vector<Explanation>& explanations) {
    std::size_t width = 0;
    for (const Explanation& explanation : explanations) width = std::max(width, explanation.code.size());
    std::string text;
    for (const Explanation& explanation : explanations) {
        const std::size_t gap = width - explanation.code.size() + 2;
        text += std::string(explanation.code) + std::string(gap, ' ') + title_of(explanation) + "\n";
    }
    return text;
}

std::string explanations_json(const std::vector<Explanation>& explanations) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Explanation& explanation : explanations) list.push_back(explanation_json(explanation));
    const nlohmann::ordered_json json = {{"version", JSON_VERSION}, {"explanations", list}};
    return json.dump(JSON_INDENT) + "\n";
}

}  // namespace vorn::kit
