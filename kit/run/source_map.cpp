#include "kit/run/source_map.h"

#include <algorithm>

// Splices are undone from the last one back. A range of positions behind one
// moves by what it added; a range that touches inserted text becomes the call's:
//
//     "re $A 60"  --$A gives "1 2"-->  "re 1 2 60"      the "2" comes from "$A"
//
// An earlier splice whose text holds that call then widens the range once more.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_KEPT_SPLICES = 500'000;  // some tens of megabytes at most

struct Range {
    std::int32_t begin;
    std::int32_t end;
};

// Undoes one splice; true when the range lies within what it inserted.
bool undo(Range& range, std::int32_t start, std::int32_t end, std::int32_t inserted) {
    const std::int32_t inserted_end = start + inserted;
    if (range.begin >= start && range.begin < inserted_end) {
        range = {start, end};
        return true;
    }
    const std::int32_t shift = (end - start) - inserted;
    if (range.begin >= inserted_end) range.begin += shift;
    if (range.end >= inserted_end) range.end += shift;
    return false;
}

}  // namespace

int SourceMap::add_file(const std::string& name, std::string text) {
    TextIndex index(text);
    files_.push_back({name, std::move(text), std::move(index)});
    return static_cast<int>(files_.size()) - 1;
}

void SourceMap::add_span(int file, std::int64_t copy_offset, std::int64_t file_offset) {
    if (file < 0 || copy_offset < 0) return;
    spans_.push_back(
        {static_cast<std::uint64_t>(copy_offset), static_cast<std::uint64_t>(file_offset), file});
}

void SourceMap::add_line(std::size_t length) { line_offsets_.push_back(line_offsets_.back() + length); }

void SourceMap::add_splice(const Splice& splice) {
    if (splices_.size() == MAX_KEPT_SPLICES) splices_.pop_front();
    splices_.push_back({splice.line, splice.start, splice.end,
                        static_cast<std::int32_t>(splice.inserted_length), splice.kind,
                        splice.name != nullptr ? splice.name : ""});
}

FileSpan SourceMap::in_file(std::uint64_t line, std::int32_t begin, std::int32_t end) const {
    if (line == 0 || line >= line_offsets_.size()) return {};
    const std::uint64_t offset =
        line_offsets_[static_cast<std::size_t>(line - 1)] + static_cast<std::uint64_t>(begin);
    const auto behind =
        std::upper_bound(spans_.begin(), spans_.end(), offset,
                         [](std::uint64_t at, const Span& span) { return at < span.copy_offset; });
    if (behind == spans_.begin()) return {};
    const Span& span = *(behind - 1);
    const std::uint64_t size = files_[static_cast<std::size_t>(span.file)].text.size();
    const std::uint64_t first = std::min(span.file_offset + (offset - span.copy_offset), size);
    return {span.file, first, std::min(first + static_cast<std::uint64_t>(end - begin), size)};
}

FileSpan SourceMap::find(const LinePlace& place, std::vector<Expansion>* through) const {
    Range range = {place.pos, place.pos + 1};
    const auto by_line = [](const KeptSplice& splice, std::uint64_t line) { return splice.line < line; };
    const auto first = std::lower_bound(splices_.begin(), splices_.end(), place.line, by_line);
    auto at = first;
    while (at != splices_.end() && at->line == place.line) ++at;
    std::vector<Range> calls;
    std::vector<Expansion> expansions;
    while (at != first) {
        --at;
        const bool inside = undo(range, at->start, at->end, at->inserted);
        for (Range& call : calls) undo(call, at->start, at->end, at->inserted);
        if (!inside || through == nullptr) continue;
        calls.push_back(range);
        expansions.push_back({at->kind, at->name, {}});
    }
    for (std::size_t n = expansions.size(); n-- > 0;) {
        expansions[n].call = in_file(place.line, calls[n].begin, calls[n].end);
        through->push_back(expansions[n]);
    }
    return in_file(place.line, range.begin, range.end);
}

FileSpan SourceMap::find(const LinePlace& begin, const LinePlace& last,
                         std::vector<Expansion>* through) const {
    FileSpan span = find(begin, through);
    const FileSpan end = find(last);
    if (end.file == span.file && end.end > span.end) span.end = end.end;
    return span;
}

TextPlace SourceMap::text_place(const FileSpan& span) const {
    if (span.file < 0) return {};
    const SourceFile& file = files_[static_cast<std::size_t>(span.file)];
    const std::size_t at = static_cast<std::size_t>(std::min<std::uint64_t>(span.begin, file.text.size()));
    const std::size_t line = file.index.line_of(at);
    const std::size_t begin = file.index.line_begin(line);
    TextPlace place;
    place.line = static_cast<std::uint32_t>(line + 1);
    place.column = static_cast<std::uint32_t>(at - begin);
    place.text = file.index.line(file.text, line);
    place.character = static_cast<std::uint32_t>(file.index.characters(file.text, begin, at) + 1);
    return place;
}

std::string SourceMap::joined_text() const {
    std::string joined;
    for (std::size_t at = 0; at < spans_.size(); ++at) {
        const Span& span = spans_[at];
        const std::string& text = files_[static_cast<std::size_t>(span.file)].text;
        const bool is_last = at + 1 == spans_.size();
        const std::size_t length =
            is_last ? text.size() : static_cast<std::size_t>(spans_[at + 1].copy_offset - span.copy_offset);
        joined += text.substr(
            static_cast<std::size_t>(std::min<std::uint64_t>(span.file_offset, text.size())), length);
    }
    return joined;
}

}  // namespace vorn::kit
