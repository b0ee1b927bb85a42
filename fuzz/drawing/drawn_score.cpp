#include "drawing/drawn_score.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "drawing/dice.h"
#include "drawing/grammar.h"
#include "drawing/mistakes.h"

// Expands the rule "score". Where a choice depends on what has been drawn before
// (the type that values are read in, the p-fields given so far, the macros that
// are known) a routine takes the place of a rule; ROUTINES names them.

namespace vorn::fuzz {

namespace {

constexpr std::size_t MAX_TEXT = 6000;  // characters, behind which the shortest productions end the score
constexpr std::size_t MAX_DEPTH = 200;  // of productions within productions
constexpr int MAX_INCLUDES = 9;         // with what the score itself opens below the limit of a run
constexpr int MAX_TEMPOS = 30;
constexpr int FEWEST_FOR_PARTS = 4;    // events of a block
constexpr std::size_t HEAD_SIZE = 10;  // bytes that choose the options and the mistake

class Drawing {
public:
    explicit Drawing(Dice& dice) : dice_(dice) {}

    std::string expand(std::string_view rule, std::string_view argument = {});
    void take(DrawnScore& score) const {
        score.inputs.insert(includes_.begin(), includes_.end());
        score.columns = columns_;
    }

private:
    using Routine = std::string (Drawing::*)(std::string_view argument);
    struct Row {
        std::string_view name;
        Routine routine;
    };
    static const Row ROUTINES[];
    static Routine find_routine(std::string_view name);

    std::string fill(std::string_view production, std::string_view argument);

    // Definitions, by kind: "number", "list", "part", "block", "constant".
    std::string new_name(std::string_view kind);
    std::string known(std::string_view);
    std::string drop(std::string_view kind);
    std::string call(std::string_view kind) { return call_as(std::string(kind) + ' ' + std::string(kind)); }
    std::string call_as(std::string_view rule_and_kind);
    std::string name(std::string_view) { return called_; }
    std::string include(std::string_view rule);
    std::string counted_tempo(std::string_view rule);

    // Blocks and statements.
    std::string new_block(std::string_view);
    std::string count(std::string_view);
    std::string length(std::string_view);
    std::string statements(std::string_view);
    std::string end_block(std::string_view);
    std::string counted_block(std::string_view columns);
    std::string statement_of(std::string_view pfield);
    std::string number(std::string_view) { return std::to_string(pfield_); }
    std::string hidden(std::string_view);
    std::string type_of(std::string_view type_and_word);

    // Values and generators.
    std::string value(std::string_view) { return expand(type_); }
    std::string value_without_blank(std::string_view);
    std::string walk(std::string_view) { return expand("walk_" + type_); }
    std::string comma_or_tie(std::string_view) { return type_.ends_with("rhythm") ? ",8" : ","; }
    std::string joint(std::string_view);
    std::string zero(std::string_view) { return by_events_ ? "0" : "1"; }
    std::string rest(std::string_view);
    std::string last(std::string_view) { return in_generator_ > 0 ? "1" : "z"; }
    std::string time(std::string_view);
    std::string star(std::string_view) { return by_time_ && dice_.roll(2) == 1 ? "*" : ""; }
    std::string operand(std::string_view);
    std::string above(std::string_view pfield_and_rule);
    std::string generator(std::string_view);

