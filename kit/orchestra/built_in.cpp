#include "kit/orchestra/built_in.h"

#include <cstring>
#include <map>

#include "kit/orchestra/plain_notes.h"
#include "kit/orchestra/timbres.h"
#include "kit/run/decimal_text.h"

// The instruments add to one pair of channels; the last one bends peaks above
// three quarters of the scale and writes them out, so that nothing clips.

namespace vorn::kit {

namespace {

constexpr const char* HEAD =
    "; plain sounds for the instruments of a score: p4 frequency in hertz, p5 amplitude\n"
    "sr = 44100\nksmps = 32\nnchnls = 2\n0dbfs = 1\n\n"
    "galeft init 0\ngaright init 0\ngisine ftgen 0, 0, 16384, 10, 1\nalwayson \"Output\"\n\n";
constexpr const char* TAIL =
    "\ninstr Output\n"
    "    aleft  clip galeft, 0, .95, .6\n    aright clip garight, 0, .95, .6\n"
    "           outs aleft, aright\n    galeft  = 0\n    garight = 0\nendin\n";
constexpr const char* LETTERS_OF_TIME = "tsbvamnrxe";

// From the score's instrument numbers to those of the orchestra, from 1.
std::map<int, int> numbers_of(const ScoreRun& run) {
    std::map<int, int> numbers;
    for (const BlockRecord& block : run.blocks) {
        numbers.try_emplace(block.instrument, static_cast<int>(numbers.size()) + 1);
    }
    return numbers;
}

void add_number(std::string& text, double value, int decimals) {
    text += ' ';
    text += decimal_text(value, decimals);
}

void add_note(std::string& text, const PlainNote& note, int instrument) {
    text += "i" + std::to_string(instrument);
    add_number(text, note.start, 6);
    add_number(text, note.duration, 6);
    add_number(text, note.frequency, 4);
    add_number(text, note.amplitude, 7);
    text += '\n';
}

// The lines that stand before `block`; `line` is moved behind them.
void add_lines(std::string& text, const ScoreRun& run, std::size_t& line, std::size_t block) {
    for (; line < run.direct_lines.size() && run.direct_lines[line].before_block <= block; ++line) {
        const char letter = score_letter(run.direct_lines[line].text);
        if (letter != 0 && std::strchr(LETTERS_OF_TIME, letter) != nullptr) {
            text += run.direct_lines[line].text + "\n";
        }
    }
}

std::string score_text(const ScoreRun& run, const std::vector<PlainNote>& notes) {
    std::map<int, int> numbers = numbers_of(run);
    std::string text;
    std::size_t line = 0;
    for (const PlainNote& note : notes) {
        add_lines(text, run, line, note.block);
        if (note.amplitude > 0) add_note(text, note, numbers[run.blocks[note.block].instrument]);
    }
    add_lines(text, run, line, run.blocks.size());
    return text + "e\n";
}

}  // namespace

BuiltIn built_in(const ScoreRun& run, const WantedRoles& roles) {
    BuiltIn performance;
    performance.orchestra = HEAD;
    for (const auto& [instrument, number] : numbers_of(run)) {
        performance.orchestra += "; i" + std::to_string(instrument) + " of the score\n";
        performance.orchestra += timbre_text(number, number - 1);
    }
    performance.orchestra += TAIL;
    performance.score = score_text(run, plain_notes(run, roles));
    return performance;
}

}  // namespace vorn::kit
