#include "kit/picture/picture.h"

#include <memory>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/outputs.h"
#include "kit/command/process.h"
#include "kit/command/progress.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/picture/page.h"

// vornkit picture: a score as SVG, as PNG or as a page. The ending of the file's
// name says which. PNG is made of the SVG by rsvg-convert.

namespace vorn::kit {

namespace {

constexpr double LATEST = 1e9;  // second

struct PictureArguments {
    std::string score;
    std::string output;
    std::string pitch;
    std::string theme;
    int level = 0;
    bool relative = false;
    PictureOptions options;
};

// The name without folders.
std::string name_of(const std::string& score) {
    return score == "-" ? "standard input" : score.substr(score.rfind('/') + 1);
}

bool convert_to_png(const std::string& svg, std::string& png) {
    const ProcessResult done = run_process({"rsvg-convert", "--format", "png"}, svg);
    png = done.output;
    if (done.is_missing) complain(how_to_install("rsvg-convert", "librsvg2-bin"));
    if (!done.is_missing && done.status != 0) {
        complain("rsvg-convert: " + done.errors.substr(0, done.errors.find('\n')) +
                 " Write .svg, or a part with --from and --to.");
    }
    return !done.is_missing && done.status == 0;
}

// False when the bytes could not be made; the reason has been told.
bool make_picture(const ScoreRun& run, const PictureArguments& arguments, std::string& bytes) {
    if (arguments.output.ends_with(".html")) {
        bytes = picture_page(run, arguments.options);
        return true;
    }
    bytes = picture(run, arguments.options);
    return !arguments.output.ends_with(".png") || convert_to_png(bytes, bytes);
}

Outcome draw(const PictureArguments& arguments) {
    ScoreInput input(arguments.score, arguments.relative);
    if (!input.is_well()) return input.outcome();
    if (!may_write(arguments.output, input.sources())) return Outcome::WRONG_USE;
    if (const std::string reason = reason_against(input.run(), arguments.options.view.roles);
        !reason.empty()) {
        return wrong_use(reason);
    }
    std::string bytes;
    const bool is_made = [&] {
        const Progress progress("drawing " + name_of(arguments.score));
        return make_picture(input.run(), arguments, bytes);
    }();
    if (!is_made) return Outcome::WRONG_USE;
    std::string error;
    return write_file(arguments.output, bytes, error) ? Outcome::WELL : wrong_use(error);
}

Outcome draw_as_asked(PictureArguments arguments) {
    PictureOptions& options = arguments.options;
    if (arguments.output != "-" && !is_picture_name(arguments.output)) return Outcome::WRONG_USE;
    if (!(options.view.to > options.view.from)) return wrong_use("--to must lie behind --from");
    options.view.has_pitch = arguments.pitch != "none";
    options.view.roles.level = arguments.level;
    if (options.view.has_pitch && !arguments.pitch.empty())
        options.view.roles.pitch = std::stoi(arguments.pitch);
    if (options.title.empty()) options.title = name_of(arguments.score);
    const bool is_png = arguments.output.ends_with(".png");
    if (!arguments.theme.empty()) options.theme = arguments.theme == "dark" ? Theme::DARK : Theme::LIGHT;
    if (is_png && options.theme == Theme::AUTOMATIC) options.theme = Theme::LIGHT;
    return draw(arguments);
}

// "none", or what names a p-field.
CLI::Validator pitch_name() {
    const auto check = [](std::string& text) { return text == "none" ? std::string() : pfield_name()(text); };
    return {check, "P-FIELD"};
}

void add_options(CLI::App& command, PictureArguments& arguments) {
    PictureOptions& options = arguments.options;
    command.add_option("SCORE", arguments.score, "the score; - is standard input")->required();
    command
        .add_option("-o,--output", arguments.output,
                    "the file: .svg, .png or .html; - is SVG on standard output")
        ->required();
    command.add_option("--pitch", arguments.pitch, "the p-field of the pitch, or none")
        ->transform(pitch_name());
    command.add_option("--level", arguments.level, "the p-field of the level")->transform(pfield_name());
    command.add_option("--from", options.view.from, "second at which the picture begins")
        ->check(number_between(0, LATEST));
    command.add_option("--to", options.view.to, "second at which it ends")->check(number_between(0, LATEST));
    command.add_option("--width", options.width, "width in pixels, 1200 if not given")
        ->check(number_between(NARROWEST, WIDEST));
    command.add_option("--title", options.title, "the title, if it is not the score's name");
    take_one_of(command.add_option("--theme", arguments.theme,
                                   "light or dark; else as the reader's system has it, PNG light"),
                {"light", "dark"});
    command.add_flag("--relative", arguments.relative, "look includes up beside the including file");
}

}  // namespace

void add_picture(CLI::App& app, Outcome& outcome) {
    CLI::App* const command = app.add_subcommand("picture", "draws a score: pitches and p-fields over time");
    command->footer(
        "Example: vornkit picture piece.vorn -o piece.svg\n"
        "         vornkit picture --pitch p4 --from 10 --to 30 --theme dark piece.vorn -o part.png");
    const auto arguments = std::make_shared<PictureArguments>();
    add_options(*command, *arguments);
    command->callback([arguments, &outcome] { outcome = draw_as_asked(*arguments); });
}

}  // namespace vorn::kit
