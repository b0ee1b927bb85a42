#include "kit/vary/sheet.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "kit/picture/svg_writer.h"
#include "kit/run/decimal_text.h"
#include "kit/vary/sheet_parts.h"

// Every picture fills its own frame; the page puts it on the part that it covers of a
// frame that all share, so that a longer variant is wider and a higher one stands higher.

namespace vorn::kit {

namespace {

// The frame that all pictures share.
struct Frame {
    double seconds = 1;
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
};

struct Counts {
    std::size_t refused = 0;
    std::size_t sounds = 0;
};

std::string percent(double part) { return decimal_text(part * 100, 2) + "%"; }

// "0:07", "2:05"
std::string minutes(double seconds) {
    const auto whole = static_cast<unsigned long>(std::lround(std::clamp(seconds, 0.0, 1e9)));
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

std::string counted(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

Frame common_frame(const Sheet& sheet) {
    Frame frame;
    frame.seconds = 0;
    for (const VariantRecord& variant : sheet.variants) {
        if (variant.state == VariantState::REFUSED) continue;
        frame.seconds = std::max(frame.seconds, variant.seconds);
        frame.low = std::min(frame.low, variant.low);
        frame.high = std::max(frame.high, variant.high);
    }
    if (!(frame.seconds > 0)) frame.seconds = 1;
    if (!(frame.low < frame.high)) frame.high = frame.low + 1;
    return frame;
}

std::string folder_of(const VariantRecord& variant) {
    return "variants/" + std::to_string(variant.number) + "/";
}

std::string picture(const VariantRecord& variant, const Frame& frame) {
    const double height = frame.high - frame.low;
    return "<span class=\"roll\"><img src=\"" + folder_of(variant) + PICTURE_FILE +
           "\" alt=\"\" loading=\"lazy\" decoding=\"async\" style=\"width:" +
           percent(variant.seconds / frame.seconds) +
           ";top:" + percent((frame.high - variant.high) / height) +
           ";height:" + percent((variant.high - variant.low) / height) + "\"><i class=\"head\"></i></span>";
}

std::string facts(const VariantRecord& variant) {
    return counted(variant.events, "event", "events") + ", " + minutes(variant.seconds);
}

// The number under which it is kept, and the value where that is another one.
std::string name_of(const VariantRecord& variant, const Sheet& sheet) {
    const std::string number = std::to_string(variant.number);
    const std::string value =
        variant.value == number ? ""
                                : "<small>" + escape_markup(sheet.varied + " " + variant.value) + "</small>";
    return "<b>" + number + "</b>" + value;
}

std::string play_button(const VariantRecord& variant) {
    if (!variant.has_sound) return {};
    const std::string number = std::to_string(variant.number);
    return "<button class=\"play\" type=\"button\" tabindex=\"-1\" data-sound=\"" + folder_of(variant) +
           SOUND_FILE + "\" aria-label=\"Play " + number + "\"></button>";
}

std::string refused_tile(const VariantRecord& variant, const Sheet& sheet) {
    return "<li class=\"tile refused\"><button class=\"mark\" type=\"button\" aria-disabled=\"true\">"
           "<span class=\"roll\"><span class=\"why\">" +
           escape_markup(variant.message) + "</span></span><span class=\"name\">" + name_of(variant, sheet) +
           "<span class=\"facts\">refused</span></span></button></li>\n";
}

std::string remark(const VariantRecord& variant, unsigned twin) {
    if (twin != 0) return "<span class=\"remark\">same as " + std::to_string(twin) + "</span>";
    if (variant.state != VariantState::SILENT) return {};
    return "<span class=\"remark\" title=\"" + escape_markup(variant.message) + "\">no sound</span>";
}

std::string tile(const VariantRecord& variant, const Sheet& sheet, const Frame& frame, unsigned twin) {
    return "<li class=\"tile\"><button class=\"mark\" type=\"button\" aria-pressed=\"false\" data-number=\"" +
           std::to_string(variant.number) + "\">" + picture(variant, frame) + "<span class=\"name\">" +
           name_of(variant, sheet) + "<span class=\"facts\">" + facts(variant) + "</span></span>" +
           remark(variant, twin) + "</button>" + play_button(variant) + "</li>\n";
}

Counts count(const Sheet& sheet) {
    Counts counts;
    for (const VariantRecord& variant : sheet.variants) {
        counts.refused += variant.state == VariantState::REFUSED ? 1 : 0;
        counts.sounds += variant.has_sound ? 1 : 0;
    }
    return counts;
}

std::string summary(const Sheet& sheet, const Counts& counts) {
    std::string text =
        counted(sheet.variants.size(), "variant", "variants") + " by " + escape_markup(sheet.varied);
    if (counts.refused > 0) text += ", " + std::to_string(counts.refused) + " refused";
    return text;
}

std::string keys(const Counts& counts) {
    return std::string(
               "<p class=\"keys\" id=\"keys\"><kbd>←</kbd> <kbd>→</kbd> <kbd>↑</kbd> <kbd>↓</kbd> move") +
           (counts.sounds > 0 ? ", <kbd>Space</kbd> plays" : "") + ", <kbd>Enter</kbd> marks</p>\n";
}

std::string tiles(const Sheet& sheet) {
    const Frame frame = common_frame(sheet);
    std::map<std::string, unsigned> seen;  // score to the first variant that has it
    std::string list;
    for (const VariantRecord& variant : sheet.variants) {
        if (variant.state == VariantState::REFUSED) {
            list += refused_tile(variant, sheet);
            continue;
        }
        const auto [first, is_new] = seen.emplace(variant.score, variant.number);
        list += tile(variant, sheet, frame, is_new ? 0 : first->second);
    }
    return list;
}

std::string head(const std::string& title) {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">\n"
           "<meta name=\"color-scheme\" content=\"light dark\">\n"
           "<link rel=\"icon\" href=\"data:,\">\n<title>" +
           title + ": variants</title>\n<style>\n" + SHEET_STYLE + "</style>\n</head>\n";
}

std::string choice_bar(const Sheet& sheet) {
    return "<footer id=\"choice\" aria-label=\"Marked variants\" hidden>\n"
           "<p id=\"count\" role=\"status\"></p>\n<code id=\"command\" tabindex=\"0\" data-command=\"" +
           escape_markup(sheet.keep_command) +
           "\"></code>\n<span class=\"buttons\"><button id=\"copy\" type=\"button\">Copy</button>"
           "<button id=\"only\" type=\"button\" aria-pressed=\"false\">Show marked</button>"
           "<button id=\"clear\" type=\"button\">Unmark all</button></span>\n</footer>\n";
}

}  // namespace

std::string sheet_page(const Sheet& sheet) {
    const Counts counts = count(sheet);
    const std::string title = escape_markup(sheet.title);
    return head(title) + "<body>\n<header>\n<h1>" + title + "</h1>\n<p>" + summary(sheet, counts) + "</p>\n" +
           keys(counts) +
           "</header>\n<main>\n<ol id=\"tiles\" aria-label=\"Variants\" aria-describedby=\"keys\">\n" +
           tiles(sheet) + "</ol>\n</main>\n" + choice_bar(sheet) +
           "<audio id=\"sound\" preload=\"none\"></audio>\n" + "<script>\n" + SHEET_SCRIPT +
           "</script>\n</body>\n</html>\n";
}

}  // namespace vorn::kit
