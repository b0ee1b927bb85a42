#include "kit/diagnose/from_messages.h"

#include <algorithm>

#include "kit/diagnose/advice.h"
#include "kit/diagnose/fix_trial.h"
#include "kit/diagnose/marks.h"
#include "kit/diagnose/plain_words.h"
#include "kit/diagnose/unnumbered.h"

// The engine's messages as diagnostics: the same words, at the place in the
// composer's own file, with the word marked that is meant, and with advice.

namespace vorn::kit {

namespace {

// The mark in the file, or of what calls have put into the line in the expanded one.
void place(Diagnostic& diagnostic, const Site& site, Stretch mark) {
    diagnostic.span = site.message.span;
    if (site.file >= 0) {
        diagnostic.span = {site.file, mark.begin, mark.end};
    } else if (!site.message.through.empty()) {
        diagnostic.through = site.message.through;
        diagnostic.expanded_line =
            site.text.substr(0, std::max(behind_visible(site.text, site.text.size()), mark.end));
        diagnostic.expanded_begin = mark.begin;
        diagnostic.expanded_end = mark.end;
    }
}

// A block is told to be skipped where it ends; what takes it out stands in its header.
void place_skipped(Diagnostic& diagnostic, const ScoreRun& run, const RunMessage& message) {
    for (const BlockRecord& block : run.blocks) {
        const bool ends_here = block.is_skipped && block.end_place.line == message.place.line &&
                               block.end_place.pos == message.place.pos && block.header.file >= 0;
        if (!ends_here) continue;
        const std::string& text = run.map.files()[static_cast<std::size_t>(block.header.file)].text;
        const Stretch word = word_or_character(text, block.header.begin);
        diagnostic.span = {block.header.file, word.begin, word.end};
        diagnostic.through.clear();
        return;
    }
}

// A fix of what has ended the run is kept where it cures that.
void try_fix(Diagnostic& diagnostic, const ScoreRun& run) {
    if (diagnostic.level != Level::ERROR) return;
    const std::optional<Fix> fix = fix_of(diagnostic, run.map);
    if (fix && !cures(*fix, run)) diagnostic.edits.clear();
}

Diagnostic from_message(const ScoreRun& run, const RunMessage& message, Level level) {
    Diagnostic diagnostic;
    diagnostic.level = level;
    diagnostic.code = code_of(message);
    diagnostic.text = on_one_line(message.text);
    diagnostic.repeats = message.repeats;
    const Site site = site_of(run, message);
    const Stretch mark = mark_of(diagnostic.code, site);
    place(diagnostic, site, mark);
    if (diagnostic.code == "W2") place_skipped(diagnostic, run, message);
    add_advice(site, mark, diagnostic);
    try_fix(diagnostic, run);
    return diagnostic;
}

}  // namespace

std::vector<Diagnostic> from_messages(const ScoreRun& run) {
    std::vector<Diagnostic> diagnostics;
    const RunMessage* const error = ending_error(run);
    for (const RunMessage& message : run.messages) {
        diagnostics.push_back(from_message(run, message, &message == error ? Level::ERROR : Level::WARNING));
    }
    return diagnostics;
}

}  // namespace vorn::kit
