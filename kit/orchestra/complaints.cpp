#include "kit/orchestra/complaints.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>

#include "kit/orchestra/event_finder.h"
#include "kit/orchestra/plain_notes.h"

// Csound 6 tells in lines of its own form, coloured or not:
//
//     INIT ERROR in instr 3 (opcode expon) line 10: arg2 is zero
//      from file a.orc (1),k1 expon 1 p3 p4
//        B  0.435 - note deleted.  i3 had 1 init errors
//        B  0.200 - note deleted. instr 5(200) undefined
//     WARNING: instr 1 uses 5 p-fields but is given 6
//     ftable 2: illegal gen number
//     end of score.      overall amps:  0.71250  0.71250
//        overall samples out of range:        0        0
//
// The first line of a refused note gives the reason, the third the event. An
// instrument and the beat of a section lead to the block. What has no such form
// and yet is a complaint is handed on as it is.

namespace vorn::kit {

namespace {

constexpr const char* CODE = "Csound";
constexpr std::size_t MAX_OTHER_LINES = 20;

// Without colours and the bytes 0 that some messages carry.
std::string plain_line(std::string_view line) {
    std::string plain;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '\x1b') {
            at = std::min(line.find('m', at), line.size());
        } else if (line[at] != '\0' && line[at] != '\r') {
            plain += line[at] == '\t' ? ' ' : line[at];
        }
    }
    const std::size_t first = plain.find_first_not_of(' ');
    return first == std::string::npos ? "" : plain.substr(first);
}

bool contains(const std::string& line, const char* words) { return line.find(words) != std::string::npos; }

// The text behind the first `words`; empty when they are not there.
std::string behind(const std::string& line, const char* words) {
    const std::size_t at = line.find(words);
    return at == std::string::npos ? "" : line.substr(at + std::strlen(words));
}

std::string time_text(double time) {
    char text[64];
    std::snprintf(text, sizeof text, "%.3f", time);
    return text;
}

// One thing to say of one place, and the events that it was said of.
struct Complaint {
    Level level = Level::ERROR;
    std::string text;
    FileSpan span;
    double first_time = -1;  // -1: of no event
    std::uint64_t events = 0;
};

class Reader {
public:
    Reader(const ScoreRun& run, PerformanceReport& report) : run_(run), finder_(run), report_(report) {}

    void read_line(const std::string& line) {
        for (const auto& read : READERS) {
            if ((this->*read)(line)) return;
        }
    }

    void finish() {
        for (const Complaint& complaint : complaints_)
            report_.diagnostics.push_back(diagnostic_of(complaint));
        if (full_scale_ > 0) report_.peak = loudest_ / full_scale_;
    }

private:
    using ReadLine = bool (Reader::*)(const std::string& line);

    bool read_section(const std::string& line) {
        int section = 0;
        if (std::sscanf(line.c_str(), "SECTION %d:", &section) != 1) return false;
        section_ = static_cast<std::size_t>(std::max(section - 1, 0));
        report_.has_started = true;
        return true;
    }

    // "INIT ERROR in instr 3 (opcode expon) line 10: arg2 is zero"
    bool read_reason(const std::string& line) {
        const bool at_start = contains(line, "INIT ERROR in instr ");
        if (!at_start && !contains(line, "PERF ERROR in instr ")) return false;
        int instrument = 0;
        std::sscanf(behind(line, "ERROR in instr ").c_str(), "%d", &instrument);
        const std::string place = behind(line, "(opcode ");
        const std::string opcode = place.substr(0, place.find_first_of(".)"));
        const std::string where = behind(place, " line ");
        const std::size_t colon = where.find(": ");
        reason_ = colon == std::string::npos ? behind(line, ": ")
                                             : where.substr(colon + 2) + " (" + opcode + ", line " +
                                                   where.substr(0, colon) + " of the orchestra)";
        if (!at_start) complain(Level::ERROR, finder_.find(section_, instrument, 0), reason_, -1);
        return true;
    }

    // "B  0.435 - note deleted.  i3 had 1 init errors", "... note deleted. instr 5(200) undefined"
    bool read_deleted(const std::string& line) {
        double time = 0;
        const std::string rest = behind(line, "note deleted.");
        if (rest.empty() || std::sscanf(line.c_str(), "B %lf", &time) != 1) return false;
        int instrument = 0;
        if (std::sscanf(rest.c_str(), " instr %d(", &instrument) == 1) {
            complain_of_instrument(instrument, time);
        } else if (std::sscanf(rest.c_str(), " i%d", &instrument) == 1) {
            complain(Level::ERROR, finder_.find(section_, instrument, time), reason_, time);
        } else {
            complain_of_nothing(line);
        }
        return true;
    }

    // "WARNING: instr 1 uses 5 p-fields but is given 6"
    bool read_warning(const std::string& line) {
        int instrument = 0;
        int used = 0;
        int given = 0;
        if (std::sscanf(line.c_str(), "WARNING: instr %d uses %d p-fields but is given %d", &instrument,
                        &used, &given) != 3) {
            return false;
        }
        complain(Level::WARNING, finder_.find_by_pfields(instrument, given),
                 "instr " + std::to_string(instrument) + " uses " + std::to_string(used) +
                     " p-fields, the events have " + std::to_string(given),
                 -1);
        return true;
    }

