#pragma once

#include "kit/events/event_columns.h"

namespace vorn::kit {

// All that a run has told as JSON, version 1: kit/schema/events.schema.json describes
// it, docs/events.md explains it. A run that was refused is told as far as it came.
// False: the sink has not taken all of it.
[[nodiscard]] bool write_events_json(const ScoreRun& run, const EventsOptions& options, TextSink& sink);

}  // namespace vorn::kit
