#include <algorithm>

#include "blocks/command_codes.h"
#include "input/errors.h"
#include "kit/lint/rules.h"
#include "output/tempo_map.h"

// Loops and lists that do not do what they look like.

namespace vorn::kit::rules {

namespace {

bool changes_values(const Item& item) {
    return item.kind == ItemKind::SETTING &&
           (item.code == CODE_PF || item.code == CODE_DV || item.code == CODE_RD);
}

// What a list asks for, in values; without generators, of which it cannot be known.
struct Demand {
    std::uint64_t values = 0;
    bool to_the_end = false;  // "x0"
};

// A row of n slashes, and "x" n, give n values in all.
Demand demand_of(Items items) {
    Demand demand;
    std::uint64_t slashes = 0;
    for (const Item& item : items) {
        if (item.in_generator) continue;
        slashes = item.kind == ItemKind::SLASH ? slashes + 1 : 0;
        if (item.kind == ItemKind::VALUE || slashes > 1) ++demand.values;
        if (item.kind != ItemKind::TIMES) continue;
        if (item.times == 0) demand.to_the_end = true;
        demand.values += item.times > 0 ? item.times - 1 : 0;
    }
    return demand;
}

// The first item that the block had no event for, or that it ended within.
std::size_t first_dropped(const Statement& statement) {
    const auto first = std::find_if(statement.items.begin(), statement.items.end(),
                                    [&](const Item& item) { return statement.is_dropped(item); });
    return static_cast<std::size_t>(first - statement.items.begin());
}

// A list of single values alone, so that each stands for one event.
bool is_plain_list(const Statement& statement) {
    return !statement.has(ItemKind::GENERATOR) && !statement.has(ItemKind::FUSION);
}

void add_dropped(const Statement& statement, std::size_t first, std::uint64_t count, Findings& findings) {
    Diagnostic diagnostic =
        findings.at(statement.begin_of(statement.items[first]), statement.last_of(statement.items.back()));
    const std::uint64_t events = statement.field->event_count;
    diagnostic.text = std::to_string(count) + (count == 1 ? " value of P" : " values of P") +
                      std::to_string(statement.field->number) + (count == 1 ? " has" : " have") +
                      " no event: the block has " + std::to_string(events) + ".";
    diagnostic.advice.push_back("Lengthen the block or shorten the list.");
    findings.add(std::move(diagnostic));
}

// Where the rounds of the first loop end; the number of items: there is none.
std::size_t loop_end(const Statement& statement) {
    const auto end = std::find_if(statement.items.begin(), statement.items.end(),
                                  [](const Item& item) { return item.kind == ItemKind::LOOP_CLOSE; });
    return static_cast<std::size_t>(end - statement.items.begin());
}

// Whether events are left behind the list, for which the loop begins anew.
bool goes_on(const Statement& statement) {
    if (statement.full.line > 0) return false;
    return statement.has(ItemKind::GENERATOR) ||
           demand_of(statement.items).values < statement.field->event_count;
}

bool is_in_beats(const BlockRecord& block) { return block.length > 0; }

// Whether the intervals of P2 end before the block does. The engine's beats run ahead, for they
// count all values of a chord; each interval has been converted at the tempo of its beat.
// Deviations may have taken a quarter of the last one.
bool falls_short(const BlockRecord& block) {
    const EventTable& events = block.events;
    double beats = 0;
    double interval = 0;
    for (std::size_t row = 0; row < events.size(); ++row) {
        const bool is_last = row + 1 == events.size();
        const double end = is_last ? events.exact_end : events.exact_start[row + 1];
        if (end <= events.exact_start[row]) continue;
        interval = (end - events.exact_start[row]) * double{find_tempo(events.beat[row])} / 60;
        beats += interval;
    }
    return interval > 0 && beats + interval / 4 < double{block.length};
}

// How many of the items at `first` repeat the value before them: "x2", or slashes.
std::size_t repeating(Items items, std::size_t first) {
    std::size_t end = first;
    while (end < items.size() && items[end].kind == ItemKind::SLASH) ++end;
    if (end > first) return end > first + 1 ? end - first : 0;
    return end < items.size() && items[end].kind == ItemKind::TIMES && items[end].times != 1 ? 1 : 0;
}

}  // namespace

// The mark of a chord that is repeated counts as an event, which makes the length one in events.
void chord_in_start_loop(const Statement& statement, Findings& findings) {
    if (statement.field->number != 2 || !is_in_beats(*statement.block)) return;
    bool in_loop = false;
    for (const Item& item : statement.items) {
        if (item.kind == ItemKind::LOOP_OPEN) in_loop = true;
        if (item.kind == ItemKind::LOOP_CLOSE) in_loop = false;
        if (item.kind != ItemKind::FUSION || item.in_generator || !in_loop) continue;
        if (!falls_short(*statement.block)) return;
        Diagnostic diagnostic = findings.at(statement.begin_of(item), statement.last_of(item));
        diagnostic.text = "A chord in a loop of P2 ends the loop early: the block has " +
                          std::to_string(statement.field->event_count) + " events and does not fill its " +
                          number_text(double{statement.block->length}) + " beats.";
        diagnostic.advice.push_back(
            "Give the block's length as a number of events, or write the chord in P4 or above.");
        return findings.add(std::move(diagnostic));
    }
}

void setting_behind_loop(const Statement& statement, Findings& findings) {
    if (!statement.is_whole || !goes_on(statement)) return;
    for (std::size_t n = loop_end(statement); n < statement.items.size(); ++n) {
        const Item& item = statement.items[n];
        if (!changes_values(item)) continue;
        Diagnostic diagnostic = findings.at(statement.begin_of(item), statement.last_of(item));
        diagnostic.text =
            "\"" + statement.text(item) +
            "\" stands behind the loop: its first round goes without it, the later ones have it.";
        diagnostic.advice.push_back("Write it before the \"<\" for all rounds.");
        findings.add(std::move(diagnostic));
    }
}

// "< 60 62 > x2" and "< 60 62 > //" are 60 62 62, and then the loop from its beginning.
void times_behind_loop(const Statement& statement, Findings& findings) {
    const Items items = statement.items;
    for (std::size_t n = 1; n < items.size(); ++n) {
        if (items[n - 1].kind != ItemKind::LOOP_CLOSE) continue;
        const std::size_t count = repeating(items, n);
        if (count == 0 || statement.is_dropped(items[n])) continue;
        const Items row = items.subspan(n, count);
        Diagnostic diagnostic = findings.at(statement.begin_of(items[n - 1]), statement.last_of(row.back()));
        diagnostic.text =
            "\"" + statement.text(row) + "\" repeats the last value of the loop, and not the loop.";
        diagnostic.advice.push_back(
            "A loop goes on up to the end of the block by itself; for some rounds of it write its values.");
        findings.add(std::move(diagnostic));
    }
}

void unclosed_loop(const Statement& statement, Findings& findings) {
    if (!statement.is_whole || statement.has(ItemKind::LOOP_CLOSE)) return;
    for (const Item& item : statement.items) {
        if (item.kind != ItemKind::LOOP_OPEN || statement.is_dropped(item)) continue;
        Diagnostic diagnostic = findings.at(statement.begin_of(item), statement.last_of(item));
        diagnostic.text = "This loop is not closed: it ends with the statement of P" +
                          std::to_string(statement.field->number) + ".";
        diagnostic.advice.push_back("Write \">\" where the loop ends.");
        return findings.add(std::move(diagnostic));
    }
}

// Behind "x0", which fills a block on purpose, only what follows counts.
void values_dropped(const Statement& statement, Findings& findings) {
    if (statement.full.line == 0 || statement.items.empty()) return;
    const std::size_t first = first_dropped(statement);
    const Items items(statement.items);
    const Demand demand = demand_of(items.subspan(0, first));
    std::uint64_t count = demand_of(items.subspan(first)).values;
    if (is_plain_list(statement) && !demand.to_the_end) {
        const std::uint64_t all = demand_of(items).values;
        count = all - std::min(all, statement.field->event_count);
    }
    if (count == 0) return;
    add_dropped(statement, std::min(first, items.size() - 1), count, findings);
}

}  // namespace vorn::kit::rules
