#include "kit/vary/variation.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "blocks/command_codes.h"
#include "kit/vary/range.h"

// The run has told where each value stands. What came out of a macro stands at the
// call of it: a seed may replace the call when nothing else is between the parentheses
// of "rs", as in rs($SEED); a call that gives more than the number cannot be replaced.

namespace vorn::kit {

namespace {

constexpr const char* BLANKS = " \t";
constexpr double TOLERANCE = 1e-5;  // constants are told in single precision

Variation not_possible(const std::string& reason) {
    Variation variation;
    variation.error = reason;
    return variation;
}

const std::string& file_text(const ScoreRun& run, int file) {
    return run.map.files()[static_cast<std::size_t>(file)].text;
}

std::string place_name(const ScoreRun& run, const FileSpan& span) {
    return run.map.files()[static_cast<std::size_t>(span.file)].name + ":" +
           std::to_string(run.map.text_place(span).line);
}

bool ends_with_seed_command(const std::string& text) {
    return text.size() >= 2 && (text[text.size() - 2] | 0x20) == 'r' && (text.back() | 0x20) == 's';
}

// Whether rs( ) and blanks are all that stands around the span.
bool fills_seed_command(const std::string& text, const FileSpan& span) {
    const std::size_t behind = text.find_first_not_of(BLANKS, span.end);
    if (behind == std::string::npos || text[behind] != ')' || span.begin == 0) return false;
    const std::size_t open = text.find_last_not_of(BLANKS, span.begin - 1);
    if (open == std::string::npos || text[open] != '(' || open == 0) return false;
    const std::size_t command = text.find_last_not_of(BLANKS, open - 1);
    return command != std::string::npos && ends_with_seed_command(text.substr(0, command + 1));
}

// A line of its own, with the line end that the score has.
Variation inserted_seed(const ScoreRun& run) {
    const std::string& text = file_text(run, 0);
    const std::size_t line_end = text.find('\n');
    const bool has_return = line_end != std::string::npos && line_end > 0 && text[line_end - 1] == '\r';
    Variation variation;
    variation.name = "seed";
    variation.before = "rs(";
    variation.after = has_return ? ")\r\n" : ")\n";
    return variation;
}

// The number that begins at `begin`, blanks before it passed over.
Variation number_at(const ScoreRun& run, const FileSpan& span, const std::string& name) {
    if (span.file < 0) return not_possible("the place where " + name + " is defined is not known");
    const std::string& text = file_text(run, span.file);
    const std::size_t begin = std::min(text.find_first_not_of(BLANKS, span.begin), text.size());
    const std::size_t end = std::min(text.find_first_not_of("+-.0123456789", begin), text.size());
    const std::string number = text.substr(begin, end - begin);
    const std::size_t behind = std::min(text.find_first_not_of(BLANKS, end), text.size());
    const bool is_all =
        behind == text.size() || std::string_view("#\r\n;/").find(text[behind]) != std::string::npos;
    if (!is_plain_number(number) || !is_all) {
        return not_possible(name + " (" + place_name(run, span) +
                            ") is not a plain number there and cannot be varied");
    }
    Variation variation;
    variation.name = name;
    variation.file = span.file;
    variation.begin = begin;
    variation.end = end;
    return variation;
}

template <typename Records>
auto find_record(const Records& records, const std::string& name) {
    return std::find_if(records.begin(), records.end(),
                        [&](const auto& record) { return record.name == name; });
}

auto first_seed(const ScoreRun& run) {
    return std::find_if(run.settings.begin(), run.settings.end(),
                        [](const SettingRecord& setting) { return setting.command == vorn::CODE_RS; });
}

void append_name(std::string& list, const std::string& name) {
    if (("," + list + ",").find(", " + name + ",") != std::string::npos || list == name) return;
    list += (list.empty() ? "" : ", ") + name;
}

Variation no_such_name(const ScoreRun& run, const std::string& name) {
    std::string known;
    for (const ConstantRecord& constant : run.constants) append_name(known, constant.name);
    for (const MacroRecord& macro : run.macros) append_name(known, macro.name);
    return not_possible("the score defines no constant or macro \"" + name + "\"" +
                        (known.empty() ? "" : "; it has " + known));
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(BLANKS) + 1 - first);
}

bool is_near(double value, const std::string& wanted) {
    const double number = std::strtod(wanted.c_str(), nullptr);
    return std::fabs(value - number) <= TOLERANCE * std::max(1.0, std::fabs(number));
}

}  // namespace

Variation find_seed(const ScoreRun& run) {
    const auto seed = first_seed(run);
    if (seed == run.settings.end()) return inserted_seed(run);
    if (seed->span.file < 0 || !fills_seed_command(file_text(run, seed->span.file), seed->span)) {
        const std::string place = seed->span.file < 0 ? "" : " (" + place_name(run, seed->span) + ")";
        return not_possible("the first rs comes out of a macro" + place +
                            "; vary its number by name: --set NAME=from..to");
    }
    Variation variation;
    variation.name = "seed";
    variation.file = seed->span.file;
    variation.begin = seed->span.begin;
    variation.end = seed->span.end;
    return variation;
}

Variation find_name(const ScoreRun& run, const std::string& name) {
    Variation variation;
    if (const auto constant = find_record(run.constants, name); constant != run.constants.end()) {
        variation = number_at(run, constant->span, name);
        variation.kind = Varied::CONSTANT;
    } else if (const auto macro = find_record(run.macros, name); macro != run.macros.end()) {
        variation = number_at(run, macro->span, name);
        variation.kind = Varied::MACRO;
    } else {
        variation = no_such_name(run, name);
    }
    return variation;
}

std::string varied_text(const Variation& variation, const std::string& text, const std::string& value) {
    return text.substr(0, variation.begin) + variation.before + value + variation.after +
           text.substr(variation.end);
}

std::uint64_t place_before(const Variation& variation, const std::string& value, std::uint64_t place) {
    const std::uint64_t length = variation.before.size() + value.size() + variation.after.size();
    if (place < variation.begin) return place;
    if (place < variation.begin + length) return variation.begin;
    return place - (variation.begin + length) + variation.end;
}

bool has_value(const ScoreRun& run, const Variation& variation, const std::string& value) {
    if (variation.kind == Varied::SEED) {
        const auto seed = first_seed(run);
        return seed != run.settings.end() && is_near(seed->value, value);
    }
    if (variation.kind == Varied::CONSTANT) {
        const auto constant = find_record(run.constants, variation.name);
        return constant != run.constants.end() && is_near(constant->value, value);
    }
    const auto macro = find_record(run.macros, variation.name);
    return macro != run.macros.end() && trimmed(macro->body) == value;
}

}  // namespace vorn::kit
