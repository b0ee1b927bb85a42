#include "blocks/tempo_command.h"

#include "blocks/settings.h"
#include "generators/curve_reader.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/numbers.h"
#include "input/skip.h"
#include "output/tempo_map.h"

// Reads one tempo definition into the tempo map.
//
// The short form gives one tempo for the whole score and replaces entry 0; the
// long form gives a span of beats and the tempi at its ends. A definition from
// beat 0 also replaces entry 0; every other is written behind the last, up to
// the table's end. Whatever was given, the whole table is then searched for
// spans that overlap.
//
// Example: "te(8 16 60 120 l)" moves from 60 to 120 beats per minute between the
// beats 8 and 16, along a square root.

namespace vorn {

namespace {

constexpr float SHORT_FORM_END = 1000.0F;  // beat
constexpr float SHORT_FORM_CURVE = 0.0F;
constexpr float DEFAULT_CURVE = 1.0F;  // kept on purpose: without a letter x^2, not the straight line
constexpr float DEFAULT_CURVE_VALUE = 1.0F;
constexpr float FAST_TEMPO = 300.0F;
constexpr float SLOW_TEMPO = 30.0F;
constexpr float LATE_BEAT = 600.0F;

// A number and what separates it from the next term.
int read_term(Reader& reader, float& value, int error_number) {
    if (!get_f(value, reader.text, reader.pos)) return error_number;
    return skip_stuff(reader);
}

// end-beat start-tempo end-tempo [curve]
// pos rests on what should be ")".
int read_terms(Reader& reader, TempoDef& entry) {
    if (const int failed = read_term(reader, entry.end_time, error::TEMPO_TERM2)) return failed;
    if (const int failed = read_term(reader, entry.start_tempo, error::TEMPO_TERM3)) return failed;
    if (const int failed = read_term(reader, entry.end_tempo, error::TEMPO_TERM4)) return failed;
    entry.curve_type = DEFAULT_CURVE;
    entry.curve_value = DEFAULT_CURVE_VALUE;
    if (!is_letter(reader.text[reader.pos])) return 0;
    return get_curve_type(reader, entry.curve_type, entry.curve_value, false);
}

int range_error(const TempoDef& entry) {
    if (!good_time(entry.start_time)) return error::TEMPO_START_RANGE;
    if (!good_time(entry.end_time)) return error::TEMPO_END_RANGE;
    if (!good_tempo(entry.start_tempo)) return error::START_TEMPO_RANGE;
    if (!good_tempo(entry.end_tempo)) return error::END_TEMPO_RANGE;
    if (entry.start_time > entry.end_time) return error::TEMPO_TIMES_BACKWARDS;
    return 0;
}

void warn_tempo(const Reader& reader, float tempo, int fast, int slow) {
    if (tempo > FAST_TEMPO)
        warning_no(fast, reader);
    else if (tempo < SLOW_TEMPO)
        warning_no(slow, reader);
}

void warn_unusual(const Reader& reader, const TempoDef& entry) {
    if (entry.start_time > LATE_BEAT) warning_no(warning::TEMPO_STARTS_LATE, reader);
    if (entry.end_time > LATE_BEAT) warning_no(warning::TEMPO_CHANGE_LONG, reader);
    warn_tempo(reader, entry.start_tempo, warning::TEMPO1_FAST, warning::TEMPO1_SLOW);
    warn_tempo(reader, entry.end_tempo, warning::TEMPO2_FAST, warning::TEMPO2_SLOW);
}

// Error 27 for a definition that the table has no room for; the table is then as it was.
int store(const TempoDef& entry) {
    if (entry.start_time == 0.0F) {
        TEMPO_LIST[0] = entry;
        return 0;
    }
    if (TOT_TEMPOS >= MAX_TEMPOS) return error::DATA_OUT_OF_BOUNDS;
    TEMPO_LIST[TOT_TEMPOS++] = entry;
    return 0;
}

// ")" behind the only term.
int finish_short_form(Reader& reader, float tempo) {
    ++reader.pos;
    if (!good_tempo(tempo)) return error::BAD_TEMPO;
    TempoDef& entry = TEMPO_LIST[0];  // its curve value stays
    entry.start_time = 0.0F;
    entry.start_tempo = tempo;
    entry.end_time = SHORT_FORM_END;
    entry.end_tempo = tempo;
    entry.curve_type = SHORT_FORM_CURVE;
    warn_tempo(reader, tempo, warning::TEMPO1_FAST, warning::TEMPO1_SLOW);
    return 0;
}

// end-beat start-tempo end-tempo [curve] ")"
int finish_long_form(Reader& reader, float start_time) {
    TempoDef entry = {};
    entry.start_time = start_time;
    if (const int failed = read_terms(reader, entry)) return failed;
    if (const int failed = range_error(entry)) return failed;
    warn_unusual(reader, entry);
    if (const int failed = store(entry)) return failed;
    // Kept on purpose: a definition is in the table before its ")" is looked for.
    if (reader.text[reader.pos] != ')') return error::MISSING_PARENTHESIS;
    ++reader.pos;
    return 0;
}

}  // namespace

int get_tempo_change(Reader& reader) {
    const LinePlace begin = place(reader);
    if (const int failed = good_cmd_format(reader.text, reader.pos)) return failed;
    ++reader.pos;
    float first = 0.0F;
    if (const int failed = read_term(reader, first, error::TEMPO_TERM1)) return failed;
    const bool is_short = reader.text[reader.pos] == ')';
    const int failed = is_short ? finish_short_form(reader, first) : finish_long_form(reader, first);
    if (failed != 0) return failed;
    if (reader.observer != nullptr) {
        const int index = is_short || first == 0.0F ? 0 : TOT_TEMPOS - 1;
        reader.observer->on_tempo(TEMPO_LIST[index], index, begin);
    }
    check_tempos(reader);
    return 0;
}

}  // namespace vorn
