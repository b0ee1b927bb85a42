#include <algorithm>

#include "blocks/command_codes.h"
#include "input/characters.h"
#include "kit/lint/rules.h"

// An "r" among note names is the value -1, and silences its event by turning the sign of the
// duration. Where that does not happen, or happens twice, the -1 is heard:
//
//     p4 no c4 r x2             of a repeated rest only the first is one
//     p4 no se(T 1 [c4 r])      a generator makes no rests
//     p4 no c4:r x2             of a repeated chord, too
//     p3 1 -1    p4 no c4 r     two signs are turned
//
// And a block of nothing but rests leaves no event in the score at all.

namespace vorn::kit::rules {

namespace {

constexpr float REST = -1;

enum class Reason { REPEATED, IN_GENERATOR, IN_CHORD, TWICE };

constexpr const char* ADVICE[] = {
    "Of a repeated \"r\" only the first is a rest: write \"r r\".",
    "A generator makes no rests here: draw them in P3, where -1 is one.",
    "A rest has no place in a chord that is repeated or held.",
    "Two rests on one note cancel out: write the rest in one p-field only.",
};

struct Rest {
    const Item* item = nullptr;  // null: there is none
    Reason reason = Reason::TWICE;
};

bool is_rest(const Statement& statement, const Item& item) {
    return item.kind == ItemKind::VALUE && item.code == CODE_NO && to_lower(statement.text(item)[0]) == 'r';
}

Reason reason_of(const std::vector<Item>& items, std::size_t index) {
    if (items[index].in_generator) return Reason::IN_GENERATOR;
    const auto is_kind = [&](std::size_t at, ItemKind kind) {
        return at < items.size() && items[at].kind == kind;
    };
    if (is_kind(index - 1, ItemKind::FUSION) || is_kind(index + 1, ItemKind::FUSION)) return Reason::IN_CHORD;
    const bool is_repeated = is_kind(index + 1, ItemKind::TIMES) || is_kind(index + 1, ItemKind::SLASH);
    return is_repeated ? Reason::REPEATED : Reason::TWICE;
}

// The first that sounds by itself; otherwise the first of all.
Rest find_rest(const Statement& statement) {
    Rest found;
    for (const Item& item : statement.items) {
        if (!is_rest(statement, item)) continue;
        const Reason reason = reason_of(statement.items, &item - statement.items.data());
        if (reason != Reason::TWICE) return {&item, reason};
        if (found.item == nullptr) found.item = &item;
    }
    return found;
}

// Note names alone, of which none but "r" is -1.
bool has_names_alone(const Statement& statement) {
    return std::all_of(statement.items.begin(), statement.items.end(), [](const Item& item) {
        if (item.kind == ItemKind::GENERATOR) return item.code != CODE_EX;
        const bool is_typed = item.kind == ItemKind::VALUE || item.kind == ItemKind::INPUT_TYPE;
        return !is_typed || item.code == CODE_NO;
    });
}

// --- blocks without a sound ---

bool is_all_rests(const BlockRecord& block) {
    const std::vector<float>& durations = block.events.duration;
    const auto sounds = [](float duration) { return duration > 0; };
    return !block.is_skipped && !durations.empty() &&
           std::none_of(durations.begin(), durations.end(), sounds);
}

// Starts that never move on: an interval of 0 or less, of which a part is no duration.
bool stands_still(const std::vector<float>& beats) {
    return beats.size() > 1 && std::is_sorted(beats.rbegin(), beats.rend());
}

const char* silence_advice(const EventTable& events) {
    if (stands_still(events.beat)) {
        return "P2 is the time to the next event: write beats above 0. Of notes that begin together give P3 "
               "in seconds, 1000 + n, or in beats, 400 + n.";
    }
    const auto is_nothing = [](float duration) { return duration == 0; };
    if (std::all_of(events.duration.begin(), events.duration.end(), is_nothing)) {
        return "P3 of 0, 400 or 1000 lasts for no time: 1 lasts up to the next event, 400.5 half a beat.";
    }
    return "Each event has a negative P3, or \"r\" for its note.";
}

}  // namespace

void blocks_of_rests(const ScoreRun& run, Findings& findings) {
    for (const BlockRecord& block : run.blocks) {
        if (!is_all_rests(block)) continue;
        Diagnostic diagnostic = findings.at(block.header);
        diagnostic.text = "This block makes no sound: all of its events are rests, " +
                          std::to_string(block.events.size()) + " in all.";
        diagnostic.advice.push_back(silence_advice(block.events));
        findings.add(std::move(diagnostic));
    }
}

void rests_that_sound(const Statement& statement, Findings& findings) {
    if (statement.field->number < 4 || !has_names_alone(statement)) return;
    const Rest rest = find_rest(statement);
    if (rest.item == nullptr) return;
    const EventTable& events = statement.block->events;
    std::size_t count = 0;
    for (std::size_t row = 0; row < events.size(); ++row) {
        const bool sounds = events.duration[row] > 0;
        if (sounds && statement.block->value(row, statement.field->number) == REST) ++count;
    }
    if (count == 0) return;
    Diagnostic diagnostic = findings.at(statement.begin_of(*rest.item), statement.last_of(*rest.item));
    diagnostic.text = std::to_string(count) + (count == 1 ? " rest of P" : " rests of P") +
                      std::to_string(statement.field->number) + (count == 1 ? " sounds" : " sound") +
                      ", as the number -1.";
    diagnostic.advice.push_back(ADVICE[static_cast<std::size_t>(rest.reason)]);
    findings.add(std::move(diagnostic));
}

}  // namespace vorn::kit::rules
