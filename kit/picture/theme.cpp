#include "kit/picture/theme.h"

#include <cmath>

// Classes name what a thing is, tones how that looks on light and on dark paper:
//
//     .vorn .ink      text that is read first       .vorn .c2   third colour of instruments
//     .vorn .muted    text that is looked up        .vorn .s4   fullest of the shades
//
// Every rule that depends on the paper is written by tone_rules, for one tone or for
// both, the dark ones then below a query of what the reader prefers.

namespace vorn::kit {

const Tones LIGHT_TONES = {0xffffff,
                           0x1a1a1a,
                           0x5c5f66,
                           0xdcdfe4,
                           0xf2f3f6,
                           {0x0053b1, 0x9a4300, 0x006138, 0x853f73, 0x000000},
                           {0x1b92e2, 0xf06700, 0x129e68, 0xcf76b5, 0x8c8c8c}};
const Tones DARK_TONES = {0x14161a,
                          0xf0f1f3,
                          0xa3a8b0,
                          0x33373e,
                          0x1e2127,
                          {0x56b4e9, 0xe69f00, 0x009e73, 0xcc79a7, 0xf0e442},
                          {0x4181a7, 0xa37308, 0x067257, 0x91597a, 0xaaa235}};

namespace {

constexpr const char* FAMILY = "\"Helvetica Neue\",Helvetica,Arial,\"DejaVu Sans\",sans-serif";
constexpr const char* WHEN_DARK = "@media (prefers-color-scheme:dark){";
constexpr unsigned char FIRST_OF_WIDE = 0xE1;  // byte that begins U+1000 and above

// Widths as parts of the size, rounded up from DejaVu Sans, which is the widest of
// the family above. Whatever is in no row is as wide as most letters.
struct WidthClass {
    std::string_view characters;
    double width;
};
constexpr WidthClass WIDTHS[] = {
    {" ijlI|.,:;'!()[]/-frt", 0.37},
    {"ABCDEFGHJKLNOPQRSTUVXYZ", 0.7},
    {"mMwW@%&", 0.95},
};
constexpr double USUAL_WIDTH = 0.62;

std::string pixels(double size) { return std::to_string(static_cast<int>(size)) + "px"; }

std::string rule(const std::string& selector, const std::string& property, const std::string& value) {
    return ".vorn " + selector + "{" + property + ":" + value + "}";
}

// "#rrggbb"
std::string hex(std::uint32_t color) {
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += "0123456789abcdef"[color >> shift & 0xFU];
    return text;
}

std::string tone_rules(const Tones& tones) {
    std::string rules = rule(".paper", "fill", hex(tones.paper)) + rule(".ink", "fill", hex(tones.ink)) +
                        rule(".muted", "fill", hex(tones.muted)) + rule(".grid", "stroke", hex(tones.grid)) +
                        rule(".band", "stroke", hex(tones.band)) +
                        rule(".border", "stroke", hex(tones.muted)) + rule(".odd", "stroke", hex(tones.ink));
    for (int color = 0; color < COLOR_COUNT; ++color) {
        for (int shade = 0; shade < SHADE_COUNT; ++shade) {
            const std::string selector = ".c" + std::to_string(color) + ".s" + std::to_string(shade);
            rules += rule(selector, "stroke", hex(shade_color(tones, color, shade)));
        }
    }
    return rules;
}

std::string shape_rules() {
    return ".vorn text{font-family:" + std::string(FAMILY) + "}" + rule("path", "fill", "none") +
           rule(".title", "font-size", pixels(TITLE_SIZE) + ";font-weight:600") +
           rule(".heading", "font-size", pixels(HEADING_SIZE) + ";font-weight:600") +
           rule(".text", "font-size", pixels(TEXT_SIZE)) + rule(".label", "font-size", pixels(LABEL_SIZE)) +
           rule(".end", "text-anchor", "end") + rule(".middle", "text-anchor", "middle");
}

// The rules that depend on the paper, as the theme asks for them.
template <typename Rules>
std::string themed(Theme theme, Rules rules) {
    if (theme == Theme::DARK) return rules(DARK_TONES);
    if (theme == Theme::LIGHT) return rules(LIGHT_TONES);
    return rules(LIGHT_TONES) + WHEN_DARK + rules(DARK_TONES) + "}";
}

std::string page_tone_rules(const Tones& tones) {
    return std::string("body{background:") + hex(tones.paper) + ";color:" + hex(tones.ink) + "}" +
           "td,th{border-bottom:1px solid " + hex(tones.grid) + "}" + "caption,th{color:" + hex(tones.muted) +
           "}";
}

bool continues_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

double character_width(char first_byte) {
    if (static_cast<unsigned char>(first_byte) >= FIRST_OF_WIDE) return 1;
    for (const WidthClass& one : WIDTHS) {
        if (one.characters.find(first_byte) != std::string_view::npos) return one.width;
    }
    return USUAL_WIDTH;
}

}  // namespace

std::uint32_t shade_color(const Tones& tones, int color, int shade) {
    const double share = static_cast<double>(shade) / (SHADE_COUNT - 1);
    std::uint32_t mixed = 0;
    for (int shift = 16; shift >= 0; shift -= 8) {
        const double faint = tones.faint[color] >> shift & 0xFFU;
        const double full = tones.instruments[color] >> shift & 0xFFU;
        const double part = std::round(faint + (full - faint) * share);
        mixed |= static_cast<std::uint32_t>(part) << shift;
    }
    return mixed;
}

std::string picture_rules(Theme theme) { return shape_rules() + themed(theme, tone_rules); }

std::string page_rules(Theme theme) {
    return "body{margin:0;font:" + pixels(HEADING_SIZE) + "/1.5 " + FAMILY + "}" +
           "main{max-width:1400px;margin:0 auto;padding:" + pixels(MARGIN) + "}" +
           "svg{max-width:100%;height:auto}.table{overflow-x:auto}" +
           "table{border-collapse:collapse;font-size:" + pixels(TEXT_SIZE) +
           ";font-variant-numeric:tabular-nums}" + "caption{text-align:left;padding:" + pixels(SPACE) +
           " 0}" + "td,th{padding:4px 12px 4px 0;text-align:right;font-weight:400;white-space:nowrap}" +
           themed(theme, page_tone_rules);
}

double text_width(std::string_view text, double size) {
    double width = 0;
    for (const char byte : text) {
        if (!continues_character(byte)) width += character_width(byte) * size;
    }
    return width;
}

std::string cut_to_width(const std::string& text, double size, double width) {
    if (text_width(text, size) <= width) return text;
    double used = size;
    std::size_t kept = 0;
    while (kept < text.size()) {
        if (!continues_character(text[kept])) used += character_width(text[kept]) * size;
        if (used > width) break;
        ++kept;
    }
    while (kept > 0 && kept < text.size() && continues_character(text[kept])) --kept;
    return text.substr(0, kept) + "\xE2\x80\xA6";
}

}  // namespace vorn::kit
