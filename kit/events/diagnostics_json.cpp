#include "kit/events/diagnostics_json.h"

#include <algorithm>

namespace vorn::kit {

namespace {

using Json = nlohmann::ordered_json;

const char* level_name(Level level) {
    switch (level) {
        case Level::ERROR:
            return "error";
        case Level::WARNING:
            return "warning";
        case Level::LINT:
            return "lint";
    }
    return "";
}

// Characters of UTF-8: the bytes 10xxxxxx continue one.
std::size_t count_characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

Json diagnostic_json(const Diagnostic& diagnostic, const SourceMap& map) {
    Json json = {{"level", level_name(diagnostic.level)},
                 {"code", diagnostic.code},
                 {"text", diagnostic.text},
                 {"file", nullptr},
                 {"line", nullptr},
                 {"column", nullptr},
                 {"advice", diagnostic.advice},
                 {"repeats", diagnostic.repeats}};
    if (diagnostic.span.file < 0) return json;
    const TextPlace place = map.text_place(diagnostic.span);
    json["file"] = map.files()[static_cast<std::size_t>(diagnostic.span.file)].name;
    json["line"] = place.line;
    json["column"] = count_characters(place.text.substr(0, place.column)) + 1;
    return json;
}

}  // namespace

Json diagnostics_json(const std::vector<Diagnostic>& diagnostics, const SourceMap& map) {
    Json json = Json::array();
    for (const Diagnostic& diagnostic : diagnostics) json.push_back(diagnostic_json(diagnostic, map));
    return json;
}

}  // namespace vorn::kit
