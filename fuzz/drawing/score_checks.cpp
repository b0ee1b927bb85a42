#include "drawing/score_checks.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <vector>

#include "support/midi_dump.h"
#include "support/run_case.h"

// All files of a run stand below a folder of this process: below TMPDIR when that
// is set, else in memory where the system has such a place. TMPDIR then names it, so that
// the temporary file comes there, too, and an empty folder afterwards shows that none was left.

namespace vorn::fuzz {

namespace {

namespace fs = std::filesystem;
using test::RunResult;

class PrivateFolder {
public:
    PrivateFolder() {
        const bool has_memory = std::getenv("TMPDIR") == nullptr && fs::is_directory("/dev/shm");
        std::string name =
            ((has_memory ? fs::path("/dev/shm") : fs::temp_directory_path()) / "vorn-fuzz-XXXXXX");
        if (mkdtemp(name.data()) == nullptr) std::abort();
        path_ = name;
        setenv("TMPDIR", name.c_str(), 1);
    }
    ~PrivateFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    bool is_empty() const { return fs::is_empty(path_); }

private:
    fs::path path_;
};

const PrivateFolder& private_folder() {
    static const PrivateFolder folder;
    return folder;
}

bool is_number(std::string_view word) {
    if (word.starts_with('-')) word.remove_prefix(1);
    if (word == "inf" || word == "nan") return true;
    const std::size_t point = std::min(word.find('.'), word.size());
    const std::string_view whole = word.substr(0, point);
    const std::string_view fraction = word.substr(std::min(point + 1, word.size()));
    const auto has_digits_only = [](std::string_view digits) {
        return digits.find_first_not_of("0123456789") == digits.npos;
    };
    return !whole.empty() && has_digits_only(whole) && has_digits_only(fraction) && !word.ends_with('.');
}

// How many numbers stand behind "i3 " of "i3 0.000 1.000 ..."; -1 where something else stands.
int count_numbers(const std::string& line, const std::string& start) {
    if (!line.starts_with(start)) return -1;
    std::istringstream words(line.substr(start.size()));
    int count = 0;
    for (std::string word; words >> word; ++count) {
        if (!is_number(word)) return -1;
    }
    return count;
}

// Reads ";I-block #2 (i32767):" with the number that it should have; gives what its block's lines
// begin with, "i32767 ", or nothing where another line stands.
std::string line_start(std::string_view heading, int number) {
    const std::string start = ";I-block #" + std::to_string(number) + " (i";
    if (!heading.starts_with(start) || !heading.ends_with("):")) return {};
    heading.remove_prefix(start.size());
    heading.remove_suffix(2);
    const bool is_digits = heading.find_first_not_of("0123456789") == heading.npos;
    return heading.empty() || !is_digits ? std::string() : "i" + std::string(heading) + " ";
}

// Outside blocks stand the end and the score's own text, which the grammar begins with a blank or ";".
bool may_stand_outside(const std::string& line, bool is_last) {
    return line.empty() || line[0] == ' ' || line[0] == ';' || (is_last && line == "e");
}

// Behind the heading of each block stand its lines, up to a blank one; none, not
// even that, where all is rests. Such a block is not counted: its number stands
// over the next one, too.
class ScoreLines {
public:
    explicit ScoreLines(const DrawnScore& score)
        : is_valid_(score.valid), columns_(score.valid ? score.columns : std::vector<int>()) {}

    std::string problem(const std::string& line, bool is_last) {
        if (line.starts_with(";I-block #")) return heading_problem(line);
        if (line.empty() || (is_first_ && line[0] != 'i')) in_block_ = false;
        if (in_block_ && is_first_) ++number_;
        is_first_ = false;
        if (in_block_ && !is_well_formed(line)) return "a line that is not well formed: " + line;
        if (!in_block_ && is_valid_ && !may_stand_outside(line, is_last))
            return "a line that belongs to nothing: " + line;
        return {};
    }
    std::string problem_at_end() const {
        return is_valid_ && headings_ != columns_.size() ? "too many headings or too few" : "";
    }

private:
    std::string heading_problem(const std::string& heading) {
        start_ = line_start(heading, number_);
        if (start_.empty()) return "a heading that is not well formed: " + heading;
        in_block_ = is_first_ = true;
        expected_ = headings_ < columns_.size() ? columns_[headings_] : 0;
        ++headings_;
        return {};
    }

    bool is_well_formed(const std::string& line) {
        const int count = count_numbers(line, start_);
        if (expected_ == 0) expected_ = count;
        return count >= 2 && count == expected_;
    }

