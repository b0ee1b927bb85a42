#pragma once

#include <string>

#include "kit/midi/midi_notes.h"

namespace vorn::kit {

// A Standard MIDI File of format 1 (MIDI Manufacturers Association, 1996): a first
// track with title and tempo, then a track for each instrument, named "i3".
// Empty when a track is too long for the file's 32-bit lengths.
[[nodiscard]] std::string midi_bytes(const MidiNotes& notes, const std::string& title);

}  // namespace vorn::kit
