#include "web/vorn-wasm/engine/json_text.h"

#include <cmath>

// Of a text only quotes, backslashes and control characters need another form.

namespace vorn::web {

JsonText& JsonText::number(double value) {
    return raw(std::isfinite(value) ? kit::scientific_text(value) : "null");
}

JsonText& JsonText::texts(const std::vector<std::string>& texts) {
    open('[');
    for (const std::string& one : texts) text(one);
    return close(']');
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
