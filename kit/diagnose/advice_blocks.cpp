#include "input/characters.h"
#include "kit/diagnose/adviser.h"

// What belongs between the blocks and stands in one: its "}" is missing. The block
// reads on until something fits none of its statements, lines behind the mistake.

namespace vorn::kit {

namespace {

bool is_header(const Site& site, std::size_t at) {
    if (site[at] != 'i' && site[at] != 'I') return false;
    std::size_t behind = next_visible(site.text, at + 1);
    if (site[behind] == '-') ++behind;
    const std::size_t digits = behind;
    while (is_digit(site[behind])) ++behind;
    return behind > digits && site[next_visible(site.text, behind)] == '=';
}

bool is_tempo(const Site& site, std::size_t at) {
    return to_lower(site[at]) == 't' && to_lower(site[at + 1]) == 'e' &&
           site[next_visible(site.text, at + 2)] == '(';
}

std::string line_name(const Adviser& adviser, const FileSpan& span) {
    const SourceMap& map = adviser.site.run.map;
    std::string name = "line " + std::to_string(map.text_place(span).line);
    if (span.file != adviser.site.file && adviser.site.file >= 0) {
        name += " of " + map.files()[static_cast<std::size_t>(span.file)].name;
    }
    return name;
}

// The "i1" with which the open block begins.
FileSpan header_span(const Adviser& adviser) {
    FileSpan header = adviser.site.run.open_block->header;
    const std::string& text = adviser.site.run.map.files()[static_cast<std::size_t>(header.file)].text;
    const Stretch word = word_at(text, header.begin);
    if (word.end > word.begin) header.end = word.end;
    return header;
}

bool note_open_block(Adviser& adviser) {
    const FileSpan header = header_span(adviser);
    return adviser.note_at("the block of " + line_name(adviser, header) + " is still open", header);
}

// Whether a block is open that begins before the place.
bool is_in_block(const Adviser& adviser) {
    const auto& open = adviser.site.run.open_block;
    if (!open || open->header.file < 0) return false;
    return open->header.file != adviser.site.file || open->header.begin < adviser.mark.begin;
}

bool end_before(Adviser& adviser, const std::string& what) {
    note_open_block(adviser);
    adviser.edit({adviser.mark.begin, adviser.mark.begin}, "}\n");
    return adviser.help("write `}` before " + what);
}

bool advise_new_block(Adviser& adviser) {
    if (!is_in_block(adviser) || !is_header(adviser.site, adviser.mark.begin)) return false;
    return end_before(adviser, "this new block");
}

bool advise_tempo(Adviser& adviser) {
    if (!is_in_block(adviser) || !is_tempo(adviser.site, adviser.mark.begin)) return false;
    return end_before(adviser, "this line, for a tempo stands between the blocks");
}

bool advise_direct_line(Adviser& adviser) {
    const bool is_line =
        adviser.site[adviser.mark.begin] == '>' && is_first_on_line(adviser.site.text, adviser.mark.begin);
    if (!is_in_block(adviser) || !is_line) return false;
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::size_t rest = next_visible(adviser.site.text, adviser.mark.begin + 1);
    if (rest >= line.end) return false;  // a ">" alone on its line ends a loop
    return end_before(adviser, "this line, for a `>` line stands between the blocks");
}

// On the last line what stands behind "}" is read as another block.
bool advise_behind_block(Adviser& adviser) {
    const Site& site = adviser.site;
    const std::size_t behind = behind_visible(site.text, adviser.mark.begin);
    const bool is_behind = adviser.is_error() && behind > line_around(site.text, adviser.mark.begin).begin &&
                           site[behind - 1] == '}' && adviser.mark.end > adviser.mark.begin;
    if (!is_behind) return false;
    if (adviser.word() == "}") {
        adviser.edit(adviser.mark, "");
        return adviser.help("there is a `}` too many; leave it out");
    }
    adviser.edit({behind, adviser.mark.begin}, "\n");
    return adviser.help("the block ends with this `}`; write what follows on a line of its own");
}

bool advise_end(Adviser& adviser) {
    if (!is_in_block(adviser)) return false;
    CodeBefore code = {std::string(adviser.site.text.substr(0, adviser.site.at)), 0};
    if (const auto comment = blank_comments(code.text)) {
        adviser.note("this comment has no end, and hides what follows", {*comment, *comment + 2});
        return adviser.help("write `*/` behind the comment");
    }
    note_open_block(adviser);
    adviser.edit(adviser.mark, "\n}");
    return adviser.help("write `}` at the end of the block");
}

bool advise_open_comment(Adviser& adviser) {
    CodeBefore code = {std::string(adviser.site.text.substr(0, adviser.site.at)), 0};
    const auto comment = blank_comments(code.text);
    if (!comment) return false;
    adviser.note("the comment begins here", {*comment, *comment + 2});
    return adviser.help("write `*/` behind the comment; each `/*` within it needs one of its own");
}

constexpr AdviceRow ROWS[] = {
    {"", advise_behind_block},   {"E27", advise_new_block},   {"E23", advise_new_block},
    {"E73", advise_new_block},   {"E27", advise_tempo},       {"E23", advise_tempo},
    {"E73", advise_tempo},       {"E43", advise_direct_line}, {"E27", advise_direct_line},
    {"E73", advise_direct_line}, {"E5", advise_end},          {"E3", advise_open_comment},
};

}  // namespace

AdviceTable open_block_advice() { return ROWS; }

}  // namespace vorn::kit
