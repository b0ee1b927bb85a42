#include <algorithm>

#include "kit/lint/rules.h"

// Where blocks end: in the text, and in time.

namespace vorn::kit::rules {

namespace {

// Whether a line of the copy follows, or this one has no end: only then is what
// stands behind a "}" left out rather than read.
bool is_dropped_behind(const ScoreRun& run, const LinePlace& end) {
    if (end.line < run.expanded.lines()) return true;
    const std::string& score = run.map.files()[0].text;
    return !score.empty() && score.back() != '\n';
}

// First and last visible character; false when there is none.
bool visible_part(const std::string& text, std::size_t& first, std::size_t& last) {
    first = text.find_first_not_of(" \t\v\f\r\n");
    last = text.find_last_not_of(" \t\v\f\r\n");
    return first != std::string::npos;
}

Excerpt rest_of_line(const ScoreRun& run, const LinePlace& begin) {
    const auto length = static_cast<std::int32_t>(run.expanded.line(begin.line).size());
    return run.expanded.excerpt(begin, {begin.line, std::max(length, begin.pos)});
}

void add_behind_block(const Excerpt& rest, std::size_t first, std::size_t last, Findings& findings) {
    Diagnostic diagnostic = findings.at(rest.place(first), rest.place(last));
    diagnostic.text = "What stands behind the \"}\" of a block is left out, up to the end of the line.";
    diagnostic.advice.push_back("Write it on a line of its own.");
    if (diagnostic.through.empty()) {
        const FileSpan before = {diagnostic.span.file, diagnostic.span.begin, diagnostic.span.begin};
        diagnostic.edits.push_back({before, "\n"});
    }
    findings.add(std::move(diagnostic));
}

// The last start of a block and what led to it, in beats.
struct LastStart {
    float beat = 0;
    float interval = 0;
};

LastStart last_start(const std::vector<float>& beats) {
    LastStart last;
    for (const float beat : beats) {
        if (beat <= last.beat) continue;
        last.interval = beat - last.beat;
        last.beat = beat;
    }
    return last;
}

// A start that near the end is one too many, unless starts are that dense.
bool is_just_before_end(const BlockRecord& block, const LastStart& last) {
    constexpr float NEAR = 0.001F;  // beats
    const float left = block.start_beat + block.length - last.beat;
    return left > 0 && left <= NEAR && left < last.interval / 10;
}

// The length in a header: the last word before its "{".
bool length_place(const ScoreRun& run, const BlockRecord& block, LinePlace& first, LinePlace& last) {
    const Excerpt header = run.expanded.excerpt(block.header_place, block.fields.front().begin);
    const std::size_t brace = header.text.find('{');
    if (brace == std::string::npos || brace == 0) return false;
    const std::size_t end = header.text.find_last_not_of(" \t,/", brace - 1);
    if (end == std::string::npos) return false;
    first = header.place(header.text.find_last_of(" \t,/", end) + 1);
    last = header.place(end);
    return true;
}

void add_late_start(const ScoreRun& run, const BlockRecord& block, const LastStart& last,
                    Findings& findings) {
    LinePlace begin;
    LinePlace end;
    if (!length_place(run, block, begin, end)) return;
    Diagnostic diagnostic = findings.at(begin, end);
    const double left = double{block.start_beat} + double{block.length} - double{last.beat};
    const std::uint64_t starts = block.fields.front().event_count;
    diagnostic.text = "The last event starts " + number_text(left) +
                      " beats before the block's end: the intervals add up to a little less than its length.";
    diagnostic.advice.push_back("Without that event, give the length as -" + std::to_string(starts - 1) +
                                " events.");
    findings.add(std::move(diagnostic));
}

}  // namespace

void text_behind_block(const ScoreRun& run, Findings& findings) {
    for (const BlockRecord& block : run.blocks) {
        if (!is_dropped_behind(run, block.end_place)) continue;
        const Excerpt rest = rest_of_line(run, block.end_place);
        std::size_t first = 0;
        std::size_t last = 0;
        if (visible_part(rest.text, first, last)) add_behind_block(rest, first, last, findings);
    }
}

void start_just_before_end(const ScoreRun& run, Findings& findings) {
    for (const BlockRecord& block : run.blocks) {
        if (block.length <= 0 || block.fields.empty() || block.fields.front().number != 2) continue;
        const LastStart last = last_start(block.events.beat);
        if (is_just_before_end(block, last)) add_late_start(run, block, last, findings);
    }
}

}  // namespace vorn::kit::rules
