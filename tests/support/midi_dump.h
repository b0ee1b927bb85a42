#pragma once

#include <string>

// A Standard MIDI File as text, for comparing and for reading: one line for each
// chunk and each event, with its tick from the start of the track and its delta.
// It shares no code with the writer and believes nothing: the first thing that
// a strict reader would stumble over ends the text with a line "MALFORMED at
// byte N: why". Channels count from 1. No bytes at all read "no bytes".
//
//     MThd format 1, tracks 2, division 480
//     MTrk 1, 19 bytes
//     0 +0 time signature 4/4, 24 clocks per click, 8 thirty-seconds per quarter
//     0 +0 tempo 1000000
//     960 +960 end of track
//     MTrk 2, 14 bytes
//     0 +0 on channel 1 note 60 velocity 62
//     480 +480 off channel 1 note 60 velocity 64
//     480 +0 end of track

namespace vorn::test {

// Whether a reader stumbles over a note or velocity above 127.
enum class DataBytes { WITHIN_RANGE, ANY };

std::string midi_dump(const std::string& bytes, DataBytes data = DataBytes::WITHIN_RANGE);

}  // namespace vorn::test
