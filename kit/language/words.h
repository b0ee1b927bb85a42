#pragma once

#include <string_view>

#include "kit/language/word.h"

// All words of the language, the list that editors, hovers and advice are made from.

namespace vorn::kit {

// By kind, in the order of WordKind.
[[nodiscard]] std::vector<Word> all_words();

// The words of one kind.
[[nodiscard]] std::vector<Word> words_of(WordKind kind);

// The names of two letters of one kind, as the engine has them, in alphabetical order.
[[nodiscard]] std::vector<std::string> command_names(WordKind kind);

// All words of this spelling; upper and lower case are alike where they mean the same.
[[nodiscard]] std::vector<Word> words_spelt(std::string_view spelling);

// "generator", "input-type": how a kind is called in data.
[[nodiscard]] std::string_view kind_name(WordKind kind);

// "Generators, in a statement": how a kind is called among people.
[[nodiscard]] std::string_view kind_title(WordKind kind);

// Whether the examples of a kind stand between the blocks; those of the others are statements.
[[nodiscard]] bool stands_between_blocks(WordKind kind);

}  // namespace vorn::kit
