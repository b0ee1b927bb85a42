#pragma once

#include <map>
#include <string>
#include <utility>

#include "kit/run/score_run.h"

// Scores of tests are texts by name; no file is read.

namespace vorn::kit::test {

class TableSources final : public Sources {
public:
    TableSources() = default;
    explicit TableSources(std::map<std::string, std::string> texts) : texts_(std::move(texts)) {}
    TableSources(std::initializer_list<std::pair<const std::string, std::string>> texts) : texts_(texts) {}

    std::optional<std::string> read(const std::string& name) override {
        const auto found = texts_.find(name);
        return found == texts_.end() ? std::nullopt : std::optional(found->second);
    }

private:
    std::map<std::string, std::string> texts_;
};

// The run of one text, "in.vorn".
inline ScoreRun run_text(const std::string& text, const RunOptions& options = {}) {
    TableSources sources{{"in.vorn", text}};
    return run_score("in.vorn", options, sources);
}

}  // namespace vorn::kit::test
