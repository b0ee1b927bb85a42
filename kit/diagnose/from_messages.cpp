#include "kit/diagnose/from_messages.h"

#include "kit/diagnose/plain_words.h"
#include "kit/diagnose/unnumbered.h"

// The engine's messages as diagnostics: the same words, at the place in the
// composer's own file.

namespace vorn::kit {

namespace {

std::string code_of(const RunMessage& message) {
    if (message.number == 0) return std::string(unnumbered_code(message.severity, message.text));
    return (message.severity == Severity::ERROR ? "E" : "W") + std::to_string(message.number);
}

Diagnostic from_message(const RunMessage& message) {
    Diagnostic diagnostic;
    diagnostic.level = message.severity == Severity::ERROR ? Level::ERROR : Level::WARNING;
    diagnostic.code = code_of(message);
    diagnostic.text = on_one_line(message.text);
    diagnostic.span = message.span;
    diagnostic.through = message.through;
    diagnostic.expanded_line = message.expanded_line;
    diagnostic.expanded_pos = message.place.pos;
    diagnostic.repeats = message.repeats;
    return diagnostic;
}

}  // namespace

std::vector<Diagnostic> from_messages(const ScoreRun& run) {
    std::vector<Diagnostic> diagnostics;
    for (const RunMessage& message : run.messages) diagnostics.push_back(from_message(message));
    return diagnostics;
}

}  // namespace vorn::kit
