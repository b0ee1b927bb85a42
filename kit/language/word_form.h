#pragma once

#include "kit/language/word.h"

// The word list as data.

namespace vorn::kit {

// As kit/schema/words.schema.json describes it.
[[nodiscard]] std::string words_json(const std::vector<Word>& words);

}  // namespace vorn::kit
