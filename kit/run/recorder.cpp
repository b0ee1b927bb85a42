#include "kit/run/recorder.h"

#include <algorithm>
#include <cmath>

#include "driver/files.h"
#include "input/errors.h"
#include "output/event_list.h"
#include "preproc/equation.h"
#include "preproc/preprocessor.h"

// Places are looked up as soon as they are told, while the line that they lie in is
// the current one; what is told later of an earlier line goes through the splices
// that the map has kept.

namespace vorn::kit {

namespace {

constexpr std::size_t MAX_MESSAGES = 10'000;  // different ones; a run with more has told enough
constexpr const char* MORE_MESSAGES = "There are more warnings, which are not told one by one";

std::string_view without_prefix(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix ? text.substr(prefix.size()) : text;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\n") + 1 - first);
}

// "Line 12:", which the place says better.
std::string_view without_line_number(std::string_view text) {
    if (text.substr(0, 5) != "Line ") return text;
    const std::size_t behind = text.find_first_not_of("0123456789", 5);
    return behind != std::string_view::npos && text[behind] == ':' ? text.substr(behind + 1) : text;
}

std::string plain_text(std::string_view text) {
    text = trimmed(text);
    text = without_prefix(text, "ERROR: ");
    text = without_prefix(text, "WARNING: ");
    return std::string(trimmed(without_line_number(text)));
}

bool is_same(const RunMessage& a, const RunMessage& b) {
    return a.severity == b.severity && a.number == b.number && a.span.file == b.span.file &&
           a.span.begin == b.span.begin && a.place.line == b.place.line && a.text == b.text;
}

std::size_t count_events(const ListNode* tail) {
    std::size_t count = 1;
    for (const ListNode* event = tail->next; event != tail; event = event->next) ++count;
    return count;
}

// Room for exactly as many: growing would need half as much again.
void reserve_events(EventTable& table, std::size_t count, std::size_t columns) {
    table.start.reserve(count);
    table.exact_start.reserve(count);
    table.duration.reserve(count);
    table.beat.reserve(count);
    table.values.reserve(count * columns);
}

void append_event(EventTable& table, const ListNode& event, double exact_start, std::size_t columns) {
    table.start.push_back(event.start);
    table.exact_start.push_back(exact_start);
    table.duration.push_back(event.dur);
    table.beat.push_back(event.beat);
    table.values.insert(table.values.end(), event.pf, event.pf + columns);
}

}  // namespace

std::string Recorder::resolve(const std::string& name) const {
    if (!options_.relative || open_files_.empty() || name.empty() || name[0] == '/') return name;
    const std::string& includer = run_.map.files()[static_cast<std::size_t>(open_files_.back())].name;
    const std::size_t slash = includer.rfind('/');
    return slash == std::string::npos ? name : includer.substr(0, slash + 1) + name;
}

std::FILE* Recorder::open_source(const char* name, const char* includer) {
    const std::string found_as = includer == nullptr ? name : resolve(name);
    std::optional<std::string> text = sources_.read(found_as);
    if (!text) {
        run_.tried_includes.push_back(found_as);
        return nullptr;
    }
    opened_ = run_.map.add_file(found_as, std::move(*text));
    return sources_.open(found_as, run_.map.files().back().text);
}

bool Recorder::has_open(const char* name, const char* /*includer*/) {
    const std::string found_as = resolve(name);
    return is_written_file(found_as.c_str()) || sources_.is_written(found_as) ||
           std::any_of(open_files_.begin(), open_files_.end(), [&](int file) {
               return sources_.is_same(found_as, run_.map.files()[static_cast<std::size_t>(file)].name);
           });
}

void Recorder::on_source(const SourceSpan& span) {
    const auto depth = static_cast<std::size_t>(span.depth);
    open_files_.resize(depth + 1, opened_);
    if (span.change == SourceChange::BEGIN) open_files_.back() = opened_;
    run_.map.add_span(open_files_.back(), span.copy_offset, span.file_offset);
}

void Recorder::on_line(const SourceLine& line) {
    run_.map.add_line(line.length);
    run_.expanded.add_line({line.text, line.length}, !in_if0());
}

// Computes an equation once more, from the line as it still stands. One that draws
// is left alone: it would draw again.
void Recorder::note_equation(const Splice& splice) {
    const std::string line(run_.expanded.last_line());
    if (static_cast<std::size_t>(splice.end) > line.size()) return;
    if (line.substr(0, static_cast<std::size_t>(splice.end))
            .find('?', static_cast<std::size_t>(splice.start)) != std::string::npos)
        return;
    std::int32_t pos = splice.start + 1;  // behind the "~"
    double value = 0;
    if (parse_vequation(value, line.c_str(), pos, WatchedLine(splice.line)) != 0) return;
    equation_ = {splice.line, splice.start};
    ConstantRecord record;
    record.span = span_between(equation_, splice.end);
    record.exact_value = value;
    record.calls = 1;
    run_.equations.push_back(std::move(record));
}

void Recorder::on_splice(const Splice& splice) {
    if (splice.kind == SpliceKind::EQUATION) note_equation(splice);
    if (splice.kind == SpliceKind::CONSTANT) {
        const auto constant = constants_.find(splice.name);
        if (constant != constants_.end()) ++run_.constants[constant->second].calls;
    }
    run_.map.add_splice(splice);
    run_.expanded.apply(splice);
}

void Recorder::place_message(RunMessage& record, const Message& message) const {
    record.place = message.place;
    if (message.line_text != nullptr) record.expanded_line = message.line_text;
    if (message.directive_offset >= 0 && !open_files_.empty()) {
        const auto at = static_cast<std::uint64_t>(message.directive_offset);
        record.span = {open_files_.back(), at, at + 1};
    } else if (message.place.line > 0) {
        record.span = run_.map.find(message.place, &record.through);
    }
}

void Recorder::on_message(const Message& message) {
    const bool continues = message.number == error::PRINTED_ECHO_LEFT && message.length == 0;
    if (continues && !run_.messages.empty()) {
        place_message(run_.messages.back(), message);
        return;
    }
    RunMessage record;
    record.severity = message.severity;
    record.number = message.number == error::PRINTED_ECHO_LEFT ? 0 : message.number;
    record.text = plain_text({message.text, message.length});
    place_message(record, message);
    if (!run_.messages.empty() && is_same(run_.messages.back(), record)) {
        ++run_.messages.back().repeats;
    } else if (run_.messages.size() < MAX_MESSAGES || message.severity == Severity::ERROR) {
        run_.messages.push_back(std::move(record));
    } else {
        count_message(std::move(record));
    }
}

// One record at the place of the first that is left out stands for all of them.
void Recorder::count_message(RunMessage&& record) {
    if (more_) {
        ++run_.messages[*more_].repeats;
        return;
    }
    more_ = run_.messages.size();
    record.number = 0;
    record.text = MORE_MESSAGES;
    run_.messages.push_back(std::move(record));
}

// From `begin` to position `end` of the same line.
FileSpan Recorder::span_between(const LinePlace& begin, std::int32_t end) const {
    return run_.map.find(begin, {begin.line, std::max(end - 1, begin.pos)});
}

void Recorder::on_setting(const Setting& setting) {
    std::vector<Expansion> through;
    run_.map.find(setting.begin, &through);
    run_.settings.push_back(
        {setting.command, setting.value, span_between(setting.begin, setting.end), !through.empty()});
}

void Recorder::on_constant(const ConstantDefinition& constant) {
    ConstantRecord record;
    record.name = constant.name;
    record.value = constant.value;
    record.span = span_between(constant.begin, constant.end);
    record.exact_value = constant.value;
    const bool by_equation = equation_.line == constant.begin.line && equation_.pos == constant.begin.pos;
    if (by_equation && !run_.equations.empty()) {
        record.exact_value = run_.equations.back().exact_value;
        run_.equations.pop_back();
    }
    constants_.emplace(record.name, run_.constants.size());
    run_.constants.push_back(std::move(record));
}

void Recorder::on_macro(const MacroDefinition& macro) {
    run_.macros.push_back({macro.name, macro.argument_count, macro.body, run_.map.find(macro.begin)});
}

void Recorder::on_tempo(const TempoDef& tempo, int index, const LinePlace& begin) {
    run_.tempos.push_back({tempo, index, run_.map.find(begin), run_.blocks.size()});
}

void Recorder::on_direct_line(const char* text, const LinePlace& begin) {
    run_.direct_lines.push_back({text, run_.map.find(begin), run_.blocks.size()});
}

void Recorder::on_header(const LinePlace& begin) {
    header_ = begin;
    if (!run_.open_block) run_.open_block = OpenBlock{run_.map.find(begin), begin, {}};
    fields_.clear();
    starts_.clear();
}

// Behind P2 each event still has its interval. Of the events of a chord the longest
// counts, as in the engine.
void Recorder::sum_intervals(const ListNode* tail) {
    if (tail == nullptr) return;
    starts_.reserve(count_events(tail));
    starts_.push_back({tail->next, tail->next->start});
    double interval = std::fabs(tail->next->dur);
    for (const ListNode* event = tail->next; event != tail;) {
        event = event->next;
        const double own = std::fabs(event->dur);
        const bool in_chord = event->code != 0;
        starts_.push_back({event, starts_.back().seconds + (in_chord ? 0 : interval)});
        interval = in_chord ? std::max(interval, own) : own;
    }
    end_ = starts_.back().seconds + interval;
}

// The ring begins behind its tail. Events that a chord has added since P2 start with
// the one before them.
void Recorder::copy_events(BlockRecord& block, const ListNode* tail) const {
    if (tail == nullptr) return;
    reserve_events(block.events, count_events(tail), block.columns());
    block.events.exact_end = end_;
    std::size_t next = 0;
    const ListNode* event = tail;
    do {
        event = event->next;
        if (next < starts_.size() && starts_[next].event == event) ++next;
        const double exact_start = next > 0 ? starts_[next - 1].seconds : double{event->start};
        append_event(block.events, *event, exact_start, block.columns());
    } while (event != tail);
}

void Recorder::on_pfield(const PfieldStatement& statement) {
    FieldRecord field;
    field.number = statement.number;
    field.input_type = statement.input_type;
    field.statement = run_.map.find(statement.begin);
    field.begin = statement.begin;
    field.end = statement.end;
    field.event_count = statement.count;
    if (run_.open_block) run_.open_block->fields.push_back(field);
    const auto behind = std::find_if(fields_.begin(), fields_.end(),
                                     [&](const FieldRecord& other) { return other.number > field.number; });
    fields_.insert(behind, field);
    if (statement.number == 2 && options_.keep_events) sum_intervals(statement.events);
}

void Recorder::on_block(const Block& block) {
    run_.open_block.reset();
    BlockRecord record;
    record.number = block.number;
    record.instrument = block.instrument;
    record.is_skipped = block.instrument < 0;
    record.header = run_.map.find(block.begin);
    record.end = run_.map.find(block.end);
    record.header_place = header_;
    record.end_place = block.end;
    if (!record.is_skipped) {
        record.start_beat = block.start_beat;
        record.start_seconds = block.start_seconds;
        record.length = block.length;
        record.pfields = block.pfields;
        record.sample_rate = block.sample_rate;
        for (FieldRecord& field : fields_) {
            const auto at = static_cast<std::size_t>(field.number - 2);
            field.output_type = static_cast<int>(block.output_types[at]);
            field.decimals = block.decimals[at];
            field.fft_size = block.fft_sizes[at];
        }
        record.fields = std::move(fields_);
        if (options_.keep_events) copy_events(record, block.events);
    }
    fields_.clear();
    starts_.clear();
    end_ = 0;
    run_.blocks.push_back(std::move(record));
}

void Recorder::on_end(int status, double seconds) {
    run_.status = status;
    run_.seconds = seconds;
}

}  // namespace vorn::kit
