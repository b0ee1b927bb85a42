// From notes to note-ons and note-offs: order, sizes, trace. The order is
// compared with a plain forward walk, written down here once more, on random lists.

#include "output/midi_events.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "input/messages.h"
#include "input/run_flags.h"

namespace {

using vorn::ListNode;
using vorn::MidiResult;

struct Note {
    float start;
    float dur;
    float p4 = 16000;
    float p5 = 60;
};

// An event of the finished list. `tag` is the note's P6, which its note-off copies.
struct Event {
    std::uint32_t code;
    float start;
    float dur;
    float p4;
    float p5;
    float tag;

    bool operator==(const Event&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Event& event) {
    return out << (event.code == 1 ? "on " : "off ") << event.tag << " at " << event.start << " for "
               << event.dur << " P4 " << event.p4 << " P5 " << event.p5;
}

// The described steps, taken literally: visit each event, insert the note-off of
// a note behind the last of the following events that starts no later.
std::vector<Event> literal_walk(const std::vector<Note>& notes, std::uint64_t& size) {
    std::vector<Event> events;
    for (const Note& note : notes) {
        events.push_back({1, note.start, note.dur, note.p4, note.p5, static_cast<float>(events.size())});
    }
    size = 0;
    float previous = 0;
    for (std::size_t i = 0; i < events.size(); ++i) {
        const float end = events[i].start + events[i].dur;
        events[i].p4 = static_cast<float>(static_cast<double>(events[i].p4) * 0.003875850703452);
        events[i].p5 = std::fmod(events[i].p5, 128.0F);
        size += static_cast<std::uint64_t>(vorn::VLSize(vorn::delta_ticks(previous, events[i].start))) + 3;
        if (events[i].code == 1) {
            std::size_t place = i + 1;
            while (place < events.size() && !(events[place].start > end)) ++place;
            Event off = events[i];
            off.code = 0;
            off.start = end;
            off.p4 = 15480.47265625F;
            events.insert(events.begin() + static_cast<std::ptrdiff_t>(place), off);
        }
        previous = events[i].start;
    }
    return events;
}

class List2MidiTest : public testing::Test {
protected:
    List2MidiTest() {
        vorn::reset_run_flags();
        vorn::reset_messages();
        silence_ = std::fopen("/dev/null", "w");
        vorn::std_err = silence_;
    }
    ~List2MidiTest() override {
        vorn::reset_event_list();
        vorn::reset_run_flags();
        std::fclose(silence_);
    }

    // Makes the notes the current block's events, of six p-fields.
    void make_list(const std::vector<Note>& notes) {
        vorn::reset_event_list();
        for (const Note& note : notes) {
            ListNode* node = vorn::GetListNode(6);
            ASSERT_NE(node, nullptr);
            node->start = note.start;
            node->dur = note.dur;
            node->pf[0] = note.p4;
            node->pf[1] = note.p5;
            node->pf[2] = static_cast<float>(&note - notes.data());
            node->next = node;
            ListNode* cursor = vorn::note_list;
            if (cursor != nullptr) vorn::InsertEvent(node, cursor, vorn::note_list);
            vorn::note_list = node;
        }
        events = notes.size();
        event_no = static_cast<std::int64_t>(notes.size());
    }

    MidiResult convert() {
        size = 0;
        return vorn::List2MIDI(vorn::note_list, 6, 7, size, {events, event_no});
    }

    // Converts the notes and returns the list.
    std::vector<Event> converted(const std::vector<Note>& notes) {
        make_list(notes);
        EXPECT_EQ(convert(), MidiResult::NOTES);
        return list();
    }

    static std::vector<Event> list() {
        std::vector<Event> all;
        const ListNode* node = vorn::note_list;
        if (node == nullptr) return all;
        do {
            node = node->next;
            all.push_back({node->code, node->start, node->dur, node->pf[0], node->pf[1], node->pf[2]});
        } while (node != vorn::note_list);
        return all;
    }

    // The events as text: "on" or "off", tag, "@" start.
    static std::string order(const std::vector<Event>& all) {
        std::string text;
        for (const Event& event : all) {
            char line[64];
            std::snprintf(line, sizeof line, "%s%g@%g ", event.code == 1 ? "on" : "off",
                          static_cast<double>(event.tag), static_cast<double>(event.start));
            text += line;
        }
        return text;
    }

