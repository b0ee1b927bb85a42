#include "kit/vary/record.h"

#include <nlohmann/json.hpp>

// A file that was changed by hand, or is of an older make, is no record: its
// variant is then made again.

namespace vorn::kit {

namespace {

using nlohmann::json;

constexpr const char* STATE_NAMES[] = {"well", "refused", "silent"};

std::optional<VariantState> state_named(const std::string& name) {
    for (const VariantState state : {VariantState::WELL, VariantState::REFUSED, VariantState::SILENT}) {
        if (name == STATE_NAMES[static_cast<int>(state)]) return state;
    }
    return std::nullopt;
}

std::string text_member(const json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

double number_member(const json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_number() ? found->get<double>() : 0;
}

}  // namespace

std::string record_text(const VariantRecord& record) {
    nlohmann::ordered_json object;
    object["number"] = record.number;
    object["value"] = record.value;
    object["state"] = STATE_NAMES[static_cast<int>(record.state)];
    if (!record.message.empty()) object["message"] = record.message;
    object["events"] = record.events;
    object["seconds"] = record.seconds;
    object["low"] = record.low;
    object["high"] = record.high;
    object["sound"] = record.has_sound;
    object["score"] = record.score;
    object["key"] = record.key;
    return object.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::optional<VariantRecord> read_record(const std::string& text) {
    const json object = json::parse(text, nullptr, false);
    if (!object.is_object()) return std::nullopt;
    const std::optional<VariantState> state = state_named(text_member(object, "state"));
    if (!state || number_member(object, "number") < 0) return std::nullopt;
    VariantRecord record;
    record.number = static_cast<unsigned>(number_member(object, "number"));
    record.value = text_member(object, "value");
    record.key = text_member(object, "key");
    record.state = *state;
    record.message = text_member(object, "message");
    record.score = text_member(object, "score");
    record.events = static_cast<std::size_t>(number_member(object, "events"));
    record.seconds = number_member(object, "seconds");
    record.low = number_member(object, "low");
    record.high = number_member(object, "high");
    const auto sound = object.find("sound");
    record.has_sound = sound != object.end() && sound->is_boolean() && sound->get<bool>();
    return record;
}

}  // namespace vorn::kit
