#include "generators/ddf.h"

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/timing.h"
#include "generators/arithmetic.h"
#include "generators/ddf_p2.h"
#include "generators/ex.h"
#include "generators/ho.h"
#include "generators/mo.h"
#include "generators/ms.h"
#include "generators/ra.h"
#include "generators/rw.h"
#include "generators/se.h"
#include "input/errors.h"
#include "input/messages.h"
#include "output/value_queue.h"

// The driver of all data-defining functions but S2. A kind brings a record, its
// reader and the routine that makes a value; everything else is common:
//
//     read, check the weights, count the events, then for each event
//     choose a sub-range, make a value, round, deviate and store it
//
// What a function has read is released when it ends, however it ends. An event
// takes its numbers from the random sequence in a fixed order: the choice of
// the sub-range, what the kind draws, the deviation.

namespace vorn {

namespace {

// Stores one value in P3 or above. A loop's repetition gets it undeviated,
// after its store has used up a pending fusion mark: kept on purpose. P3 uses
// none up, so there the mark goes with the value, as in a data list.
int store_generated(const Reader& reader, Statement& statement, float value) {
    if (P_NO == 3) {
        store_p3(reader, statement.cursor, value);
    } else if (const int result = store_p4(statement, value)) {
        return result;
    }
    if (IN_LOOP == 0) return 0;
    const auto fused = static_cast<std::uint32_t>(IS_FUSED);
    return StoreInQ(statement.queue, fused, value) ? 0 : error::OUT_OF_MEMORY;
}

// Fills one event and moves `progress` behind it.
int fill_event(const ValueMaker& maker, Progress& progress, const Reader& reader, Statement& statement) {
    progress.event = next_event(statement);
    float value = 0;
    const std::uint32_t sub_range = choose_sub_range(*maker.weights);
    if (const int result = maker.make_value(maker.data, sub_range, progress, value)) return result;
    if (IN_TYPE == CODE_IN) value = RoundF(value);
    LAST_VAL = value;
    if (const int result = store_generated(reader, statement, value)) return result;
    ++EVENT_NO;
    ++progress.index;
    return 0;
}

// P3 and above: fills the events that the function covers.
int fill_events(const ValueMaker& maker, const Reader& reader, Statement& statement) {
    Progress progress = measure_span(maker.time, statement, reader);
    while (progress.index < progress.count) {
        if (out_of_time()) {
            warning_no(warning::DDF_TRUNCATED, reader);
            statement.block_full = true;
            return 0;
        }
        if (const int result = fill_event(maker, progress, reader, statement)) return result;
    }
    return 0;
}

// One whole function of a kind, given by its record, reader and value maker.
template <typename Data, int get_data(Data&, Reader&),
          int make_value(Data&, std::uint32_t, const Progress&, float&)>
int run_function(Reader& reader, Statement& statement) {
    Data data;
    if (const int result = get_data(data, reader)) return result;
    if (const int result = close_weights(data.weights)) return result;
    const ValueMaker maker{
        data.time, &data.weights, &data,
        [](void* records, std::uint32_t sub_range, const Progress& progress, float& value) {
            return make_value(*static_cast<Data*>(records), sub_range, progress, value);
        }};
    if (P_NO == 2) return create_events(maker, reader, statement);
    return fill_events(maker, reader, statement);
}

struct DdfRow {
    DdfKind kind;
    int (*run)(Reader& reader, Statement& statement);
};

constexpr DdfRow DDF_TABLE[] = {
    {DdfKind::RA, run_function<RaData, get_RA_data, make_RA>},
    {DdfKind::RW, run_function<RwData, get_RW_data, make_RW>},
    {DdfKind::MO, run_function<MoData, get_MO_data, make_MO>},
    {DdfKind::SE, run_function<SeData, get_SE_data, make_SE>},
    {DdfKind::EX, run_function<ExData, get_EX_data, make_EX>},
    {DdfKind::MS, run_function<MsData, get_MS_data, make_MS>},
    {DdfKind::HO, run_function<HoData, get_HO_data, make_HO>},
};

}  // namespace

int do_DDF(DdfKind kind, Reader& reader, Statement& statement) {
    for (const DdfRow& row : DDF_TABLE) {
        if (row.kind == kind) return row.run(reader, statement);
    }
    return error::INVALID_COMMAND;
}

}  // namespace vorn
