#include "generators/s2.h"

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/input_values.h"
#include "blocks/timing.h"
#include "generators/arithmetic.h"
#include "generators/ddf.h"
#include "input/characters.h"
#include "input/errors.h"
#include "input/messages.h"
#include "input/skip.h"

// Sets with chords. An element of several values gives its first to the present
// event and each further one to an event of its own at the same time:
//
//     S2(T 1 [60 64'67])     60, or 64 and 67 together
//     S2(T 1 c4e4g4)         the marks may be left out: kept on purpose
//     S2(T 1 60-64)          60 and -64 together, likewise
//
// Each further value makes the block longer by one event. The number of
// elements that the function takes was fixed before, so chords are not cut.

namespace vorn {

namespace {

bool ends_element(char c) { return c == 0 || is_space(c) || c == ')' || c == ',' || c == '/' || c == ']'; }

bool is_chord_mark(char c) { return c == '\'' || c == ':'; }

// value
int get_value(S2Data& data, Reader& reader, int bad_value) {
    float value = 0;
    // The value readers skip blanks, but a blank behind a mark ends the element.
    if (ends_element(reader.text[reader.pos])) return bad_value;
    if (!get_input_type(value, reader.text, reader.pos)) return bad_value;
    return data.values.append(value) ? 0 : error::OUT_OF_MEMORY;
}

// value { ["'" | ":"] value }
int get_S2_element(S2Data& data, Reader& reader, int bad_value) {
    const std::size_t first = data.values.size();
    if (const int result = get_value(data, reader, bad_value)) return result;
    while (!ends_element(reader.text[reader.pos])) {
        if (is_chord_mark(reader.text[reader.pos])) ++reader.pos;
        if (const int result = get_value(data, reader, bad_value)) return result;
    }
    return data.elements.append({first, data.values.size() - first}) ? 0 : error::OUT_OF_MEMORY;
}

// element | "[" element { element } "]"
int get_elements(S2Data& data, std::size_t& count, Reader& reader) {
    count = 1;
    if (reader.text[reader.pos] != '[') return get_S2_element(data, reader, error::MISSING_VALUE);
    ++reader.pos;
    if (const int result = skip_stuff(reader)) return result;
    for (count = 0; reader.text[reader.pos] != ']'; ++count) {
        if (count == MAX_SET_ELEMENTS) return error::BAD_BRACKET_VALUE;
        if (const int result = get_S2_element(data, reader, error::BAD_BRACKET_VALUE)) return result;
        if (const int result = skip_stuff(reader)) return result;
    }
    if (count == 0) return error::NOTHING_ENTERED;  // and not error 39 as elsewhere: kept on purpose
    ++reader.pos;
    return 0;
}

// weight ["*" | "x"] elements
int get_sub_range(S2Data& data, Reader& reader) {
    if (const int result = get_weight(data.weights, reader, error::MISSING_WEIGHT)) return result;
    SetMode mode = SetMode::REPETITION;
    if (const int result = get_set_mode(mode, reader)) return result;
    std::size_t count = 0;
    if (!data.first_element.append(data.elements.size())) return error::OUT_OF_MEMORY;
    if (const int result = get_elements(data, count, reader)) return result;
    if (const int result = add_set_choice(data.choices, static_cast<std::uint32_t>(count), mode))
        return result;
    return skip_stuff(reader);
}

// Stores one value of an element, undeviated in the queue of an open loop.
int store_chord_value(Statement& statement, float value, bool fused) {
    IS_FUSED = fused ? 1 : 0;
    if (const int result = store_p4(statement, value)) return result;
    if (IN_LOOP == 0) return 0;
    return StoreInQ(statement.queue, fused ? 1 : 0, value) ? 0 : error::OUT_OF_MEMORY;
}

// The values go into the list as they were written; only LAST_VAL is rounded
// for integer input: kept on purpose.
int store_element(const S2Data& data, const SetElement& element, Statement& statement) {
    const float* value = data.values.data() + element.first_value;
    if (const int result = store_chord_value(statement, value[0], false)) return result;
    for (std::size_t i = 1; i < element.size; ++i) {
        ++EVENTS;
        ++EVENT_NO;
        if (const int result = store_chord_value(statement, value[i], true)) return result;
    }
    const float last = value[element.size - 1];
    LAST_VAL = IN_TYPE == CODE_IN ? RoundF(last) : last;
    ++EVENT_NO;
    return 0;
}

const SetElement& choose_element(S2Data& data) {
    const std::uint32_t set = choose_sub_range(data.weights);
    const std::uint32_t element = get_set_element(data.choices.set[set]);
    return data.elements[data.first_element[set] + element - 1];
}

}  // namespace

int get_S2_data(S2Data& data, Reader& reader) {
    if (P_NO < 4) return error::S2_BELOW_P4;
    if (const int result = read_sub_ranges(data, reader, get_sub_range)) return result;
    if (const int result = init_did(data.choices)) return result;
    return close_weights(data.weights);
}

int do_S2(Reader& reader, Statement& statement) {
    S2Data data;
    if (const int result = get_S2_data(data, reader)) return result;
    Progress progress = measure_span(data.time, statement, reader);
    for (; progress.index < progress.count; ++progress.index) {
        if (out_of_time()) {
            warning_no(warning::DDF_TRUNCATED, reader);
            statement.block_full = true;
            return 0;
        }
        if (const int result = store_element(data, choose_element(data), statement)) return result;
    }
    return 0;
}

}  // namespace vorn