    Dice& dice_;
    std::size_t size_ = 0;  // of what has been drawn
    std::size_t depth_ = 0;
    std::map<std::string, std::vector<std::string>, std::less<>> names_;  // of definitions, by kind
    int definitions_ = 0;
    std::string new_name_;  // of the definition at hand, not to be called before it is whole
    std::string new_kind_;
    std::string called_;
    std::map<std::string, std::string> includes_;
    int files_ = 0;
    int tempos_ = 0;
    std::vector<int> columns_;
    int pfields_ = 0;
    int hidden_ = 0;
    bool by_events_ = false;  // the block is as long as a number of events
    bool has_parts_ = true;   // and a quarter of them is one at least
    int pfield_ = 0;          // of the statement at hand
    std::vector<int> given_;  // p-fields before this statement
    int chord_pfield_ = 0;    // the one whose statement has chords, or 0
    bool rested_ = false;     // P2 has a rest
    std::string type_ = "re";
    int in_generator_ = 0;
    bool by_time_ = false;  // the generator at hand counts beats
};

const Drawing::Row Drawing::ROUTINES[] = {
    {"new", &Drawing::new_name},
    {"known", &Drawing::known},
    {"drop", &Drawing::drop},
    {"call", &Drawing::call},
    {"call_as", &Drawing::call_as},
    {"name", &Drawing::name},
    {"include", &Drawing::include},
    {"counted_tempo", &Drawing::counted_tempo},
    {"new_block", &Drawing::new_block},
    {"count", &Drawing::count},
    {"length", &Drawing::length},
    {"statements", &Drawing::statements},
    {"end_block", &Drawing::end_block},
    {"counted_block", &Drawing::counted_block},
    {"statement_of", &Drawing::statement_of},
    {"number", &Drawing::number},
    {"hidden", &Drawing::hidden},
    {"type_of", &Drawing::type_of},
    {"value", &Drawing::value},
    {"value_without_blank", &Drawing::value_without_blank},
    {"walk", &Drawing::walk},
    {"comma_or_tie", &Drawing::comma_or_tie},
    {"joint", &Drawing::joint},
    {"zero", &Drawing::zero},
    {"rest", &Drawing::rest},
    {"last", &Drawing::last},
    {"time", &Drawing::time},
    {"star", &Drawing::star},
    {"pfield", &Drawing::operand},
    {"above", &Drawing::above},
    {"generator", &Drawing::generator},
};

struct Halves {
    std::string_view first;
    std::string_view second;
};

Halves split(std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (blank == text.npos) return {text, {}};
    return {text.substr(0, blank), text.substr(blank + 1)};
}

int to_int(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

Drawing::Routine Drawing::find_routine(std::string_view name) {
    for (const Row& row : ROUTINES) {
        if (row.name == name) return row.routine;
    }
    return nullptr;
}

std::string Drawing::expand(std::string_view rule, std::string_view argument) {
    const Productions* const productions = find_rule(rule);
    if (productions == nullptr) throw std::logic_error("no rule " + std::string(rule));
    if (size_ > MAX_TEXT || depth_ > MAX_DEPTH) dice_.use_up();
    ++depth_;
    std::string text = fill((*productions)[dice_.roll(productions->size())], argument);
    --depth_;
    return text;
}

// The production with everything between backticks in its place.
std::string Drawing::fill(std::string_view production, std::string_view argument) {
    std::string text;
    while (true) {
        const std::size_t begin = production.find('`');
        text += production.substr(0, begin);
        size_ += std::min(begin, production.size());
        if (begin == production.npos) return text;
        const std::size_t end = production.find('`', begin + 1);
        const Halves wanted = split(production.substr(begin + 1, end - begin - 1));
        const std::string_view name = wanted.first == "?" ? argument : wanted.first;
        const Routine routine = find_routine(name);
        text += routine != nullptr ? (this->*routine)(wanted.second) : expand(name, wanted.second);
        production.remove_prefix(end + 1);
    }
}

std::string Drawing::new_name(std::string_view kind) {
    new_kind_ = kind;
    return new_name_ = new_kind_ + std::to_string(++definitions_);
}

std::string Drawing::known(std::string_view) {
    names_[new_kind_].push_back(new_name_);
    return {};
}

std::string Drawing::drop(std::string_view kind) {
    std::vector<std::string>& names = names_[std::string(kind)];
    if (names.empty()) return "; nothing is defined";
    const std::string name = names.back();
    names.pop_back();
    return "#undef " + name;
}

// "rule kind": by the rule "call_<rule>" one of the definitions of the kind, or
// by "no_<rule>" what needs none.
std::string Drawing::call_as(std::string_view rule_and_kind) {
    const auto [rule, kind] = split(rule_and_kind);
    const std::vector<std::string>& names = names_[std::string(kind)];
    if (names.empty()) return expand("no_" + std::string(rule));
    const std::string before = std::exchange(called_, names[dice_.roll(names.size())]);
    const std::string text = expand("call_" + std::string(rule));
    called_ = before;
    return text;
}

// A file of its own with what the rule yields.
std::string Drawing::include(std::string_view rule) {
    if (++files_ > MAX_INCLUDES) return expand(rule);
    const std::string name = "part" + std::to_string(files_) + ".inc";
    includes_[name] = expand(rule);
    return "#include |" + name + "|\n";
}

std::string Drawing::counted_tempo(std::string_view rule) {
    return ++tempos_ > MAX_TEMPOS ? "" : expand(rule);
}

std::string Drawing::new_block(std::string_view) {
    hidden_ = chord_pfield_ = 0;
    rested_ = false;
    return {};
}

std::string Drawing::count(std::string_view) {
    constexpr int COUNTS[] = {4, 5, 3, 6, 8, 12};
    pfields_ = COUNTS[dice_.roll(std::size(COUNTS))];
    return std::to_string(pfields_);
}

std::string Drawing::length(std::string_view) {
    by_events_ = dice_.roll(2) == 0;
    const std::string text = expand(by_events_ ? "events" : "beats");
    has_parts_ = !by_events_ || to_int(text) <= -FEWEST_FOR_PARTS;
    return text;
}

// Those of P3 and above, at times with the last one first.
std::string Drawing::statements(std::string_view) {
    const bool last_first = pfields_ > 3 && dice_.roll(4) == 3;
    std::vector<int> order;
    if (last_first) order.push_back(pfields_);
    for (int pfield = 3; pfield <= pfields_ - (last_first ? 1 : 0); ++pfield) order.push_back(pfield);
    std::string text;
    given_ = {2};
    for (const int pfield : order) {
        statement_of(std::to_string(pfield));
        text += expand(pfield == 3 ? "durations" : "values");
        given_.push_back(pfield);
    }
    return text;
}

std::string Drawing::end_block(std::string_view) {
    columns_.push_back(pfields_ - 1 - hidden_);
    return {};
}

std::string Drawing::counted_block(std::string_view columns) {
    columns_.push_back(to_int(columns));
    return {};
}

std::string Drawing::statement_of(std::string_view pfield) {
    pfield_ = to_int(pfield);
    type_ = pfield_ == 2 ? "p2" : pfield_ == 3 ? "p3" : "re";
    return {};
}

std::string Drawing::hidden(std::string_view) {
    ++hidden_;
    return {};
}

std::string Drawing::type_of(std::string_view type_and_word) {
    const auto [type, word] = split(type_and_word);
    type_ = type;
    return std::string(word);
}

// The first of a chord in a set, where a blank ends the element: calls may end in one.
std::string Drawing::value_without_blank(std::string_view) {
    std::string text = value({});
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

// What joins two values to a chord, in one statement of a block alone, so that
// chords of chords do not multiply.
std::string Drawing::joint(std::string_view) {
    if (pfield_ == 3 || (pfield_ == 2 && rested_)) return " ";
    if (chord_pfield_ == 0) chord_pfield_ = pfield_;
    return chord_pfield_ != pfield_ ? " " : dice_.roll(2) == 0 ? ":" : "'";
}

// A rest in P2, in a block of events, since a held rest never fills beats; its
// statement then has no chords, since one with rests may stand still.
std::string Drawing::rest(std::string_view) {
    if (in_generator_ > 0 || !by_events_ || chord_pfield_ == 2) return "1";
    rested_ = true;
    return "-1";
}

// No part of a block is without events: a p-field with nothing else would be blank.
std::string Drawing::time(std::string_view) {
    std::string text = expand("time_words");
    if (text.front() == 'T' && !has_parts_) text = "T";
    const bool whole_block = text.front() == 'T' || text.front() == 't';
    by_time_ = whole_block ? !by_events_ : text.front() != '-';
    return text;
}

// A p-field that equations may use.
std::string Drawing::operand(std::string_view) {
    return 'p' + std::to_string(given_[dice_.roll(given_.size())]);
}

// "pfield rule": the rule, or a value held in this p-field and below.
std::string Drawing::above(std::string_view pfield_and_rule) {
    const auto [pfield, rule] = split(pfield_and_rule);
    return pfield_ > to_int(pfield) ? expand(rule) : "ho(-2 " + value({}) + ')';
}

std::string Drawing::generator(std::string_view) {
    ++in_generator_;
    const std::string text = expand("generator_form");
    --in_generator_;
    return text;
}

constexpr std::string_view OPTION_SETS[] = {"",           "-s",
                                            "-m",         "-t",
                                            "-x run.exp", "-m",
                                            "-l run.log", "-s -m",
                                            "-sx",        "-l run.log -t -x run.exp",
                                            "-s -t",      "-m -t -l run.log"};

std::vector<std::string> arguments_of(std::string_view options) {
    std::istringstream words{std::string(options)};
    std::vector<std::string> arguments;
    for (std::string word; words >> word;) arguments.push_back(word);
    arguments.insert(arguments.end(), {"in.vorn", "out"});
    return arguments;
}

}  // namespace

DrawnScore draw_score(const std::uint8_t* data, std::size_t size) {
    const std::size_t head_size = std::min(size, HEAD_SIZE);
    Dice head(data, head_size);
    Dice body(data + head_size, size - head_size);
    DrawnScore score;
    score.arguments = arguments_of(OPTION_SETS[head.roll(std::size(OPTION_SETS))]);
    score.valid = head.roll(4) != 3;
    Drawing drawing(body);
    score.inputs["in.vorn"] = "; drawn\n" + drawing.expand("score") + "; end\n";
    drawing.take(score);
    if (!score.valid) {
        auto input = score.inputs.begin();
        std::advance(input, head.roll(score.inputs.size()));
        make_mistake(input->second, head);
    }
    return score;
}

DrawnScore score_of_bytes(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view BYTE_OPTIONS[] = {"-s", "-s -m", "-s -t", "-s -x run.exp"};
    DrawnScore score;
    score.arguments = arguments_of(BYTE_OPTIONS[size % 4]);
    score.valid = false;
    score.inputs["in.vorn"] = std::string(reinterpret_cast<const char*>(data), size);
    return score;
}

DrawnScore score_of_kind(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return draw_score(data, size);
    return (data[0] % 4 != 0 ? draw_score : score_of_bytes)(data + 1, size - 1);
}

}  // namespace vorn::fuzz
