#include "kit/diagnose/site.h"

#include <algorithm>

#include "input/characters.h"

// All of it looks at a few thousand characters at most, wherever the place is, and
// takes text as it comes: the score has been refused, so little can be relied on.

namespace vorn::kit {

namespace {

constexpr std::size_t FAR = 8192;  // bytes that are looked at on one side

bool is_closing(char c) {
    return c == '\0' || is_space(c) || std::string_view(")]}>,;:'({").find(c) != std::string_view::npos;
}

bool begins_statement(std::string_view code, std::size_t at) {
    return code[at] == 'p' && at + 1 < code.size() && is_digit(code[at + 1]) &&
           (at == 0 || !(is_word_char(code[at - 1]) || code[at - 1] == '['));
}

// Behind the end of a line the place is shown in the next one, where nothing is wrong.
std::size_t step_back(const RunMessage& message, std::string_view text, std::size_t at) {
    const bool behind_line = message.place.pos > 0 && at > 0 && text[at - 1] == '\n';
    return behind_line || at == text.size() ? behind_visible(text, at) : at;
}

// A comment that may hold others; `at` is left behind it. False: it has no end.
bool skip_block_comment(std::string_view code, std::size_t& at) {
    int depth = 0;
    while (at < code.size()) {
        const std::string_view two = code.substr(at, 2);
        const int change = two == "/*" ? 1 : two == "*/" ? -1 : 0;
        at += change == 0 ? 1 : 2;
        depth += change;
        if (depth == 0) return true;
    }
    return false;
}

// The first character from the place on that is no blank and in no comment.
char next_of_code(const Site& site) {
    std::string rest(site.text.substr(site.at, FAR));
    blank_comments(rest);
    const std::size_t next = next_visible(rest, 0);
    return next < rest.size() ? rest[next] : '\0';
}

}  // namespace

bool is_word_char(char c) {
    return is_letter(c) || is_digit(c) || std::string_view("._-+#~$@").find(c) != std::string_view::npos;
}

Stretch word_at(std::string_view text, std::size_t at) {
    Stretch word = {at, at};
    while (word.begin > 0 && at - word.begin < FAR && is_word_char(text[word.begin - 1])) --word.begin;
    while (word.end < text.size() && word.end - at < FAR && is_word_char(text[word.end])) ++word.end;
    return word.end > at ? word : Stretch{at, at};
}

std::size_t behind_visible(std::string_view text, std::size_t at) {
    while (at > 0 && is_space(text[at - 1])) --at;
    return at;
}

std::size_t next_visible(std::string_view text, std::size_t at) {
    while (at < text.size() && is_space(text[at])) ++at;
    return at;
}

Stretch word_or_character(std::string_view text, std::size_t at) {
    if (at >= text.size() || text[at] == '\n') return {at, at};
    if (is_word_char(text[at])) return word_at(text, at);
    std::size_t end = at + 1;
    while (end < text.size() && continues_character(text[end])) ++end;
    return {at, end};
}

Stretch word_touching(std::string_view text, std::size_t at) {
    at = std::min(at, text.size());
    const bool is_behind = at > 0 && is_closing(at < text.size() ? text[at] : '\0');
    return is_behind && is_word_char(text[at - 1]) ? word_at(text, at - 1) : word_or_character(text, at);
}

Stretch line_around(std::string_view text, std::size_t at) {
    const std::size_t before = at == 0 ? std::string_view::npos : text.rfind('\n', at - 1);
    return {before == std::string_view::npos ? 0 : before + 1, std::min(text.find('\n', at), text.size())};
}

bool is_first_on_line(std::string_view text, std::size_t at) {
    while (at > 0 && (text[at - 1] == ' ' || text[at - 1] == '\t')) --at;
    return at == 0 || text[at - 1] == '\n';
}

Site site_of(const ScoreRun& run, const RunMessage& message) {
    if (message.through.empty() && message.span.file >= 0) {
        const std::string& text = run.map.files()[static_cast<std::size_t>(message.span.file)].text;
        const std::size_t at = std::min<std::size_t>(message.span.begin, text.size());
        return {run, message, text, step_back(message, text, at), message.span.file};
    }
    const auto pos = static_cast<std::size_t>(std::max(message.place.pos, 0));
    return {run, message, message.expanded_line, std::min(pos, message.expanded_line.size()), -1};
}

std::optional<std::size_t> blank_comments(std::string& code) {
    for (std::size_t at = 0; at < code.size();) {
        const std::size_t begin = at;
        bool ends = true;
        if (code[at] == ';') {
            at = std::min(code.find('\n', at), code.size());
        } else if (code.compare(at, 2, "/*") == 0) {
            ends = skip_block_comment(code, at);
        } else {
            ++at;
            continue;
        }
        std::replace_if(
            code.begin() + static_cast<std::ptrdiff_t>(begin), code.begin() + static_cast<std::ptrdiff_t>(at),
            [](char c) { return c != '\n'; }, ' ');
        if (!ends) return begin;
    }
    return std::nullopt;
}

CodeBefore code_before(const Site& site) {
    std::size_t begin = site.at > FAR ? site.at - FAR : 0;
    if (begin > 0) begin = std::min(line_around(site.text, begin).end, site.at);
    const auto& open = site.run.open_block;
    if (open && site.file >= 0 && open->header.file == site.file && open->header.begin <= site.at) {
        begin = std::max<std::size_t>(begin, open->header.begin);
    }
    CodeBefore code = {std::string(site.text.substr(begin, site.at - begin)), begin};
    blank_comments(code.text);
    return code;
}

std::optional<Stretch> statement_around(const Site& site) {
    const CodeBefore code = code_before(site);
    for (std::size_t at = code.text.size(); at-- > 0;) {
        if (!begins_statement(code.text, at)) continue;
        std::size_t end = at + 1;
        while (end < code.text.size() && is_digit(code.text[end])) ++end;
        return Stretch{code.offset + at, code.offset + end};
    }
    return std::nullopt;
}

std::optional<std::size_t> open_parenthesis(const Site& site) {
    const CodeBefore code = code_before(site);
    int depth = 0;
    for (std::size_t at = code.text.size(); at-- > 0;) {
        const char c = code.text[at];
        if (c == '}' || c == '{') return std::nullopt;
        if (c == ')') ++depth;
        if (c == '(' && --depth < 0) return code.offset + at;
        if (begins_statement(code.text, at) && is_first_on_line(code.text, at)) return std::nullopt;
    }
    return std::nullopt;
}

std::optional<std::size_t> missing_parenthesis(const Site& site) {
    const char c = site[site.at];
    const bool is_statement = c == 'p' && is_digit(site[site.at + 1]);
    const bool is_header = c == 'i' && !is_letter(site[site.at + 1]);
    const bool is_other =
        c == '\0' || c == '}' || is_header || is_statement || is_first_on_line(site.text, site.at);
    if (!is_other || next_of_code(site) == ')' || !open_parenthesis(site)) return std::nullopt;
    const CodeBefore code = code_before(site);
    return code.offset + behind_visible(code.text, code.text.size());
}

std::optional<Stretch> call_before(const Site& site) {
    if (site.at == 0 || site[site.at - 1] != ')') return std::nullopt;
    const CodeBefore code = code_before(site);
    int depth = 0;
    for (std::size_t at = code.text.size(); at-- > 0;) {
        depth += code.text[at] == ')' ? 1 : 0;
        depth -= code.text[at] == '(' ? 1 : 0;
        if (depth > 0) continue;
        while (at > 0 && is_word_char(code.text[at - 1])) --at;
        return Stretch{code.offset + at, site.at};
    }
    return std::nullopt;
}

}  // namespace vorn::kit
