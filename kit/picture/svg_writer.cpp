#include "kit/picture/svg_writer.h"

#include <charconv>
#include <cmath>
#include <cstdint>

// Bytes are read as UTF-8 one character at a time; what is no character costs one
// byte, so that the text behind it is kept.

namespace vorn::kit {

namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";  // U+FFFD
constexpr double LARGEST_COORDINATE = 1e7;

struct Character {
    std::uint32_t code = 0;
    std::size_t length = 1;
    bool is_well = false;
};

std::size_t length_by_first(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

Character read_character(std::string_view text) {
    constexpr std::uint32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = length_by_first(first);
    if (length == 0 || length > text.size()) return {};
    std::uint32_t code = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0) != 0x80) return {};
        code = code << 6 | (byte & 0x3FU);
    }
    if (code < SMALLEST[length] || code > 0x10FFFF) return {};
    return {code, length, true};
}

bool may_stand(std::uint32_t code) {
    const bool is_control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
    return !is_control && !is_surrogate && code != 0xFFFE && code != 0xFFFF;
}

std::string_view entity(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return {};
    }
}

}  // namespace

std::string escape_markup(std::string_view text) {
    std::string escaped;
    while (!text.empty()) {
        const Character character = read_character(text);
        const std::string_view name = entity(text[0]);
        if (!character.is_well || !may_stand(character.code)) {
            escaped += REPLACEMENT;
        } else {
            escaped += name.empty() ? text.substr(0, character.length) : name;
        }
        text.remove_prefix(character.length);
    }
    return escaped;
}

void append_coordinate(std::string& bytes, double value) {
    if (!(std::fabs(value) < LARGEST_COORDINATE)) value = 0;
    const double hundredths = std::round(value * 100);
    char digits[32];
    const auto whole = static_cast<std::int64_t>(hundredths);
    if (whole < 0) bytes += '-';
    const std::int64_t size = whole < 0 ? -whole : whole;
    bytes.append(digits, std::to_chars(digits, digits + sizeof digits, size / 100).ptr);
    const std::int64_t rest = size % 100;
    if (rest == 0) return;
    bytes += '.';
    bytes += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) bytes += static_cast<char>('0' + rest % 10);
}

void SvgWriter::coordinate(std::string_view name, double value) {
    bytes_.append(" ").append(name).append("=\"");
    append_coordinate(bytes_, value);
    bytes_ += '"';
}

void SvgWriter::text(double x, double y, std::string_view classes, std::string_view text) {
    bytes_ += "<text";
    coordinate("x", x);
    coordinate("y", y);
    bytes_.append(" class=\"").append(classes).append("\">").append(escape_markup(text)).append("</text>\n");
}

void SvgWriter::rectangle(double x, double y, double width, double height, std::string_view classes) {
    bytes_ += "<rect";
    coordinate("x", x);
    coordinate("y", y);
    coordinate("width", width);
    coordinate("height", height);
    bytes_.append(" class=\"").append(classes).append("\"/>\n");
}

void SvgWriter::line(double x1, double y1, double x2, double y2, std::string_view classes) {
    bytes_ += "<line";
    coordinate("x1", x1);
    coordinate("y1", y1);
    coordinate("x2", x2);
    coordinate("y2", y2);
    bytes_.append(" class=\"").append(classes).append("\"/>\n");
}

void SvgWriter::path(std::string_view classes, std::string_view attributes, std::string_view path) {
    bytes_.append("<path class=\"").append(classes).append("\"").append(attributes);
    bytes_.append(" d=\"").append(path).append("\"/>\n");
}

void SvgWriter::open_group(std::string_view classes, std::string_view label) {
    bytes_.append("<g class=\"").append(classes).append("\" aria-label=\"");
    bytes_.append(escape_markup(label)).append("\">\n");
}

}  // namespace vorn::kit
