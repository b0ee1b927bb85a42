#include <memory>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/option_checks.h"
#include "kit/command/outputs.h"
#include "kit/command/score_input.h"
#include "kit/command/subcommands.h"
#include "kit/midi/midi_bytes.h"

// vornkit midi: all blocks of a score as one MIDI file.

namespace vorn::kit {

namespace {

struct MidiArguments {
    std::string score;
    std::string output;
    bool relative = false;
    bool quiet = false;
    int pitch = 0;
    int velocity = 0;
    std::vector<std::string> channels;
    std::vector<std::string> programs;
};

// instrument "=" number; the number from 1 to `highest`. False with the reason in `error`.
bool read_assignment(std::map<int, int>& assigned, const std::string& text, int highest, std::string& error) {
    int instrument = 0;
    int number = 0;
    char rest = 0;
    if (std::sscanf(text.c_str(), "%9d=%9d%c", &instrument, &number, &rest) == 2 && number >= 1 &&
        number <= highest) {
        assigned[instrument] = number;
        return true;
    }
    error = "\"" + text + "\": write instrument=number, the number from 1 to " + std::to_string(highest);
    return false;
}

bool read_assignments(std::map<int, int>& assigned, const std::vector<std::string>& texts, int highest,
                      std::string& error) {
    for (const std::string& text : texts) {
        if (!read_assignment(assigned, text, highest, error)) return false;
    }
    return true;
}

// The name without folders and ending.
std::string title_of(const std::string& score) {
    const std::size_t slash = score.rfind('/');
    const std::string name = slash == std::string::npos ? score : score.substr(slash + 1);
    return name.substr(0, name.rfind('.') == 0 ? std::string::npos : name.rfind('.'));
}

Outcome write_midi(const MidiArguments& arguments, const MidiOptions& options) {
    ScoreInput input(arguments.score, arguments.relative);
    if (!input.is_well()) return input.outcome();
    if (!may_write(arguments.output, input.sources())) return Outcome::WRONG_USE;
    if (const std::string reason = reason_against(input.run(), options.roles); !reason.empty()) {
        return wrong_use(reason);
    }
    const MidiNotes notes = midi_notes(input.run(), options);
    const std::string bytes = notes.error.empty() ? midi_bytes(notes, title_of(arguments.score)) : "";
    if (bytes.empty())
        return wrong_use(notes.error.empty() ? "a track is too long for a MIDI file" : notes.error);
    for (const std::string& remark : notes.remarks) {
        if (!arguments.quiet) complain("note: " + remark);
    }
    std::string error;
    return write_file(arguments.output, bytes, error) ? Outcome::WELL : wrong_use(error);
}

Outcome midi(const MidiArguments& arguments) {
    MidiOptions options;
    options.roles = {arguments.pitch, arguments.velocity};
    std::string error;
    if (!read_assignments(options.channels, arguments.channels, MIDI_CHANNELS, error) ||
        !read_assignments(options.programs, arguments.programs, 128, error)) {
        return wrong_use(error);
    }
    return write_midi(arguments, options);
}

}  // namespace

void add_midi(CLI::App& app, Outcome& outcome) {
    CLI::App* const command = app.add_subcommand("midi", "writes all blocks as a MIDI file");
    command->footer(
        "Example: vornkit midi piece.vorn piece.mid\n"
        "         vornkit midi --pitch p4 --velocity p5 --channel 3=10 --program 1=33 piece.vorn piece.mid\n"
        "\n"
        "Levels become velocities, 1 to 127. Whole numbers up to 127 are velocities already. Amplitudes\n"
        "from 3277 to 32767, the largest above 13107, are taken as with vorn -m, where 32767 is 127, and\n"
        "fractions alike, where 1 is 127. Other levels are scaled: the loudest of the score is 127, and\n"
        "a quarter of its amplitude, 12 decibels less, is 64. A note tells what was scaled. A level\n"
        "without decibels up to 1 counts as a fraction, up to 120 as decibels, above as an amplitude.\n");
    const auto arguments = std::make_shared<MidiArguments>();
    command->add_option("SCORE", arguments->score, "the score; - is standard input")->required();
    command->add_option("OUT", arguments->output, "the MIDI file; - is standard output")->required();
    command->add_option("--pitch", arguments->pitch, "the p-field of the pitch")->transform(pfield_name());
    command->add_option("--velocity", arguments->velocity, "the p-field of the level")
        ->transform(pfield_name());
    command->add_option("--channel", arguments->channels, "instrument=channel, may be repeated")
        ->type_name("I=C");
    command->add_option("--program", arguments->programs, "instrument=program, may be repeated")
        ->type_name("I=P");
    command->add_flag("--relative", arguments->relative, "look includes up beside the including file");
    command->add_flag("--quiet", arguments->quiet, "leave out the notes on what was scaled or left out");
    command->callback([arguments, &outcome] { outcome = midi(*arguments); });
}

}  // namespace vorn::kit