    // "ftable 2: illegal gen number"
    bool read_table(const std::string& line) {
        int table = 0;
        int end = 0;
        const std::size_t at = line.find("ftable ");
        if (at == std::string::npos || std::sscanf(line.c_str() + at, "ftable %d:%n", &table, &end) != 1 ||
            end == 0) {
            return false;
        }
        const std::string text = plain_line(line.substr(at + static_cast<std::size_t>(end)));
        if (!text.empty())
            complain_at(Level::ERROR, line_span('f', table), "ftable " + std::to_string(table) + ": " + text,
                        -1);
        return true;
    }

    bool read_levels(const std::string& line) {
        const std::string amplitudes = behind(line, "overall amps:");
        const std::string clipped = behind(line, "overall samples out of range:");
        if (contains(line, "0dBFS level =")) full_scale_ = largest_number(behind(line, "0dBFS level ="));
        if (!amplitudes.empty()) loudest_ = largest_number(amplitudes);
        if (!clipped.empty()) {
            report_.clipped = static_cast<std::uint64_t>(largest_number(clipped));
            report_.has_ended = true;
        }
        return !amplitudes.empty() || !clipped.empty();
    }

    bool read_trouble(const std::string& line) {
        if (contains(line, "real time audio output") || contains(line, "for audio output")) {
            return report_.lacks_device = true;
        }
        if (contains(line, "disk may be full") || contains(line, "No space left")) {
            return report_.disk_is_full = true;
        }
        if (contains(line, "errors in performance") ||
            contains(line, "Internal error in print_input_backtrace")) {
            return true;
        }
        if (is_syntax_ && !line.empty()) {
            complain_of_nothing(line);
            is_syntax_ = !contains(line, "cannot compile");
            return true;
        }
        return read_other(line);
    }

    bool read_other(const std::string& line) {
        static constexpr std::array<const char*, 6> WORDS = {"rror:",  "cannot ", "Unable ",
                                                             "ailed ", "rror ",   "soundin cannot"};
        if (std::none_of(WORDS.begin(), WORDS.end(),
                         [&](const char* word) { return contains(line, word); })) {
            return false;
        }
        is_syntax_ = !report_.has_started && line.rfind("error:", 0) == 0;
        complain_of_nothing(line);
        return true;
    }

    void complain_of_instrument(int instrument, double time) {
        report_.lacks_instruments = true;
        const std::string text = "instr " + std::to_string(instrument) + " is not defined in the orchestra";
        const int block = finder_.find(section_, instrument, time);
        if (block >= 0) {
            complain(Level::ERROR, block, text, time);
        } else {
            complain_at(Level::ERROR, line_span('i', instrument), text, time);
        }
    }

    void complain(Level level, int block, const std::string& text, double time) {
        const FileSpan nowhere;
        complain_at(level, block < 0 ? nowhere : run_.blocks[static_cast<std::size_t>(block)].header, text,
                    time);
    }

    void complain_at(Level level, const FileSpan& span, const std::string& text, double time) {
        const auto [found, is_new] = index_.try_emplace({span.file, span.begin, text}, complaints_.size());
        if (is_new) complaints_.push_back({level, text, span, time, 0});
        if (time >= 0) ++complaints_[found->second].events;
    }

    void complain_of_nothing(const std::string& line) {
        auto& lines = report_.other_lines;
        if (lines.size() < MAX_OTHER_LINES && std::find(lines.begin(), lines.end(), line) == lines.end()) {
            lines.push_back(line);
        }
    }

    // The line "> f2 ..." of a table or "> i9 ..." of an event.
    FileSpan line_span(char letter, int number) const {
        for (const DirectLine& line : run_.direct_lines) {
            int found = 0;
            const std::size_t at = line.text.find(letter);
            if (score_letter(line.text) == letter &&
                std::sscanf(line.text.c_str() + at + 1, "%d", &found) == 1 && found == number) {
                return line.span;
            }
        }
        return {};
    }

    static double largest_number(const std::string& text) {
        double largest = 0;
        const char* at = text.c_str();
        for (char* end = nullptr;; at = end) {
            const double number = std::strtod(at, &end);
            if (end == at) return largest;
            largest = std::max(largest, number);
        }
    }

    static Diagnostic diagnostic_of(const Complaint& complaint) {
        Diagnostic diagnostic;
        diagnostic.level = complaint.level;
        diagnostic.code = CODE;
        diagnostic.text = complaint.text;
        diagnostic.span = complaint.span;
        if (complaint.events == 1) {
            diagnostic.text += "; an event is left out, at " + time_text(complaint.first_time);
        } else if (complaint.events > 1) {
            diagnostic.text += "; " + std::to_string(complaint.events) +
                               " events are left out, the first at " + time_text(complaint.first_time);
        }
        return diagnostic;
    }

    static constexpr ReadLine READERS[] = {
        &Reader::read_section, &Reader::read_reason, &Reader::read_deleted, &Reader::read_warning,
        &Reader::read_table,   &Reader::read_levels, &Reader::read_trouble,
    };

    const ScoreRun& run_;
    const EventFinder finder_;
    PerformanceReport& report_;
    std::vector<Complaint> complaints_;
    std::map<std::tuple<int, std::uint64_t, std::string>, std::size_t> index_;
    std::string reason_ = "refused";
    std::size_t section_ = 0;
    double full_scale_ = 0;
    double loudest_ = 0;
    bool is_syntax_ = false;
};

}  // namespace

PerformanceReport read_performance(std::string_view output, const ScoreRun& run) {
    PerformanceReport report;
    Reader reader(run, report);
    while (!output.empty()) {
        const std::size_t end = std::min(output.find('\n'), output.size());
        reader.read_line(plain_line(output.substr(0, end)));
        output.remove_prefix(std::min(end + 1, output.size()));
    }
    reader.finish();
    return report;
}

}  // namespace vorn::kit
