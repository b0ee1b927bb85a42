#include "kit/diagnose/from_messages.h"

// The engine's messages as diagnostics: the same words, at the place in the
// composer's own file.

namespace vorn::kit {

namespace {

std::string code_of(const RunMessage& message) {
    return (message.severity == Severity::ERROR ? "E" : "W") + std::to_string(message.number);
}

// Line ends within a text are layout of the terminal that it was made for.
std::string on_one_line(const std::string& text) {
    std::string line;
    for (const char c : text) {
        const bool doubled = (c == ' ' || c == '\n') && !line.empty() && line.back() == ' ';
        if (!doubled) line += c == '\n' ? ' ' : c;
    }
    return line;
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
