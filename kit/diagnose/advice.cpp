#include "kit/diagnose/advice.h"

#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/explanation.h"

// The tables are gone through in turn; the first row that knows the case ends the
// search, and where none does the cure of the code's explanation is told.

namespace vorn::kit {

bool Adviser::help(std::string text) {
    diagnostic_.advice.push_back(std::move(text));
    return true;
}

bool Adviser::note(std::string text, Stretch where) { return note_at(std::move(text), in_file(where)); }

bool Adviser::note_at(std::string text, const FileSpan& where) {
    diagnostic_.notes.push_back({std::move(text), where});
    return true;
}

bool Adviser::edit(Stretch where, std::string replacement) {
    if (site.file >= 0) diagnostic_.edits.push_back({in_file(where), std::move(replacement)});
    return true;
}

bool Adviser::point_at(Stretch where) {
    if (site.file >= 0) {
        diagnostic_.span = in_file(where);
    } else if (!diagnostic_.through.empty()) {
        diagnostic_.expanded_begin = where.begin;
        diagnostic_.expanded_end = where.end;
    }
    return true;
}

FileSpan Adviser::in_file(Stretch stretch) const {
    if (site.file < 0) return {};
    return {site.file, stretch.begin, stretch.end};
}

namespace {

bool try_table(AdviceTable table, Adviser& adviser, std::string_view code) {
    for (const AdviceRow& row : table) {
        if ((row.code.empty() || row.code == code) && row.advise(adviser)) return true;
    }
    return false;
}

// A sentence as a line of advice begins and ends.
std::string as_advice(std::string_view sentence) {
    std::string text(sentence);
    if (text.size() > 1 && !is_letter(text[1])) return text;
    text[0] = to_lower(text[0]);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

}  // namespace

void add_advice(const Site& site, Stretch mark, Diagnostic& diagnostic) {
    Adviser adviser(site, mark, diagnostic);
    for (const auto table : {character_advice, number_advice, open_block_advice, header_advice, value_advice,
                             generator_advice, command_advice, name_advice}) {
        if (try_table(table(), adviser, diagnostic.code)) return;
    }
    const std::optional<Explanation> explanation = find_explanation(diagnostic.code);
    if (explanation && !explanation->cure.empty()) adviser.help(as_advice(explanation->cure));
}

}  // namespace vorn::kit
