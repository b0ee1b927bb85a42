#include "kit/command/variant.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "kit/command/atomic_file.h"
#include "kit/command/process.h"
#include "kit/command/rendering.h"
#include "kit/command/system_sources.h"
#include "kit/diagnose/from_messages.h"
#include "kit/diagnose/text_form.h"
#include "kit/vary/fingerprint.h"
#include "kit/vary/miniature.h"
#include "kit/vary/sheet.h"

// A variant is run from the texts that were read at the beginning, so that a score
// that is edited meanwhile does not get into half of them. Its record is taken away
// first and written last: whatever ends the work between, no record speaks of files
// of another time.

namespace vorn::kit {

namespace {

namespace fs = std::filesystem;

constexpr const char* RECORD_FILE = "record.json";
constexpr const char* UNWRITTEN = "Ewrite";
constexpr const char* OUR_FILES[] = {SCORE_FILE, PICTURE_FILE, SOUND_FILE, RECORD_FILE};

// The texts of the plan, one of them changed; others are those of the system.
class VariantSources final : public Sources {
public:
    VariantSources(const VaryPlan& plan, const std::string& value) : plan_(plan), value_(value) {}

    std::optional<std::string> read(const std::string& name) override {
        const auto found = plan_.texts.find(name);
        if (found == plan_.texts.end()) return system_.read(name);
        return name == plan_.varied_file ? varied_text(plan_.variation, found->second, value_)
                                         : found->second;
    }

    std::FILE* open(const std::string& name, const std::string& text) override {
        return system_.open(name, text);
    }

    bool is_same(const std::string& name, const std::string& other) override {
        return system_.is_same(name, other);
    }

    bool is_written(const std::string& name) override { return system_.is_written(name); }

private:
    const VaryPlan& plan_;
    std::string value_;
    SystemSources system_;
};

std::string key_of(const VaryPlan& plan, unsigned number) {
    return fingerprint({plan.inputs, value_of(plan, number)});
}

bool is_there(const std::string& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

// What a worker that was killed has left: files that were being written.
void remove_leftovers(const std::string& folder) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const std::string name = entry.path().filename().string();
        for (const char* const file : OUR_FILES) {
            if (name.rfind("." + std::string(file) + ".", 0) == 0) unlink(entry.path().c_str());
        }
    }
}

bool open_folder(const std::string& folder, std::string& reason) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        reason = "cannot make the folder " + folder + ": " + error.message();
        return false;
    }
    remove_leftovers(folder);
    unlink((folder + RECORD_FILE).c_str());
    return true;
}

TaskResult broken(unsigned number, const std::string& reason) { return {number, Outcome::WRONG_USE, reason}; }

// A file that Csound is given by name, which must not look like an option.
std::string as_file(const std::string& name) { return name.substr(0, 1) == "-" ? "./" + name : name; }

// The files of a variant's run as they were before.
SourceMap files_before(const VaryPlan& plan, const ScoreRun& run) {
    SourceMap map;
    for (const SourceFile& file : run.map.files()) {
        const auto found = plan.texts.find(file.name);
        map.add_file(file.name, found == plan.texts.end() ? file.text : found->second);
    }
    return map;
}

// What its heading tells, at the place in these files.
Diagnostic as_before(const VaryPlan& plan, unsigned number, const SourceMap& files, const Diagnostic& told) {
    Diagnostic diagnostic;
    diagnostic.level = told.level;
    diagnostic.code = told.code;
    diagnostic.text = told.text;
    diagnostic.repeats = told.repeats;
    diagnostic.span = told.span;
    const int file = told.span.file;
    if (file < 0 || files.files()[static_cast<std::size_t>(file)].name != plan.varied_file) return diagnostic;
    const std::string value = value_of(plan, number);
    diagnostic.span.begin = place_before(plan.variation, value, told.span.begin);
    diagnostic.span.end = place_before(plan.variation, value, told.span.end);
    return diagnostic;
}

// Why Csound made no sound, or one without all events; empty: it made it.
std::string reason_of_silence(const VaryPlan& plan, unsigned number, const ProcessResult& csound,
                              const std::string& sound, const ScoreRun& run) {
    PerformanceReport report = read_performance(csound.errors + csound.output, run);
    if (report.disk_is_full) return "Csound could not write the sound whole; the disk may be full";
    const SourceMap files = files_before(plan, run);
    for (Diagnostic& diagnostic : report.diagnostics) {
        diagnostic = as_before(plan, number, files, diagnostic);
    }
    if (std::string complaints = complaint_lines(report, files); !complaints.empty()) return complaints;
    std::error_code ignored;
    if (csound.status == 0 && fs::file_size(sound, ignored) > 0) return {};
    return "Csound ended before its time, status " + std::to_string(csound.status);
}

