#include "web/vorn-wasm/engine/json_text.h"

#include <cmath>

// Of a text only quotes, backslashes and control characters need another form.

namespace vorn::web {

JsonText& JsonText::open(char bracket) {
    separate();
    bytes_ += bracket;
    is_first_ = true;
    return *this;
}

JsonText& JsonText::close(char bracket) {
    bytes_ += bracket;
    is_first_ = false;
    return *this;
}

JsonText& JsonText::key(std::string_view name) {
    text(name);
    bytes_ += ':';
    is_first_ = true;  // no comma before its value
    return *this;
}

JsonText& JsonText::raw(std::string_view json) {
    separate();
    bytes_ += json;
    return *this;
}

JsonText& JsonText::text(std::string_view text) {
    separate();
    quote(text);
    return *this;
}

JsonText& JsonText::number(double value) {
    return raw(std::isfinite(value) ? kit::scientific_text(value) : "null");
}

JsonText& JsonText::texts(const std::vector<std::string>& texts) {
    open('[');
    for (const std::string& one : texts) text(one);
    return close(']');
}

void JsonText::separate() {
    if (!is_first_) bytes_ += ',';
    is_first_ = false;
}

void JsonText::quote(std::string_view text) {
    constexpr const char* DIGITS = "0123456789abcdef";
    bytes_ += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20) {
            bytes_ += "\\u00";
            bytes_ += DIGITS[byte / 16];
            bytes_ += DIGITS[byte % 16];
        } else {
            if (c == '"' || c == '\\') bytes_ += '\\';
            bytes_ += c;
        }
    }
    bytes_ += '"';
}

}  // namespace vorn::web
