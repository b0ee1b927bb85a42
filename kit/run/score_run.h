#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kit/run/expanded_text.h"
#include "kit/run/source_map.h"
#include "kit/run/sources.h"
#include "output/tempo_map.h"

// One run of Vorn over a score, and all that it has told: the form in which every
// tool of the kit gets at a score.

namespace vorn::kit {

// An error or a warning. Equal warnings of one place are one record.
struct RunMessage {
    Severity severity = Severity::ERROR;
    int number = 0;                  // 0: it has none
    std::string text;                // without "ERROR: Line 5:" and line ends around it
    FileSpan span;                   // file -1: of no place in a file
    LinePlace place;                 // in the expanded line
    std::string expanded_line;       // as readers saw it; empty when there was none
    std::vector<Expansion> through;  // calls that the place came out of, outermost first
    std::uint64_t repeats = 1;
};

// One p-field of a block. Types are command codes (src/blocks/command_codes.h).
struct FieldRecord {
    int number = 0;  // 2: P2
    int input_type = 0;
    int output_type = 0;
    std::uint32_t decimals = 0;
    std::int32_t fft_size = 0;
    FileSpan statement;             // from the "p" on; file -1: not known
    LinePlace begin;                // of the "p" in the expanded text
    LinePlace end;                  // of what comes behind the statement
    std::uint64_t event_count = 0;  // of the block behind the statement
};

// Events by columns; row n of `values` begins at n * (pfields - 3) and holds P4 and above.
// Times in seconds; a duration of 0 or less is a rest.
struct EventTable {
    std::vector<float> start;         // as the score has it, summed in single precision
    std::vector<double> exact_start;  // the same intervals summed in double precision
    std::vector<float> duration;
    std::vector<float> beat;
    std::vector<float> values;
    double exact_end = 0;  // where the interval of the last start ends

    std::size_t size() const { return start.size(); }
};

struct BlockRecord {
    int number = 0;  // as in the score's comment
    int instrument = 0;
    bool is_skipped = false;
    FileSpan header;         // the "i"
    FileSpan end;            // behind the "}"
    LinePlace header_place;  // in the expanded text; of several headers the last
    LinePlace end_place;
    float start_beat = 0;
    float start_seconds = 0;
    float length = 0;  // beats, or minus the number of events
    int pfields = 0;
    std::uint64_t sample_rate = 0;
    std::vector<FieldRecord> fields;  // P2 and above, by number
    EventTable events;

    std::size_t columns() const { return pfields > 3 ? static_cast<std::size_t>(pfields - 3) : 0; }
    // P(pfield) of event `row`, pfield 4 or above.
    float value(std::size_t row, int pfield) const {
        return events.values[row * columns() + static_cast<std::size_t>(pfield - 4)];
    }
};

// A block that has begun and not ended.
struct OpenBlock {
    FileSpan header;                  // the "i" of the first header
    LinePlace header_place;           // in the expanded text
    std::vector<FieldRecord> fields;  // that have been read, without what they are written as
};

struct TempoRecord {
    TempoDef definition = {};
    int index = 0;  // in the tempo map
    FileSpan span;
    std::size_t before_block = 0;  // index of the block that follows it
};

struct DirectLine {
    std::string text;
    FileSpan span;
    std::size_t before_block = 0;  // index of the block that follows it
};

struct SettingRecord {
    int command = 0;
    double value = 0;
    FileSpan span;             // of the value
    bool is_expanded = false;  // the value comes out of a macro or constant
};

struct ConstantRecord {
    std::string name;  // empty: an equation
    double value = 0;
    FileSpan span;            // of the value
    double exact_value = 0;   // what an equation had yielded before it became a text
    std::uint64_t calls = 0;  // by name, outside of equations
};

struct MacroRecord {
    std::string name;
    int argument_count = 0;
    std::string body;
    FileSpan span;  // of the body's beginning
};

struct ScoreRun {
    int status = 1;            // that of vorn
    bool is_relative = false;  // includes were looked up beside the including file
    double seconds = 0;        // the latest end of any event
    SourceMap map;             // files[0] is the score itself
    ExpandedText expanded;
    std::vector<RunMessage> messages;
    std::vector<BlockRecord> blocks;
    std::optional<OpenBlock> open_block;  // the run has ended within it
    std::vector<TempoRecord> tempos;      // as they were written
    std::vector<DirectLine> direct_lines;
    std::vector<SettingRecord> settings;
    std::vector<ConstantRecord> constants;
    std::vector<ConstantRecord> equations;  // among other text; those that draw are left out
    std::vector<MacroRecord> macros;
    std::vector<std::string> tried_includes;  // names under which an include was not found
};

extern const char* const NOWHERE;  // an output that keeps nothing

struct RunOptions {
    bool relative = false;         // includes are looked up beside the including file
    bool keep_events = true;       // false: blocks have no rows
    std::string output = NOWHERE;  // of the Csound score
};

// Runs the score `name` as vorn does. The engine has one state: one run at a time.
[[nodiscard]] ScoreRun run_score(const std::string& name, const RunOptions& options, Sources& sources);

}  // namespace vorn::kit
