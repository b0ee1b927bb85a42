#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vorn::kit {

enum class VariantState {
    WELL,     // all of it is there
    REFUSED,  // the score has a mistake with this value
    SILENT,   // no sound could be rendered
};

// What is known of a variant; it is written last, when everything else of it is there.
struct VariantRecord {
    unsigned number = 0;
    std::string value;  // in the score
    std::string key;    // the fingerprint of all that it was made from
    VariantState state = VariantState::WELL;
    std::string message;  // why it is not well
    std::string score;    // the fingerprint of the Csound score
    std::size_t events = 0;
    double seconds = 0;
    double low = 0;  // keys at the edges of its picture
    double high = 0;
    bool has_sound = false;
};

[[nodiscard]] std::string record_text(const VariantRecord& record);

// Nothing when the text is no record.
[[nodiscard]] std::optional<VariantRecord> read_record(const std::string& text);

}  // namespace vorn::kit
