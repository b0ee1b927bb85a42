#include "web/vorn-wasm/engine/expanded_lines.h"

#include <algorithm>

// A line of the score leads back to its file by its beginning; one that begins with a
// call leads to the call, which stands on the same line.

namespace vorn::web {

namespace {

constexpr std::size_t MOST_READINGS = 100;

struct Stretch {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;  // behind the line's own end
};

Stretch stretch_of(const kit::SourceFile& file, std::size_t line) {
    const std::size_t begin = file.index.line_begin(line - 1);
    return {begin, begin + file.index.line(file.text, line - 1).size() + 1};
}

std::size_t count_lines(const kit::SourceFile& file) { return file.index.line_of(file.text.size()) + 1; }

std::string without_end(std::string_view text) {
    return std::string(text.substr(0, text.find_last_not_of(" \t") + 1));
}

}  // namespace

std::vector<std::string> expanded_lines(const kit::ScoreRun& run, std::string_view file, std::size_t line) {
    std::vector<std::string> found;
    for (std::uint64_t number = 1; number <= run.expanded.lines() && found.size() < MOST_READINGS; ++number) {
        const kit::FileSpan span = run.map.find({number, 0});
        if (span.file < 0) continue;
        const kit::SourceFile& source = run.map.files()[static_cast<std::size_t>(span.file)];
        if (source.name != file || line == 0 || line > count_lines(source)) continue;
        const Stretch stretch = stretch_of(source, line);
        if (span.begin < stretch.begin || span.begin >= stretch.end) continue;
        found.push_back(without_end(run.expanded.line(number)));
    }
    return found;
}

}  // namespace vorn::web