    // What a conversion prints.
    std::string messages(const std::vector<Note>& notes) {
        make_list(notes);
        char* data = nullptr;
        std::size_t length = 0;
        std::FILE* stream = open_memstream(&data, &length);
        vorn::std_err = stream;
        result = convert();
        vorn::std_err = silence_;
        std::fclose(stream);
        std::string text(data, length);
        std::free(data);
        return text;
    }

    std::uint64_t size = 0;
    std::uint64_t events = 0;
    std::int64_t event_no = 0;
    MidiResult result = MidiResult::NOTES;

private:
    std::FILE* silence_;
};

// Ticks and variable-length numbers

TEST(ToTicks, CutsToWholeTicks) {
    EXPECT_EQ(vorn::to_ticks(0), 0U);
    EXPECT_EQ(vorn::to_ticks(1), 480U);
    EXPECT_EQ(vorn::to_ticks(0.0020F), 0U);  // 0.96 ticks
    EXPECT_EQ(vorn::to_ticks(0.0021F), 1U);  // 1.008 ticks
    EXPECT_EQ(vorn::to_ticks(1.2345F), 592U);
}

TEST(ToTicks, Multiplies32BitFloats) {
    // A tenth rounded to single precision lies above a tenth: 48.0000007 rounds to 48 in
    // single precision. 0.7 lies below: 335.999994 rounds to 336.
    EXPECT_EQ(vorn::to_ticks(0.1F), 48U);
    EXPECT_EQ(vorn::to_ticks(0.7F), 336U);
}

TEST(ToTicks, ADeltaIsNeverNegativeNorAboveFourBytes) {
    EXPECT_EQ(vorn::delta_ticks(2.5F, 2), 0U);
    EXPECT_EQ(vorn::delta_ticks(2, 2.5F), 240U);
    EXPECT_EQ(vorn::to_ticks(559240.0F), 268435200U);
    EXPECT_EQ(vorn::to_ticks(559240.5F), 268435440U);
    EXPECT_EQ(vorn::to_ticks(559241.0F), 268435455U);
    EXPECT_EQ(vorn::to_ticks(1.0e30F), 268435455U);
    EXPECT_EQ(vorn::to_ticks(std::numeric_limits<float>::infinity()), 268435455U);
    EXPECT_EQ(vorn::to_ticks(-std::numeric_limits<float>::infinity()), 0U);
    EXPECT_EQ(vorn::to_ticks(std::numeric_limits<float>::quiet_NaN()), 0U);
}

TEST(VLSize, SevenBitsAByte) {
    const struct {
        std::uint64_t value;
        int size;
    } cases[] = {{0, 1},       {127, 1},     {128, 2},       {16383, 2},     {16384, 3},
                 {2097151, 3}, {2097152, 4}, {268435455, 4}, {268435456, 5}, {~std::uint64_t{0}, 10}};
    for (const auto& [value, expected] : cases) EXPECT_EQ(vorn::VLSize(value), expected) << value;
}

// Order

TEST_F(List2MidiTest, NoteOffGoesBehindAllEventsOfEqualStart) {
    // Legato: the next note-on comes first.
    EXPECT_EQ(order(converted({{0, 1}, {1, 1}})), "on0@0 on1@1 off0@1 off1@2 ");
}

TEST_F(List2MidiTest, ChordNotesEachHaveTheirOwnNoteOff) {
    EXPECT_EQ(order(converted({{0, 1}, {0, 0.5F}, {0, 1}, {2, 1}})),
              "on0@0 on1@0 on2@0 off1@0.5 off0@1 off2@1 on3@2 off3@3 ");
}

TEST_F(List2MidiTest, NoteOffsOfEqualEndKeepTheOrderOfTheirNotes) {
    EXPECT_EQ(order(converted({{0, 2}, {0.5F, 1.5F}, {1, 1}})), "on0@0 on1@0.5 on2@1 off0@2 off1@2 off2@2 ");
}

TEST_F(List2MidiTest, LongNotesEndBehindShortOnesThatStartLater) {
    EXPECT_EQ(order(converted({{0, 10}, {1, 1}, {3, 1}})), "on0@0 on1@1 off1@2 on2@3 off2@4 off0@10 ");
}

TEST_F(List2MidiTest, ANoteTooShortToMoveTheTimeEndsBehindAllOfItsMoment) {
    EXPECT_EQ(order(converted({{1.0e6F, 0.001F}, {1.0e6F, 0.002F}, {1.0e6F, 1}})),
              "on0@1e+06 on1@1e+06 on2@1e+06 off0@1e+06 off1@1e+06 off2@1e+06 ");
}

TEST_F(List2MidiTest, WhereStartsStepBackNoteOffsStandWhereTheForwardWalkEnds) {
    // The walk from note 0 stops before note 1, though note 2 starts earlier than note 0 ends.
    EXPECT_EQ(order(converted({{2, 0.5F}, {2.75F, 1}, {2, 3}})),
              "on0@2 off0@2.5 on1@2.75 on2@2 off1@3.75 off2@5 ");
}

std::vector<Note> random_notes(std::mt19937& random, bool in_order) {
    const auto below = [&random](unsigned limit) { return static_cast<float>(random() % limit); };
    const float scales[] = {0.25F, 0.1F, 1.0e-4F, 1.0e5F};
    const float scale = scales[random() % 4];
    std::vector<Note> notes(1 + random() % 40);
    float start = below(3) * 1000.0F;
    for (Note& note : notes) {
        const float long_or_short = random() % 8 == 0 ? 20.0F : 1.0F;
        note = {start, (1.0F + below(6)) * scale * long_or_short, below(32768), below(300)};
        start += below(4) * scale;
        if (!in_order && random() % 3 == 0) start = std::fabs(start - below(9) * scale);
    }
    return notes;
}

class AgainstTheLiteralWalk : public List2MidiTest {
protected:
    void compare(const std::vector<Note>& notes) {
        std::uint64_t expected_size = 0;
        const std::vector<Event> expected = literal_walk(notes, expected_size);
        ASSERT_EQ(converted(notes), expected);
        ASSERT_EQ(size, expected_size);
    }
};

TEST_F(AgainstTheLiteralWalk, RandomListsWhoseStartsNeverDecrease) {
    std::mt19937 random(1);
    for (int i = 0; i < 1500; ++i) ASSERT_NO_FATAL_FAILURE(compare(random_notes(random, true))) << i;
}

TEST_F(AgainstTheLiteralWalk, RandomListsWhoseStartsStepBack) {
    std::mt19937 random(2);
    for (int i = 0; i < 1500; ++i) ASSERT_NO_FATAL_FAILURE(compare(random_notes(random, false))) << i;
}

TEST_F(AgainstTheLiteralWalk, ThousandNotesOfRandomLengthOverAllBytesOfAnEnd) {
    std::mt19937 random(3);
    std::vector<Note> notes(1000);
    float start = 0;
    for (Note& note : notes) {
        note = {start, std::ldexp(1.0F, static_cast<int>(random() % 60) - 30) *
                           (1.0F + static_cast<float>(random() % 1000) / 1000)};
        start += static_cast<float>(random() % 100) / 7;
    }
    compare(notes);
}

TEST_F(AgainstTheLiteralWalk, InfiniteTimes) {
    const float infinity = std::numeric_limits<float>::infinity();
    compare({{0, infinity}, {1, 1}, {infinity, 1}, {infinity, infinity}});
}

TEST_F(List2MidiTest, TimesThatAreNotANumberEndTheWalkAtTheTail) {
    const float not_a_number = std::numeric_limits<float>::quiet_NaN();
    const std::vector<Event> events_made = converted({{0, not_a_number}, {1, 1}});
    ASSERT_EQ(events_made.size(), 4U);
    EXPECT_EQ(events_made[0].tag, 0);
    EXPECT_EQ(events_made[1].tag, 1);
    EXPECT_TRUE(std::isnan(events_made[2].start));
    EXPECT_EQ(events_made[3].start, 2);
}

TEST_F(List2MidiTest, NotesThatOverlapByThousandsTakeNoLonger) {
    std::vector<Note> notes(50000);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        notes[i] = {static_cast<float>(i), static_cast<float>(100000 + i * 7919 % 50000)};
    }
    make_list(notes);
    const std::clock_t before = std::clock();
    ASSERT_EQ(convert(), MidiResult::NOTES);
    // A walk from every note would visit more than a thousand million events.
    EXPECT_LT(std::clock() - before, 3 * CLOCKS_PER_SEC);
    EXPECT_EQ(list().size(), 100000U);
}

// What becomes of the values

TEST_F(List2MidiTest, P4AndP5AreOverwrittenInTheList) {
    const std::vector<Event> all = converted({{0, 1, 32767, 60}, {1, 1, 16000, 130}, {2, 1, 0, -3}});
    const Event expected[] = {
        {1, 0, 1, 127, 60, 0}, {1, 1, 1, 16000 * 0.003875850703452F, 2, 1},
        {0, 1, 1, 60, 60, 0},  {1, 2, 1, 0, -3, 2},
        {0, 2, 1, 60, 2, 1},   {0, 3, 1, 60, -3, 2},
    };
    ASSERT_EQ(all.size(), 6U);
    for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i], expected[i]) << i;
}

