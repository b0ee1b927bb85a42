#include "kit/lint/lint.h"

#include <algorithm>
#include <tuple>

#include "kit/lint/rules.h"

// The table of rules, and the walk that asks each of them.

namespace vorn::kit {

namespace {

struct StatementRule {
    const char* code;
    void (*find)(const Statement& statement, Findings& findings);
};

struct RunRule {
    const char* code;
    void (*find)(const ScoreRun& run, Findings& findings);
    bool for_midi = false;
};

constexpr StatementRule STATEMENT_RULES[] = {
    {"L1", rules::flats_spelt_with_b},  {"L2", rules::decimal_comma},
    {"L3", rules::values_run_together}, {"L6", rules::chord_in_start_loop},
    {"L7", rules::beats_of_last_tempo}, {"L10", rules::setting_behind_loop},
    {"L11", rules::unclosed_loop},      {"L12", rules::values_dropped},
    {"L16", rules::rests_that_sound},   {"L18", rules::times_behind_loop},
};

constexpr RunRule RUN_RULES[] = {
    {"L4", rules::text_behind_block},
    {"L5", rules::start_just_before_end},
    {"L8", rules::blocks_drift},
    {"L9", rules::digits_lost},
    {"L13", rules::blocks_behind_first, true},
    {"L14", rules::beyond_midi_values, true},
    {"L15", rules::voices_on_one_key, true},
    {"L17", rules::blocks_of_rests},
    {"L19", rules::condition_not_read},
};

void sort_by_place(std::vector<Diagnostic>& diagnostics) {
    const auto key = [](const Diagnostic& diagnostic) {
        return std::tuple(diagnostic.span.file < 0, diagnostic.span.file, diagnostic.span.begin);
    };
    std::stable_sort(diagnostics.begin(), diagnostics.end(),
                     [key](const Diagnostic& a, const Diagnostic& b) { return key(a) < key(b); });
}

// Whether a warning tells the same: of values that are dropped, of a loop that is not closed.
bool is_warning_by_code(const std::string& warning, const std::string& found) {
    return found == "L12" ? warning == "W10" || warning == "W12" : found == "L11" && warning == "W15";
}

// Whether the engine has warned of the same place, or of one within it.
bool is_warning_of(const Diagnostic& warning, const Diagnostic& found) {
    if (!is_warning_by_code(warning.code, found.code)) return false;
    const bool is_in_file = warning.span.file == found.span.file && warning.span.begin <= found.span.end &&
                            warning.span.end >= found.span.begin;
    const bool is_in_expansion =
        warning.expanded_begin <= found.expanded_end && warning.expanded_end >= found.expanded_begin;
    return is_in_file && (found.through.empty() || is_in_expansion);
}

// Among the first `count` the one that warns of the same, looked for from `from` on; `count`: none.
std::size_t find_warning(const std::vector<Diagnostic>& warnings, std::size_t count, std::size_t from,
                         const Diagnostic& found) {
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t at = (from + step) % count;
        if (is_warning_of(warnings[at], found)) return at;
    }
    return count;
}

// The warning gets the count or the statement, and marks all that is meant.
void join(Diagnostic& warning, const Diagnostic& found) {
    warning.span = found.span;
    warning.expanded_begin = found.expanded_begin;
    warning.expanded_end = found.expanded_end;
    warning.advice.insert(warning.advice.begin(), found.text);
}

}  // namespace

std::vector<Diagnostic> lint(const ScoreRun& run, const LintOptions& options) {
    Findings findings(run, options);
    for_each_statement(run, [&findings](const Statement& statement) {
        for (const StatementRule& rule : STATEMENT_RULES) {
            findings.set_code(rule.code);
            rule.find(statement, findings);
        }
    });
    for (const RunRule& rule : RUN_RULES) {
        if (rule.for_midi && !options.midi) continue;
        findings.set_code(rule.code);
        rule.find(run, findings);
    }
    std::vector<Diagnostic> found = findings.take();
    sort_by_place(found);
    return found;
}

void add_lint(std::vector<Diagnostic>& diagnostics, const ScoreRun& run, const LintOptions& options) {
    const std::size_t told = diagnostics.size();
    std::size_t behind = 0;  // the warning that was joined last: mostly the next one is it
    for (Diagnostic& found : lint(run, options)) {
        const std::size_t same = find_warning(diagnostics, told, behind, found);
        if (same == told) {
            diagnostics.push_back(std::move(found));
        } else {
            join(diagnostics[same], found);
            behind = same + 1;
        }
    }
    sort_by_place(diagnostics);
}

std::vector<std::string> lint_codes() {
    const std::size_t count = std::size(STATEMENT_RULES) + std::size(RUN_RULES);
    std::vector<std::string> codes;
    for (std::size_t number = 1; number <= count; ++number) codes.push_back("L" + std::to_string(number));
    return codes;
}

}  // namespace vorn::kit
