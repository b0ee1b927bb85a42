#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Characters that editors, word processors and web pages put in the place of ASCII.

namespace vorn::kit {

struct ForeignCharacter {
    std::uint32_t code = 0;  // of Unicode; 0: none
    std::string name;        // "en dash"
    std::string instead;     // what to write; empty: nothing
    bool is_blank = false;   // it looks like a blank or like nothing at all
    bool is_certain = true;  // `instead` is what was meant, for certain
    std::size_t size = 1;    // bytes
};

struct Letter {
    std::uint32_t code = 0;  // of Unicode; 0: ASCII
    std::size_t size = 1;    // bytes
};

// With which the text begins. A byte that is no UTF-8 is read as Latin-1.
[[nodiscard]] Letter letter_beyond_ascii(std::string_view text);

// The foreign character with which the text begins; code 0 for all others, letters of
// other alphabets among them.
[[nodiscard]] ForeignCharacter foreign_character(std::string_view text);

}  // namespace vorn::kit