    bool is_valid_;
    std::vector<int> columns_;  // how many numbers the lines of each block have
    std::size_t headings_ = 0;
    int number_ = 1;  // of the next heading
    bool in_block_ = false;
    bool is_first_ = false;  // behind the heading
    std::string start_;      // of the block's lines
    int expected_ = 0;       // numbers; those of its first line where nothing is known
};

std::string score_problem(const std::string& bytes, const DrawnScore& score) {
    ScoreLines reader(score);
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        std::string problem = reader.problem(line, lines.peek() == EOF);
        if (!problem.empty()) return problem;
    }
    return reader.problem_at_end();
}

// How many events the messages tell of each block, blocks of rests alone left out.
std::vector<std::uint64_t> told_events(const std::string& messages) {
    static constexpr std::string_view WORDS = " events generated in block #";
    std::vector<std::uint64_t> told;
    for (std::size_t at = messages.find(WORDS); at != messages.npos; at = messages.find(WORDS, at + 1)) {
        const std::size_t start = messages.rfind('\n', at) + 1;
        told.push_back(std::strtoull(messages.c_str() + start, nullptr, 10));
    }
    std::erase(told, 0);
    return told;
}

// The lines behind each block's heading.
std::vector<std::uint64_t> written_events(const std::string& bytes) {
    std::istringstream lines(bytes);
    std::vector<std::uint64_t> written;
    bool in_block = false;
    for (std::string line; std::getline(lines, line);) {
        const bool is_heading = line.starts_with(";I-block #");
        in_block = is_heading || (in_block && line.starts_with('i'));
        if (is_heading) written.push_back(0);
        if (in_block && !is_heading) ++written.back();
    }
    std::erase(written, 0);
    return written;
}

std::uint64_t count_of(std::string_view words, const std::string& text) {
    std::uint64_t count = 0;
    for (std::size_t at = text.find(words); at != text.npos; at = text.find(words, at + 1)) ++count;
    return count;
}

// Note-ons and note-offs of a file as text.
std::vector<std::uint64_t> written_notes(const std::string& dump) {
    const std::uint64_t count = count_of(" on channel ", dump) + count_of(" off channel ", dump);
    return count == 0 ? std::vector<std::uint64_t>() : std::vector<std::uint64_t>{count};
}

// Chunks behind each other, each with the length that it names, up to the end.
bool is_divided_in_chunks(std::string_view bytes) {
    while (bytes.size() >= 8) {
        std::size_t length = 0;
        for (const char byte : bytes.substr(4, 4)) length = length << 8 | static_cast<unsigned char>(byte);
        if (!bytes.starts_with("MT") || bytes.size() - 8 < length) return false;
        bytes.remove_prefix(8 + length);
    }
    return bytes.empty();
}

std::string midi_problem(const std::string& bytes, const std::string& dump) {
    if (!is_divided_in_chunks(bytes)) return "a MIDI file whose chunks are not whole";
    const std::size_t malformed = dump.find("MALFORMED");
    if (malformed != dump.npos) return "a MIDI file that is not whole: " + dump.substr(malformed);
    if (!bytes.empty() && !dump.starts_with("MThd format 1, tracks 2, division 480\n"))
        return "another header than all MIDI files have: " + dump;
    if (count_of(" on channel ", dump) != count_of(" off channel ", dump))
        return "notes without their ends: " + dump;
    return {};
}

// A note or velocity above 127 is the score's own wish: P4 is not limited, and of a
// negative P5 the low eight bits are written. Nothing that is drawn, and quoted by a
// warning, looks like a count of events.
std::string midi_output_problem(const std::string& bytes, const RunResult& result) {
    const std::string dump = test::midi_dump(bytes, test::DataBytes::ANY);
    if (result.status == 0 && written_notes(dump) != told_events(result.err))
        return "other notes than were told: " + dump;
    return midi_problem(bytes, dump);
}

bool is_midi(const DrawnScore& score) {
    return std::find(score.arguments.begin(), score.arguments.end(), "-m") != score.arguments.end();
}

// Whether a ">" may begin text that looks like a line of a block: what begins with one
// of these characters does not. At the end of a file, here a zero byte, text of the
// next one may stand behind it.
bool may_deceive(std::string_view behind) {
    return behind.empty() || std::string_view(" \n\t0123456789.)]}>").find(behind[0]) == behind.npos;
}

// Macros put any text behind a ">", line feeds and all.
bool has_deceiving_text(std::string_view inputs) {
    std::size_t at = inputs.find('>');
    if (at != inputs.npos && inputs.find('$') != inputs.npos) return true;
    for (; at != inputs.npos; at = inputs.find('>', at + 1)) {
        if (may_deceive(inputs.substr(at + 1))) return true;
    }
    return inputs.find("events generated") != inputs.npos;
}

// The grammar writes no such text.
bool could_deceive(const DrawnScore& score) {
    std::string inputs;
    for (const auto& [name, text] : score.inputs) inputs += text + '\0';
    return !score.valid && has_deceiving_text(inputs);
}

std::string output_problem(const DrawnScore& score, const RunResult& result) {
    const auto output = result.files.find("out");
    if (output == result.files.end()) return result.status == 0 ? "no output" : "";
    const std::string& bytes = output->second;
    if (is_midi(score)) return midi_output_problem(bytes, result);
    if (result.status == 0 && !bytes.ends_with("\ne\n")) return "a score without its end";
    if (could_deceive(score)) return "";
    if (result.status == 0 && written_events(bytes) != told_events(result.err))
        return "other events than were told: " + bytes;
    return score_problem(bytes, score);
}

std::string run_problem(const DrawnScore& score, const RunResult& first, const RunResult& second) {
    if (first.status != 0 && first.status != 1) return "status " + std::to_string(first.status);
    if (score.valid && first.status != 0) return "a valid score is refused: " + first.err;
    if (first.status != second.status || first.out != second.out) return "a second run differs";
    if (first.err != second.err) return "a second run says something else: " + first.err + second.err;
    if (first.files != second.files) return "a second run leaves other files";
    return output_problem(score, first);
}

}  // namespace

Verdict check_score(const DrawnScore& score) {
    const PrivateFolder& around = private_folder();
    Verdict verdict;
    {
        const test::WorkFolder folder;
        for (const auto& [name, bytes] : score.inputs) folder.write(name, bytes);
        const RunResult first = test::run_without_limit(folder, score.arguments);
        const RunResult second = test::run_without_limit(folder, score.arguments);
        verdict.problem = run_problem(score, first, second);
        verdict.out_of_room = first.err.find("out of memory") != std::string::npos;
    }
    if (verdict.problem.empty() && !around.is_empty()) verdict.problem = "a temporary file was left";
    return verdict;
}

}  // namespace vorn::fuzz
