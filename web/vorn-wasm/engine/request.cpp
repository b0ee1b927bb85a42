#include "web/vorn-wasm/engine/request.h"

#include <algorithm>
#include <nlohmann/json.hpp>

// What is left out keeps its default. The caller is the package's own code, which has
// checked what its users gave: every text is of the form that is expected here.

namespace vorn::web {

namespace {

using Json = nlohmann::ordered_json;

kit::Theme theme_called(const std::string& name) {
    if (name == "light") return kit::Theme::LIGHT;
    return name == "dark" ? kit::Theme::DARK : kit::Theme::AUTOMATIC;
}

kit::PictureOptions picture_options(const Json& json, const kit::WantedRoles& roles) {
    kit::PictureOptions options;
    options.view.roles = roles;
    options.view.from = json.value("from", options.view.from);
    options.view.to = json.value("to", options.view.to);
    options.title = json.value("title", std::string());
    options.width = std::clamp(json.value("width", options.width), kit::NARROWEST, kit::WIDEST);
    options.theme = theme_called(json.value("theme", std::string()));
    return options;
}

}  // namespace

bool Request::wants(std::string_view output) const {
    return std::find(outputs.begin(), outputs.end(), output) != outputs.end();
}

Request read_request(std::string_view text) {
    using Texts = std::vector<std::string>;
    const Json json = Json::parse(text, nullptr, false);
    Request request;
    request.arguments = json.value("arguments", Texts());
    request.midi_arguments = json.value("midiArguments", Texts());
    request.outputs = json.value("outputs", Texts());
    if (json.contains("seed")) request.seed = json["seed"].get<unsigned>();
    request.run.relative = json.value("relative", false);
    request.run.keep_events = json.value("events", true);
    request.lint.ignored = json.value("ignore", Texts());
    request.roles = {json.value("pitch", 0), json.value("level", 0)};
    request.events.rests = json.value("rests", false);
    request.picture = picture_options(json.value("picture", Json::object()), request.roles);
    request.title = json.value("title", std::string());
    return request;
}

}  // namespace vorn::web
