#pragma once

#include "kit/language/word.h"

// The word list as text and as data.

namespace vorn::kit {

// A line a word under the title of its kind; the words of a kind follow each other.
[[nodiscard]] std::string words_text(const std::vector<Word>& words);

// As kit/schema/words.schema.json describes it.
[[nodiscard]] std::string words_json(const std::vector<Word>& words);

}  // namespace vorn::kit
