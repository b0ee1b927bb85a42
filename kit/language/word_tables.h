#pragma once

#include <span>
#include <string_view>

#include "kit/language/further_text.h"
#include "kit/language/word.h"

// The tables that all_words is made from.

namespace vorn::kit {

// A word of two letters, whose name the engine knows by its code.
struct CommandRow {
    WordKind kind;
    int code;          // src/blocks/command_codes.h
    FurtherText form;  // what follows the name
    FurtherText text;
    FurtherText example;
    std::string_view digits = {};
};

// A word that the engine compares character by character, so that it stands in no table there.
struct WordRow {
    WordKind kind;
    std::string_view word;
    FurtherText signature;
    FurtherText text;
    FurtherText example;
    bool any_case = false;
};

[[nodiscard]] std::span<const CommandRow> command_rows();
[[nodiscard]] std::span<const WordRow> line_rows();       // what stands between the blocks or anywhere
[[nodiscard]] std::span<const WordRow> statement_rows();  // what stands among values
[[nodiscard]] std::span<const WordRow> generator_rows();  // what stands within generators

}  // namespace vorn::kit
