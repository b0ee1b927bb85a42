#include <memory>
#include <optional>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/outputs.h"
#include "kit/command/progress.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/events/events_csv.h"
#include "kit/events/events_json.h"

// vornkit events: every event of a score as data.
//
// A score that is refused leaves its JSON, for that tells so and holds what came
// before the mistake; a CSV file would look complete, so an older one stays.

namespace vorn::kit {

namespace {

struct EventsArguments {
    std::string score;
    std::string output = "-";
    std::string format;  // empty: as the output's name ends
    EventsOptions options;
    bool relative = false;
};

using WriteTable = bool (*)(const ScoreRun& run, const EventsOptions& options, TextSink& sink);

struct TableFormat {
    const char* name;
    const char* ending;
    WriteTable write;
    bool tells_refusal;
};

constexpr TableFormat FORMATS[] = {
    {"json", ".json", write_events_json, true},
    {"csv", ".csv", write_events_csv, false},
};

class FileSink final : public TextSink {
public:
    explicit FileSink(AtomicFile& file) : file_(file) {}
    bool take(std::string_view piece) override { return file_.write(piece); }

private:
    AtomicFile& file_;
};

// Null when nothing says which.
const TableFormat* find_format(const EventsArguments& arguments) {
    for (const TableFormat& format : FORMATS) {
        if (arguments.format == format.name) return &format;
    }
    for (const TableFormat& format : FORMATS) {
        if (arguments.output.ends_with(format.ending)) return &format;
    }
    return arguments.output == "-" ? &FORMATS[0] : nullptr;
}

Outcome write_table(const ScoreInput& input, const EventsArguments& arguments, const TableFormat& format) {
    std::optional<Progress> progress;
    if (arguments.output != "-") progress.emplace("writing " + arguments.output);
    AtomicFile file;
    FileSink sink(file);
    const bool is_kept =
        file.open(arguments.output) && format.write(input.run(), arguments.options, sink) && file.keep();
    progress.reset();
    if (!is_kept) return wrong_use(file.error());
    return input.outcome();
}

Outcome events(const EventsArguments& arguments) {
    const TableFormat* const format = find_format(arguments);
    if (format == nullptr) {
        return wrong_use("\"" + arguments.output +
                         "\" ends neither in .json nor in .csv; say which with --format");
    }
    const ScoreInput input(arguments.score, arguments.relative);
    const bool is_told_in_table = input.outcome() == Outcome::REFUSED && format->tells_refusal;
    if (!input.is_well() && !is_told_in_table) return input.outcome();
    if (!may_write(arguments.output, input.sources())) return Outcome::WRONG_USE;
    return write_table(input, arguments, *format);
}

}  // namespace

void add_events(CLI::App& app, Outcome& outcome) {
    CLI::App* const command = app.add_subcommand("events", "writes every event as data, JSON or CSV");
    command->footer(
        "Example: vornkit events piece.vorn -o piece.json\n"
        "         vornkit events --format csv - < piece.vorn\n"
        "\n"
        "A score with a mistake ends with status 1. Its JSON tells the mistake and has the blocks\n"
        "before it; a CSV file is not written, and an older one stays.\n");
    const auto arguments = std::make_shared<EventsArguments>();
    command->add_option("SCORE", arguments->score, "the score; - is standard input")->required();
    command->add_option("-o,--output", arguments->output, "FILE.json or FILE.csv; - is standard output")
        ->type_name("FILE");
    take_one_of(
        command->add_option("--format", arguments->format, "json or csv, whatever the file is called"),
        {"json", "csv"});
    command->add_flag("--rests", arguments->options.rests, "rests, too, which the Csound score leaves out");
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->callback([arguments, &outcome] { outcome = events(*arguments); });
}

}  // namespace vorn::kit
