#pragma once

// Character classes of the "C" locale, fixed so that a score reads the same
// on every platform. Bytes above 127 belong to no class.

namespace vorn {

// Blank, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool is_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

constexpr char to_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool is_letter(char c) { return to_lower(c) >= 'a' && to_lower(c) <= 'z'; }

// A character of a macro or constant name behind its first letter.
constexpr bool is_name_char(char c) { return is_letter(c) || is_digit(c) || c == '_'; }

}  // namespace vorn
