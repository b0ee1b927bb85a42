#include "web/vorn-wasm/engine/request.h"

#include <algorithm>
#include <cstdlib>

// Each name has a row that says where its value goes. What is left out keeps its
// default. The caller is the package's own code, which has checked what its users gave.

namespace vorn::web {

namespace {

struct Row {
    std::string_view name;
    void (*take)(Request&, const char* value);
};

double number(const char* value) { return std::strtod(value, nullptr); }
int whole(const char* value) { return std::atoi(value); }

kit::Theme theme_called(std::string_view name) {
    if (name == "light") return kit::Theme::LIGHT;
    return name == "dark" ? kit::Theme::DARK : kit::Theme::AUTOMATIC;
}

constexpr Row ROWS[] = {
    {"argument", [](Request& r, const char* value) { r.arguments.emplace_back(value); }},
    {"midiArgument", [](Request& r, const char* value) { r.midi_arguments.emplace_back(value); }},
    {"output", [](Request& r, const char* value) { r.outputs.emplace_back(value); }},
    {"ignore", [](Request& r, const char* value) { r.lint.ignored.emplace_back(value); }},
    {"seed", [](Request& r, const char* value) { r.seed = static_cast<unsigned>(whole(value)); }},
    {"relative", [](Request& r, const char* value) { r.run.relative = whole(value) != 0; }},
    {"events", [](Request& r, const char* value) { r.run.keep_events = whole(value) != 0; }},
    {"rests", [](Request& r, const char* value) { r.events.rests = whole(value) != 0; }},
    {"pitch", [](Request& r, const char* value) { r.roles.pitch = whole(value); }},
    {"level", [](Request& r, const char* value) { r.roles.level = whole(value); }},
    {"title", [](Request& r, const char* value) { r.title = value; }},
    {"pictureTitle", [](Request& r, const char* value) { r.picture.title = value; }},
    {"width", [](Request& r, const char* value) { r.picture.width = number(value); }},
    {"theme", [](Request& r, const char* value) { r.picture.theme = theme_called(value); }},
    {"from", [](Request& r, const char* value) { r.picture.view.from = number(value); }},
    {"to", [](Request& r, const char* value) { r.picture.view.to = number(value); }},
};

}  // namespace

std::vector<std::string> split(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = text.find('\0');
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return parts;
}

bool Request::wants(std::string_view output) const {
    return std::find(outputs.begin(), outputs.end(), output) != outputs.end();
}

Request read_request(std::string_view text) {
    const std::vector<std::string> parts = split(text);
    Request request;
    for (std::size_t at = 0; at + 1 < parts.size(); at += 2) {
        const auto row = std::find_if(std::begin(ROWS), std::end(ROWS),
                                      [&](const Row& one) { return one.name == parts[at]; });
        if (row != std::end(ROWS)) row->take(request, parts[at + 1].c_str());
    }
    request.picture.view.roles = request.roles;
    request.picture.width = std::clamp(request.picture.width, kit::NARROWEST, kit::WIDEST);
    return request;
}

}  // namespace vorn::web
