#include "output/midi_trace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <limits>
#include <random>
#include <string>

#include "input/run_flags.h"
#include "support/message_capture.h"

namespace {

using vorn::ListNode;
using vorn::MidiTrace;
using vorn::NOTE_OFF_CODE;
using vorn::NOTE_ON_CODE;
using vorn::print_trace;
using vorn::trace_event;
using vorn::test::MessageCapture;

struct Event {
    std::uint32_t code;
    float start;
    float dur;
    float note;
    float velocity;
};

void trace(MidiTrace& trace, const Event& event) {
    float values[] = {event.velocity, event.note};
    trace_event(trace, ListNode{event.code, event.start, event.dur, 0, values, nullptr});
}

// The line as the C library writes it.
std::string line_of(const Event& event) {
    char line[400];
    std::snprintf(line, sizeof line, "\n%7.2f\t%7.2f\t%s\tN: %7.2f\tV: %7.2f\t", double{event.start},
                  double{event.dur}, event.code == NOTE_ON_CODE ? "ON" : "OFF", double{event.note},
                  double{event.velocity});
    return line;
}

}  // namespace

TEST(MidiTraceText, OneLineForEachEvent) {
    MessageCapture messages;
    MidiTrace lines;
    trace(lines, {NOTE_ON_CODE, 0, 1, 60, 62.0136F});
    trace(lines, {NOTE_OFF_CODE, 1, 1, 60, 60});
    EXPECT_EQ(messages.text(), "");
    print_trace(lines);
    EXPECT_EQ(messages.text(),
              "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.01\t"
              "\n   1.00\t   1.00\tOFF\tN:   60.00\tV:   60.00\t");
}

TEST(MidiTraceText, IsPrintedOnce) {
    MessageCapture messages;
    MidiTrace lines;
    trace(lines, {NOTE_ON_CODE, 0, 1, 60, 62});
    print_trace(lines);
    EXPECT_NE(messages.text(), "");
    print_trace(lines);
    EXPECT_EQ(messages.text(), "");
}

TEST(MidiTraceText, IsNotSilencedByTheFlag) {
    MessageCapture messages;
    MidiTrace lines;
    vorn::SUPRESS = 1;
    trace(lines, {NOTE_ON_CODE, 0, 1, 60, 62});
    print_trace(lines);
    vorn::SUPRESS = 0;
    EXPECT_EQ(messages.text(), "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.00\t");
}

TEST(MidiTraceText, RepeatedAndOddValuesAreAsTheLibraryWritesThem) {
    constexpr float INFINITE = std::numeric_limits<float>::infinity();
    const float odd[] = {0.0F,       -0.0F,           0.005F,         0.015F,         -0.001F,
                         99999.995F, 1e15F,           -1e15F,         3.4e38F,        -3.4e38F,
                         INFINITE,   -INFINITE,       16777216,       1e-40F,         127.999F,
                         -12345.5F,  123456789012.0F, -9999999999.0F, -std::nanf(""), 0.125F};
    std::mt19937 random(7);
    const auto value = [&] {
        if (random() % 2 == 0) return odd[random() % std::size(odd)];
        return static_cast<float>(random() % 4096) / 32;
    };
    MessageCapture messages;
    MidiTrace lines;
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const Event event{random() % 2 == 0 ? NOTE_ON_CODE : NOTE_OFF_CODE, value(), value(), value(),
                          value()};
        trace(lines, event);
        expected += line_of(event);
    }
    print_trace(lines);
    EXPECT_EQ(messages.text(), expected);
}
