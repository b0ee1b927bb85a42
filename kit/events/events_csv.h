#pragma once

#include "kit/events/event_columns.h"

namespace vorn::kit {

// One header line, then a line for each event, in the order of the score:
//
//     block,instrument,file,line,start,start_written,duration,duration_written,beat,p4,p4_written
//     1,3,piece.vorn,2,0,0.000,0.5,0.500,0,48,261.62557
//
// As many p-fields as the block that has most of them. What there is not is empty: p-fields
// of the smaller blocks, values that are no finite numbers, forms that the score does not write.
// Quoted as RFC 4180 (Shafranovich, 2005) has it, with line feeds as line ends. False: the sink
// has not taken all of it.
[[nodiscard]] bool write_events_csv(const ScoreRun& run, const EventsOptions& options, TextSink& sink);

}  // namespace vorn::kit
