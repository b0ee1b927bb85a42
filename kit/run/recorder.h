#pragma once

#include <map>
#include <optional>
#include <string>

#include "kit/run/score_run.h"

namespace vorn::kit {

// Writes down what a run tells.
class Recorder final : public Observer {
public:
    Recorder(ScoreRun& run, const RunOptions& options, Sources& sources)
        : run_(run), options_(options), sources_(sources) {
        run.is_relative = options.relative;
    }

    void on_source(const SourceSpan& span) override;
    void on_line(const SourceLine& line) override;
    void on_splice(const Splice& splice) override;
    void on_message(const Message& message) override;
    void on_setting(const Setting& setting) override;
    void on_constant(const ConstantDefinition& constant) override;
    void on_macro(const MacroDefinition& macro) override;
    void on_tempo(const TempoDef& tempo, int index, const LinePlace& begin) override;
    void on_direct_line(const char* text, const LinePlace& begin) override;
    void on_header(const LinePlace& begin) override;
    void on_pfield(const PfieldStatement& statement) override;
    void on_block(const Block& block) override;
    void on_end(int status, double seconds) override;
    std::FILE* open_source(const char* name, const char* includer) override;
    bool has_open(const char* name, const char* includer) override;

private:
    // Seconds from the block's start, before anything was cut to single precision.
    struct ExactStart {
        const ListNode* event;
        double seconds;
    };

    std::string resolve(const std::string& name) const;
    FileSpan span_between(const LinePlace& begin, std::int32_t end) const;
    void sum_intervals(const ListNode* tail);
    void copy_events(BlockRecord& block, const ListNode* tail) const;
    void note_equation(const Splice& splice);
    void place_message(RunMessage& record, const Message& message) const;
    void count_message(RunMessage&& record);

    ScoreRun& run_;
    const RunOptions& options_;
    Sources& sources_;
    int opened_ = -1;                               // the file that was opened last
    std::vector<int> open_files_;                   // by depth: the file that is copied there
    LinePlace equation_;                            // the one expanded last, where its text now stands
    std::map<std::string, std::size_t> constants_;  // index by name
    LinePlace header_;                              // read last
    std::optional<std::size_t> more_;               // the message that counts further ones
    // Of the block that is being read:
    std::vector<FieldRecord> fields_;  // by number
    std::vector<ExactStart> starts_;   // of the events that P2 has made, in their order
    double end_ = 0;                   // of the interval of the last of them
};

}  // namespace vorn::kit