TEST_F(List2MidiTest, The15480Point47265625OfANoteOffShowsAs60) {
    EXPECT_EQ(static_cast<float>(15480.47265625 * 0.003875850703452), 60.0F);
    EXPECT_EQ(converted({{0, 1, 1, 1}})[1].p4, 60.0F);
}

TEST_F(List2MidiTest, NoteOffsKeepTheDurationSoStatisticsCountThem) {
    const std::vector<Event> all = converted({{0, 1}, {1, 2}});
    EXPECT_EQ(all.back(), (Event{0, 3, 2, 60, 60, 1}));
    vorn::ListStats stats;
    vorn::GetListStats(vorn::note_list, stats);
    EXPECT_EQ(stats.count, 4U);      // two notes, doubled
    EXPECT_EQ(stats.end_time, 5.0);  // the end of the last note-off's own duration
    EXPECT_EQ(stats.duration, 5.0);
    EXPECT_EQ(vorn::note_list->start + vorn::note_list->dur, 5.0F);
}

TEST_F(List2MidiTest, OtherPfieldsAndTheBeatAreCopied) {
    make_list({{0, 1}});
    vorn::note_list->beat = 7.5F;
    vorn::note_list->pf[2] = 99;
    ASSERT_EQ(convert(), MidiResult::NOTES);
    EXPECT_EQ(vorn::note_list->code, vorn::NOTE_OFF_CODE);
    EXPECT_EQ(vorn::note_list->beat, 7.5F);
    EXPECT_EQ(vorn::note_list->pf[2], 99);
}

