#include "kit/picture/page.h"

#include "kit/picture/picture.h"
#include "kit/picture/svg_writer.h"

// The table holds what the picture shows by place: where each block stands in the
// score and in time.

namespace vorn::kit {

namespace {

constexpr const char* COLUMNS[] = {"block",  "instrument", "from beat", "begins at", "ends at",
                                   "events", "rests",      "pitch",     "level",     "p-fields"};

std::string cell(const std::string& text) { return "<td>" + escape_markup(text) + "</td>"; }

std::string field_name(int pfield) { return pfield == 0 ? "none" : "P" + std::to_string(pfield); }

std::string row(const BlockView& block) {
    const BlockRecord& record = *block.record;
    return "<tr><th scope=\"row\">" + escape_markup(block.place) + "</th>" +
           cell(std::to_string(record.instrument)) + cell(short_number(double{record.start_beat})) +
           cell(short_number(block.begin) + " s") + cell(short_number(block.end) + " s") +
           cell(std::to_string(block.events)) + cell(std::to_string(block.rests)) +
           cell(field_name(block.pitch.pfield)) + cell(field_name(block.level.pfield)) +
           cell(std::to_string(record.pfields)) + "</tr>\n";
}

std::string table(const ScoreView& view) {
    std::string text =
        "<div class=\"table\" tabindex=\"0\">\n<table>\n<caption>Blocks</caption>\n<thead><tr>";
    for (const char* const column : COLUMNS) {
        text += "<th scope=\"col\">" + std::string(column) + "</th>";
    }
    text += "</tr></thead>\n<tbody>\n";
    for (const BlockView& block : view.blocks) text += row(block);
    return text + "</tbody>\n</table>\n</div>\n";
}

}  // namespace

std::string picture_page(const ScoreRun& run, const PictureOptions& options) {
    std::string page =
        "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    page += "<title>" + escape_markup(options.title) + "</title>\n";
    page += "<style>" + page_rules(options.theme) + "</style>\n</head>\n<body>\n<main>\n";
    page += picture_element(run, options);
    page += table(view_score(run, options.view));
    return page + "</main>\n</body>\n</html>\n";
}

}  // namespace vorn::kit
