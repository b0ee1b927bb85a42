// A reset gives every variable the value that it has before the first run.

#include "driver/reset.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "blocks/block_state.h"
#include "blocks/pitch_input.h"
#include "driver/files.h"
#include "driver/options.h"
#include "driver/temporary_file.h"
#include "generators/random.h"
#include "input/messages.h"
#include "input/run_flags.h"
#include "output/durations.h"
#include "output/event_list.h"
#include "output/output_file.h"
#include "output/tempo_map.h"
#include "output/value_queue.h"
#include "preproc/comment_state.h"
#include "preproc/conditionals.h"
#include "preproc/constant_list.h"
#include "preproc/macro_list.h"
#include "preproc/macro_scan.h"

namespace vorn::test {
namespace {

// Calls visit with the name and the variable, for each that is a number.
template <typename Visit>
void each_number(Visit visit) {
    visit("MESSAGES.used", MESSAGES.used);
    visit("MKLOG", MKLOG);
    visit("MKMIDI", MKMIDI);
    visit("MKEXP", MKEXP);
    visit("SUPRESS", SUPRESS);
    visit("SHOW_TEMPOS", SHOW_TEMPOS);
    visit("ON_TERMINAL", ON_TERMINAL);
    visit("IN_COMMENT", IN_COMMENT);
    visit("IF_MATCH", IF_MATCH);
    visit("IF_VALUE", IF_VALUE);
    visit("IN_IF0", IN_IF0);
    visit("IN_MACRO_DEF", IN_MACRO_DEF);
    visit("I_NO", I_NO);
    visit("MAX_PFIELDS", MAX_PFIELDS);
    visit("STIME", STIME);
    visit("SBEAT", SBEAT);
    visit("BEATS", BEATS);
    visit("EVENTS", EVENTS);
    visit("ETIME", ETIME);
    visit("CBEATS", CBEATS);
    visit("EVENT_NO", EVENT_NO);
    visit("P_NO", P_NO);
    for (int n = 0; n <= MAX_PFIELD_COUNT; ++n) visit("DID_P " + std::to_string(n), DID_P[n]);
    visit("IN_TYPE", IN_TYPE);
    visit("OUT_TYPE", OUT_TYPE);
    visit("IN_LOOP", IN_LOOP);
    visit("IS_FUSED", IS_FUSED);
    visit("WROTE_DATA", WROTE_DATA);
    visit("NX", NX);
    visit("PFACTOR", PFACTOR);
    visit("LAST_VAL", LAST_VAL);
    visit("MAX_DEV2", MAX_DEV2);
    visit("MAX_DEV", MAX_DEV);
    visit("SRATE", SRATE);
    visit("PITCH_OCTAVE", PITCH_OCTAVE);
    visit("last_dur", last_dur);
    visit("event_nodes", event_nodes);
    visit("event_values", event_values);
    visit("event_codes_set", event_codes_set);
    visit("queued_values", queued_values);
    visit("TOT_TEMPOS", TOT_TEMPOS);
    visit("TEMPO", TEMPO);
    visit("CUM_TIME", CUM_TIME);
    visit("LAST_IB_DUR", LAST_IB_DUR);
    visit("fout.used", fout.used);
    visit("fout.failed", fout.failed);
    TempoDef& tempo = TEMPO_LIST[0];
    visit("start_time", tempo.start_time);
    visit("start_tempo", tempo.start_tempo);
    visit("end_time", tempo.end_time);
    visit("end_tempo", tempo.end_tempo);
    visit("curve_type", tempo.curve_type);
    visit("curve_value", tempo.curve_value);
}

std::map<std::string, double> numbers() {
    std::map<std::string, double> found;
    each_number(
        [&](const std::string& name, const auto& value) { found[name] = static_cast<double>(value); });
    return found;
}

void change_numbers() {
    each_number([]<typename Number>(const std::string&, Number& value) {
        value = static_cast<Number>(value == 0 ? 1 : 0);
    });
}

std::vector<std::uint32_t> random_numbers() {
    std::vector<std::uint32_t> found(std::begin(random_state.word), std::end(random_state.word));
    found.push_back(static_cast<std::uint32_t>(random_state.next));
    return found;
}

// The one test of its program: what the variables are before any run is seen once.
TEST(Reset, GivesTheValuesFromBeforeTheFirstRun) {
    const std::map<std::string, double> before = numbers();
    const std::vector<std::uint32_t> random_before = random_numbers();
    for (const void* pointer : std::initializer_list<const void*>{
             OUTS, RE_FW, FFT_SZ, note_list, LUT, macro_list, var_list, fin, ftmp, fllog, fecho, in_fname,
             out_fname, log_fname, exp_fname, fout.stream, fout.data, event_arena.next}) {
        EXPECT_EQ(pointer, nullptr);
    }
    EXPECT_EQ(std_out, stdout);
    EXPECT_EQ(std_err, stderr);
    EXPECT_STREQ(tmp_fname, "");

    change_numbers();
    rand();
    reset_program();
    EXPECT_EQ(numbers(), before);
    EXPECT_EQ(random_numbers(), random_before);
}

}  // namespace
}  // namespace vorn::test
