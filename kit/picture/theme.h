#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Type, space and colour of pictures: the one place where they are decided.

namespace vorn::kit {

enum class Theme { AUTOMATIC, LIGHT, DARK };  // automatic: as the reader's system has it

// Sizes in pixels, the unit of a picture.
constexpr double TITLE_SIZE = 22;
constexpr double HEADING_SIZE = 14;
constexpr double TEXT_SIZE = 12;
constexpr double LABEL_SIZE = 11;
constexpr double BOLD_WIDTH = 1.12;  // of titles and headings, of the usual letters' width
constexpr double SPACE = 8;          // every distance is made of it
constexpr double MARGIN = 3 * SPACE;

constexpr int COLOR_COUNT = 5;  // instruments take them in turn
constexpr int SHADE_COUNT = 5;  // of one colour, from faint to full

// 0xrrggbb each.
struct Tones {
    std::uint32_t paper;
    std::uint32_t ink;
    std::uint32_t muted;
    std::uint32_t grid;
    std::uint32_t band;                      // of the keys that are not natural, behind the grid
    std::uint32_t instruments[COLOR_COUNT];  // the fullest shade of each
    std::uint32_t faint[COLOR_COUNT];        // the lowest
};

// The colours of instruments follow the palette of Okabe and Ito, "Color Universal
// Design" (2008), which the colour-blind tell apart: on each paper five of it, in two
// tones. The fainter one, too, stands out from the paper and from the others. On light
// paper it is near the palette and the fuller one darker, on dark paper the palette is
// the fuller.
extern const Tones LIGHT_TONES;
extern const Tones DARK_TONES;

// A shade of a colour, mixed of its two tones rather than transparent, so that lines
// behind it do not show.
[[nodiscard]] std::uint32_t shade_color(const Tones& tones, int color, int shade);

// The rules of a picture, all below the class "vorn".
[[nodiscard]] std::string picture_rules(Theme theme);

// The rules of a page that holds one.
[[nodiscard]] std::string page_rules(Theme theme);

// Pixels that a text is wide at most, near enough to keep labels apart.
[[nodiscard]] double text_width(std::string_view text, double size);

// The text, or so much of its beginning as the width takes, with three dots.
[[nodiscard]] std::string cut_to_width(const std::string& text, double size, double width);

}  // namespace vorn::kit