TEST_F(List2MidiTest, ABlockOfThreePfieldsHasVelocityAndNote0) {
    ListNode* node = vorn::GetListNode(3);
    node->dur = 1;
    node->next = node;
    vorn::note_list = node;
    std::uint64_t one = 1;
    std::int64_t one_value = 1;
    ASSERT_EQ(vorn::List2MIDI(vorn::note_list, 3, 1, size, {one, one_value}), MidiResult::NOTES);
    EXPECT_EQ(node->pf[0], 0);
    EXPECT_EQ(node->pf[1], 0);
    EXPECT_EQ(vorn::note_list->pf[0], 60);
    EXPECT_EQ(vorn::note_list->pf[1], 0);
}

TEST_F(List2MidiTest, FusedMarksBecomeNoteOns) {
    make_list({{0, 1}, {0, 1}});
    vorn::note_list->code = 1;  // the head's mark is 0
    ASSERT_EQ(convert(), MidiResult::NOTES);
    EXPECT_EQ(order(list()), "on0@0 on1@0 off0@1 off1@1 ");
}

// Size

TEST_F(List2MidiTest, TheSizeIsThatOfDeltasAndThreeBytesEach) {
    converted({{0, 1}, {0.25F, 100}});
    // On at 0: 1. On 120 ticks later: 1. Off 360 later: 2. Off 47640 later: 3. And four times 3.
    EXPECT_EQ(size, 1U + 1 + 2 + 3 + 12);
}

TEST_F(List2MidiTest, DeltasThatStepBackCountAs0) {
    converted({{2.5F, 0.25F}, {2, 1}});
    // On at tick 1200: 2. The walk puts the off at 2.75 behind both notes. On at 2: delta 0, 1.
    // Off 360 later: 2. Off 120 later: 1.
    EXPECT_EQ(order(list()), "on0@2.5 on1@2 off0@2.75 off1@3 ");
    EXPECT_EQ(size, 2U + 1 + 2 + 1 + 12);
}

// Trace

TEST_F(List2MidiTest, TraceOfEveryEvent) {
    EXPECT_EQ(messages({{0, 1, 16000, 60}, {1, 0.5F, 32767, 130}}),
              "\n   0.00\t   1.00\tON\tN:   60.00\tV:   62.01\t"
              "\n   1.00\t   0.50\tON\tN:    2.00\tV:  127.00\t"
              "\n   1.00\t   1.00\tOFF\tN:   60.00\tV:   60.00\t"
              "\n   1.50\t   0.50\tOFF\tN:    2.00\tV:   60.00\t");
}

