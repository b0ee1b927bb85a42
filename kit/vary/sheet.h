#pragma once

#include <string>
#include <vector>

#include "kit/vary/record.h"

namespace vorn::kit {

// The files of a variant in its folder.
inline constexpr char SCORE_FILE[] = "score.sco";
inline constexpr char PICTURE_FILE[] = "picture.svg";
inline constexpr char SOUND_FILE[] = "sound.flac";

struct Sheet {
    std::string title;         // the score's name
    std::string varied;        // "seed", or the name of the constant or macro
    std::string keep_command;  // up to the numbers: "vornkit vary piece.vorn --keep "
    std::vector<VariantRecord> variants;
};

// A page that shows all variants, beside the folders variants/<number> with their
// pictures and sounds. It needs nothing else, asks no other host, and is read by
// those who do not see it or use no mouse.
[[nodiscard]] std::string sheet_page(const Sheet& sheet);

}  // namespace vorn::kit
