#include "kit/diagnose/explanation_form.h"
#include "kit/language/word_form.h"
#include "kit/language/words.h"
#include "web/vorn-wasm/engine/exports.h"

// What the whole module offers beside the small one: texts for people.

namespace vorn::web {

VORN_EXPORT(vorn_explain)(const char* code, std::size_t size)->void {
    const std::string full = kit::code_in_full({code, size});
    const auto explanation = kit::find_explanation(full);
    answer =
        kit::explanations_json(explanation ? std::vector{*explanation} : std::vector<kit::Explanation>());
}

VORN_EXPORT(vorn_words)()->void { answer = kit::words_json(kit::all_words()); }
VORN_EXPORT(vorn_explanations)()->void { answer = kit::explanations_json(kit::all_explanations()); }

}  // namespace vorn::web
