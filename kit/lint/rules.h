#pragma once

#include "kit/lint/findings.h"
#include "kit/lint/statement.h"

// The rules. Those of a statement are asked about each p-field statement in turn.

namespace vorn::kit::rules {

// --- value_rules.cpp ---
void flats_spelt_with_b(const Statement& statement, Findings& findings);
void decimal_comma(const Statement& statement, Findings& findings);
void values_run_together(const Statement& statement, Findings& findings);

// --- list_rules.cpp ---
void chord_in_start_loop(const Statement& statement, Findings& findings);
void setting_behind_loop(const Statement& statement, Findings& findings);
void times_behind_loop(const Statement& statement, Findings& findings);
void unclosed_loop(const Statement& statement, Findings& findings);
void values_dropped(const Statement& statement, Findings& findings);

// --- rest_rules.cpp ---
void rests_that_sound(const Statement& statement, Findings& findings);
void blocks_of_rests(const ScoreRun& run, Findings& findings);

// --- tempo_rules.cpp ---
void beats_of_last_tempo(const Statement& statement, Findings& findings);
void blocks_drift(const ScoreRun& run, Findings& findings);

// --- block_rules.cpp ---
void text_behind_block(const ScoreRun& run, Findings& findings);
void start_just_before_end(const ScoreRun& run, Findings& findings);

// --- constant_rules.cpp ---
void digits_lost(const ScoreRun& run, Findings& findings);

// --- condition_rules.cpp ---
void condition_not_read(const ScoreRun& run, Findings& findings);

// --- midi_rules.cpp ---
void blocks_behind_first(const ScoreRun& run, Findings& findings);
void beyond_midi_values(const ScoreRun& run, Findings& findings);
void voices_on_one_key(const ScoreRun& run, Findings& findings);

}  // namespace vorn::kit::rules