// Renders the finished score; a refusal of Csound goes into the record.
bool render(const VaryPlan& plan, const ScoreRun& run, VariantRecord& record, std::string& reason) {
    const std::string folder = folder_of(plan, record.number);
    AtomicFile sound;
    if (!sound.open(folder + SOUND_FILE)) {
        reason = sound.error();
        return false;
    }
    const ProcessResult csound =
        run_process({"csound", "-d", "-m4", "--format=flac", "-o", as_file(sound.written_name()),
                     as_file(plan.orchestra), as_file(folder + SCORE_FILE)});
    record.message = reason_of_silence(plan, record.number, csound, sound.written_name(), run);
    record.has_sound = record.message.empty();
    if (!record.has_sound) {
        record.state = VariantState::SILENT;
        return true;
    }
    reason = sound.keep() ? "" : sound.error();
    return reason.empty();
}

TaskResult finish(const std::string& folder, const VariantRecord& record) {
    std::string reason;
    if (!write_file(folder + RECORD_FILE, record_text(record), reason)) return broken(record.number, reason);
    const bool is_well = record.state == VariantState::WELL;
    return {record.number, is_well ? Outcome::WELL : Outcome::REFUSED, record.message};
}

TaskResult refuse(const std::string& folder, VariantRecord& record) {
    for (const char* const file : OUR_FILES) unlink((folder + file).c_str());
    record.state = VariantState::REFUSED;
    return finish(folder, record);
}

void note_picture(VariantRecord& record, const Miniature& picture) {
    record.events = picture.events;
    record.seconds = picture.seconds;
    record.low = picture.low;
    record.high = picture.high;
}

// What the disk or the memory does not take is no fault of the score.
bool is_unwritten(const ScoreRun& run) {
    constexpr std::string_view CODES[] = {UNWRITTEN, "Eopen", "Etemporary", "E32"};
    for (const Diagnostic& diagnostic : from_messages(run)) {
        if (std::find(std::begin(CODES), std::end(CODES), diagnostic.code) != std::end(CODES)) return true;
    }
    return false;
}

}  // namespace

std::string value_of(const VaryPlan& plan, unsigned number) {
    return plan.range ? range_value(*plan.range, number - plan.first, plan.count) : std::to_string(number);
}

ScoreRun run_variant(const VaryPlan& plan, unsigned number, const std::string& output) {
    RunOptions options;
    options.relative = plan.relative;
    options.output = output;
    VariantSources sources(plan, value_of(plan, number));
    return run_score(source_name(plan.score), options, sources);
}

std::string refusal(const VaryPlan& plan, unsigned number, const ScoreRun& run) {
    if (run.status != 0) {
        for (const Diagnostic& diagnostic : from_messages(run)) {
            if (diagnostic.level != Level::ERROR) continue;
            if (diagnostic.code == UNWRITTEN) return "cannot write the score whole; the disk may be full";
            const SourceMap files = files_before(plan, run);
            const std::string text = text_form(as_before(plan, number, files, diagnostic), files);
            return text.substr(0, text.find('\n'));
        }
        return "the score is refused";
    }
    const std::string value = value_of(plan, number);
    if (has_value(run, plan.variation, value)) return {};
    return plan.variation.name + " does not become " + value + " in this score";
}

std::string folder_of(const VaryPlan& plan, unsigned number) {
    return plan.folder + "/variants/" + std::to_string(number) + "/";
}

std::optional<VariantRecord> finished_variant(const VaryPlan& plan, unsigned number) {
    const std::string folder = folder_of(plan, number);
    const std::optional<std::string> text = SystemSources().read(folder + RECORD_FILE);
    std::optional<VariantRecord> record = text ? read_record(*text) : std::nullopt;
    if (!record || record->number != number || record->key != key_of(plan, number)) return std::nullopt;
    if (record->state == VariantState::REFUSED) return record;
    const bool is_whole = is_there(folder + SCORE_FILE) && is_there(folder + PICTURE_FILE) &&
                          (!record->has_sound || is_there(folder + SOUND_FILE));
    return is_whole ? record : std::nullopt;
}

TaskResult make_variant(const VaryPlan& plan, unsigned number) {
    const std::string folder = folder_of(plan, number);
    std::string reason;
    if (!open_folder(folder, reason)) return broken(number, reason);
    VariantRecord record;
    record.number = number;
    record.value = value_of(plan, number);
    record.key = key_of(plan, number);
    AtomicFile score;
    if (!score.open(folder + SCORE_FILE)) return broken(number, score.error());
    const ScoreRun run = run_variant(plan, number, score.written_name());
    record.message = refusal(plan, number, run);
    if (is_unwritten(run)) return broken(number, record.message);
    if (!record.message.empty()) return refuse(folder, record);
    record.score = fingerprint({SystemSources().read(score.written_name()).value_or("")});
    const Miniature picture = miniature(run);
    note_picture(record, picture);
    if (!score.keep()) return broken(number, score.error());
    if (!write_file(folder + PICTURE_FILE, picture.svg, reason)) return broken(number, reason);
    if (!plan.orchestra.empty() && !render(plan, run, record, reason)) return broken(number, reason);
    return finish(folder, record);
}

}  // namespace vorn::kit