TEST_F(List2MidiTest, TraceIsPrintedAlsoUnderS) {
    vorn::SUPRESS = 1;
    EXPECT_EQ(messages({{12345.678F, 1, 0, -1}}),
              "\n12345.68\t   1.00\tON\tN:   -1.00\tV:    0.00\t"
              "\n12346.68\t   1.00\tOFF\tN:   -1.00\tV:   60.00\t");
}

TEST_F(List2MidiTest, TraceOfManyEventsIsThatOfEachOfThem) {
    std::mt19937 random(4);
    const float scales[] = {0.01F, 1, 1000, 1.0e9F, 1.0e37F};
    std::vector<Note> notes(2000);
    float start = 0;
    for (Note& note : notes) {
        const float number = static_cast<float>(random() % 1000) * (random() % 2 == 0 ? 0.25F : 1.0F);
        note = {start, (1 + static_cast<float>(random() % 4)) * scales[random() % 5],
                static_cast<float>(random() % 3) * scales[random() % 5],
                random() % 4 == 0 ? -number : number};
        start += static_cast<float>(random() % 5) / 4;
    }
    const std::string text = messages(notes);
    std::string expected;
    for (const Event& event : list()) {
        char line[400];
        const auto real = [](float value) { return static_cast<double>(value); };
        std::snprintf(line, sizeof line, "\n%7.2f\t%7.2f\t%s\tN: %7.2f\tV: %7.2f\t", real(event.start),
                      real(event.dur), event.code == 1 ? "ON" : "OFF", real(event.p5), real(event.p4));
        expected += line;
    }
    EXPECT_EQ(text, expected);
}

TEST_F(List2MidiTest, TraceGoesToTheLogToo) {
    char* data = nullptr;
    std::size_t length = 0;
    vorn::fllog = open_memstream(&data, &length);
    vorn::MKLOG = 1;
    const std::string text = messages({{0, 1}});
    std::fclose(vorn::fllog);
    vorn::fllog = nullptr;
    EXPECT_EQ(std::string(data, length), text);
    std::free(data);
}

TEST_F(List2MidiTest, TraceCopesWithHugeValues) {
    const std::string text = messages({{0, 3.0e38F, 3.0e38F, 3.0e38F}});
    EXPECT_EQ(text.substr(0, 20), "\n   0.00\t30000000054");
}

// Rests

TEST_F(List2MidiTest, RestsAreRemovedAndLowerTheCounts) {
    EXPECT_EQ(order(converted({{0, 0}, {1, -1}, {2, 1}, {3, -1}})), "on2@2 off2@3 ");
    EXPECT_EQ(events, 1U);
    EXPECT_EQ(event_no, 1);
}

TEST_F(List2MidiTest, ABlockOfRestsSaysSo) {
    EXPECT_EQ(messages({{0, 0}, {1, -1}}), "\n\nOops i-block 7 is all rests! ");
    EXPECT_EQ(result, MidiResult::NO_NOTES);
    EXPECT_EQ(vorn::note_list, nullptr);
    EXPECT_EQ(events, 0U);
    EXPECT_EQ(event_no, 0);
}

TEST_F(List2MidiTest, AnEmptyListHasNoNotesAndSaysNothing) {
    EXPECT_EQ(messages({}), "");
    EXPECT_EQ(result, MidiResult::NO_NOTES);
}

// Out of memory

TEST_F(List2MidiTest, ANoteOffThatCannotBeMadeIsOutOfMemory) {
    for (const bool in_order : {true, false}) {
        for (std::uint64_t left = 0; left < 3; ++left) {
            make_list({{in_order ? 0.0F : 5.0F, 1}, {0.5F, 1}, {3, 1}});
            vorn::event_nodes = vorn::MAX_EVENTS - left;
            EXPECT_EQ(convert(), MidiResult::OUT_OF_MEMORY);
            EXPECT_EQ(list().size(), 3 + left);  // still a closed ring
        }
        make_list({{in_order ? 0.0F : 5.0F, 1}, {0.5F, 1}, {3, 1}});
        vorn::event_nodes = vorn::MAX_EVENTS - 3;
        EXPECT_EQ(convert(), MidiResult::NOTES);
    }
}

}  // namespace
