#include <algorithm>

#include "input/characters.h"
#include "kit/diagnose/adviser.h"
#include "kit/diagnose/words.h"

// Names of macros, constants and files that nothing answers to, and directives.

namespace vorn::kit {

namespace {

// "MELODY" of "$MELODY", "LEVEL" of "~LEVEL".
std::string_view name_of(const Adviser& adviser) {
    std::string_view word = adviser.word();
    const std::size_t sign = word.find_last_of("$~");
    if (sign != std::string_view::npos) word.remove_prefix(sign + 1);
    std::size_t length = 0;
    while (length < word.size() && is_name_char(word[length])) ++length;
    return word.substr(0, length);
}

template <typename Records>
std::vector<std::string> names_of(const Records& records) {
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const auto& record : records) names.push_back(record.name);
    return names;
}

template <typename Records>
bool has(const Records& records, std::string_view name) {
    return std::any_of(records.begin(), records.end(),
                       [name](const auto& record) { return record.name == name; });
}

// `sign` calls what is looked for, `other_sign` what the name is in fact.
struct Kind {
    const char* sign;
    const char* other_sign;
    const char* other;
};

template <typename Records, typename Others>
bool advise_unknown(Adviser& adviser, const Records& records, const Others& others, const Kind& kind) {
    const std::string name(name_of(adviser));
    if (has(others, name)) {
        return adviser.help("`" + name + "` is a " + kind.other + ", which is called with `" +
                            kind.other_sign + "`: " + kind.other_sign + name);
    }
    std::vector<std::string> names = nearest(name, names_of(records));
    if (names.empty() || names.size() > 4) return false;
    for (std::string& found : names) found.insert(0, kind.sign);
    return adviser.help("did you mean " + either(names) + "?");
}

bool advise_macro(Adviser& adviser) {
    const ScoreRun& run = adviser.site.run;
    return advise_unknown(adviser, run.macros, run.constants, {"$", "~", "constant"});
}

bool advise_constant(Adviser& adviser) {
    const ScoreRun& run = adviser.site.run;
    return advise_unknown(adviser, run.constants, run.macros, {"~", "$", "macro"});
}

// --- includes ---

bool advise_include(Adviser& adviser) {
    if (std::count(adviser.word().begin(), adviser.word().end(), '|') == 1) {
        adviser.edit({adviser.mark.end, adviser.mark.end}, "|");
        return adviser.help("write a second `|` behind the name");
    }
    const auto& tried = adviser.site.run.tried_includes;
    if (tried.empty()) return false;
    adviser.help("looked for \"" + tried.back() + "\" and found nothing there that can be read");
    if (adviser.word().find("|/") != std::string_view::npos) return true;
    return adviser.help(
        "names count from the folder that Vorn runs in; with --relative, from the including file");
}

// #include "name" and #include <name>
bool advise_include_bars(Adviser& adviser) {
    const std::string_view text = adviser.word();
    const std::size_t open = text.find_first_of("\"<'");
    const std::size_t close = open == std::string_view::npos ? open : text.find_first_of("\">'", open + 1);
    if (close == std::string_view::npos) return false;
    const std::string name = "|" + std::string(text.substr(open + 1, close - open - 1)) + "|";
    adviser.edit({adviser.mark.begin + open, adviser.mark.begin + close + 1}, name);
    return adviser.help("the name stands between two bars: #include " + name);
}

// --- macros ---

// The macro of a marked call "$NAME(...)".
const MacroRecord* called_macro(const Adviser& adviser) {
    const std::size_t sign = adviser.word().find('$');
    if (sign == std::string_view::npos) return nullptr;
    const std::string_view call = adviser.word().substr(sign + 1);
    std::size_t length = 0;
    while (length < call.size() && is_name_char(call[length])) ++length;
    for (const MacroRecord& macro : adviser.site.run.macros) {
        if (macro.name == call.substr(0, length)) return &macro;
    }
    return nullptr;
}

std::string example_call(const MacroRecord& macro) {
    std::string call = "$" + macro.name + "(1";
    for (int at = 1; at < std::min(macro.argument_count, 4); ++at) call += "'" + std::to_string(at + 1);
    return call + ")";
}

bool advise_arguments(Adviser& adviser) {
    const MacroRecord* const macro = called_macro(adviser);
    if (macro == nullptr) return false;
    adviser.note_at("the macro is defined here", macro->span);
    const std::string count = std::to_string(macro->argument_count) +
                              (macro->argument_count == 1 ? " argument: `" : " arguments: `");
    const bool has_comma = adviser.word().find(',') != std::string_view::npos;
    const std::string commas = has_comma ? "arguments are parted by `'`, not by commas; " : "";
    return adviser.help(commas + "`" + macro->name + "` takes " + count + example_call(*macro) + "`");
}

bool advise_too_many_arguments(Adviser& adviser) {
    return adviser.help(
        "`'` parts the arguments of a macro, and this one takes fewer; a chord is written with `:`");
}

bool advise_body(Adviser& adviser) {
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    if (adviser.word() == "(") {
        adviser.edit({behind_visible(adviser.site.text, adviser.mark.begin), adviser.mark.begin}, "");
        return adviser.help("arguments follow the name directly, without a blank");
    }
    const std::size_t end = behind_visible(adviser.site.text, line.end);
    if (adviser.site.of({adviser.mark.begin, end}).find_first_of("#;") == std::string_view::npos) {
        adviser.edit({adviser.mark.begin, adviser.mark.begin}, "#");
        adviser.edit({end, end}, "#");
    }
    return adviser.help("the text of a macro stands between two `#`: `#define NAME #60 62#`");
}

bool advise_value(Adviser& adviser) {
    if (adviser.word() != "=") return false;
    adviser.edit(adviser.mark, "");
    return adviser.help("a constant is its name and its value, without a `=`: `#const NAME 60`");
}

bool advise_hash_comment(Adviser& adviser) {
    const Stretch line = line_around(adviser.site.text, adviser.mark.begin);
    const std::size_t hash = adviser.site.text.find('#', line.begin);
    if (hash >= line.end) return false;
    const char behind = adviser.site[hash + 1];
    if (!is_space(behind) && behind != '#' && behind != '!') return false;
    adviser.point_at({hash, hash + 1});
    adviser.edit({hash, hash + 1}, ";");
    return adviser.help("`#` begins a definition; a comment begins with `;`");
}

// A text of a macro runs on to the next "#", over line ends.
bool advise_open_body(Adviser& adviser) {
    const std::size_t definition = adviser.site.text.substr(0, adviser.site.at).rfind("#define");
    if (definition == std::string_view::npos) return false;
    adviser.note("the definition begins here", {definition, definition + 7});
    return adviser.help("write a `#` where the text of the macro ends");
}

bool advise_condition(Adviser& adviser) {
    const std::string_view word = adviser.word();
    if (!word.starts_with("#ifdef") && !word.starts_with("#ifndef")) return false;
    return adviser.help("only values can be asked for, not names: `#const A 1`, and then `#if(~A)`");
}

// The "#if" that nothing ends.
bool advise_open_condition(Adviser& adviser) {
    const std::string_view text = adviser.site.text.substr(0, adviser.site.at);
    int depth = 0;
    for (std::size_t at = text.rfind('#'); at != std::string_view::npos;
         at = at > 0 ? text.rfind('#', at - 1) : std::string_view::npos) {
        const std::string_view rest = text.substr(at);
        depth += rest.starts_with("#endif") ? 1 : 0;
        if (rest.starts_with("#if") && --depth < 0) {
            adviser.note("the condition begins here", {at, at + 3});
            return adviser.help("write `#endif` on a line of its own behind what it covers");
        }
    }
    return false;
}

// The definition of a macro in whose expansion it is called again.
bool advise_circle(Adviser& adviser) {
    const MacroRecord* const macro = called_macro(adviser);
    if (macro == nullptr || macro->body.find("$" + macro->name) == std::string::npos) return false;
    adviser.note_at("its text is defined here", macro->span);
    return adviser.help("`$" + macro->name +
                        "` calls itself and would never end; take the call out of its text");
}

constexpr AdviceRow ROWS[] = {
    {"Emacro", advise_macro},        {"Econstant", advise_constant}, {"Einclude", advise_include},
    {"Ebar", advise_include_bars},   {"E89", advise_circle},         {"E82", advise_too_many_arguments},
    {"E85", advise_arguments},       {"E86", advise_arguments},      {"E81", advise_body},
    {"E500", advise_value},          {"E80", advise_hash_comment},   {"E117", advise_open_condition},
    {"E119", advise_open_condition}, {"E8", advise_open_body},       {"E114", advise_condition},
};

}  // namespace

AdviceTable name_advice() { return ROWS; }

}  // namespace vorn::kit
