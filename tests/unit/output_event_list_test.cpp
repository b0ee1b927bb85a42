#include "output/event_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "input/run_flags.h"

namespace {

using vorn::ListNode;
using vorn::LUT;
using vorn::note_list;

constexpr int PFIELDS = 6;  // P4, P5 and P6

struct EventList : testing::Test {
    EventList() { vorn::reset_event_list(); }
    ~EventList() override { vorn::reset_event_list(); }

    int fused = 0;
    ListNode* cursor = nullptr;
    std::uint64_t extra = 77;

    bool insert(float value, float beat = 0.0F, float block_start = 0.0F) {
        return vorn::InsertBegTime(note_list, PFIELDS, fused, value, block_start, beat);
    }
    bool insert_fused(float value, float beat = 0.0F) {
        fused = 1;
        return insert(value, beat);
    }
    // Events of one second each at beats 0, 1, 2 ...; the cursor at the tail.
    void make_events(int count) {
        for (int i = 0; i < count; ++i) ASSERT_TRUE(insert(1.0F, static_cast<float>(i)));
        cursor = note_list;
    }
    bool store(float value, int pfield = 4, float factor = 1.0F) {
        return vorn::StorePfield(cursor, note_list, pfield, PFIELDS, fused, LUT, value, factor);
    }
    bool store_fused(float value, int pfield = 4) {
        fused = 1;
        return store(value, pfield);
    }
    bool repeat_chord(int pfield = 4) {
        return vorn::DoListChord(note_list, cursor, LUT, pfield, PFIELDS, extra);
    }
    std::vector<const ListNode*> events() const {
        std::vector<const ListNode*> all;
        if (note_list == nullptr) return all;
        const ListNode* node = note_list;
        do {
            node = node->next;
            all.push_back(node);
        } while (node != note_list);
        return all;
    }
    template <typename Member>
    std::vector<Member> column(Member ListNode::*member) const {
        std::vector<Member> values;
        for (const ListNode* event : events()) values.push_back(event->*member);
        return values;
    }
    std::vector<float> starts() const { return column(&ListNode::start); }
    std::vector<float> durations() const { return column(&ListNode::dur); }
    std::vector<float> beats() const { return column(&ListNode::beat); }
    std::vector<std::uint32_t> codes() const { return column(&ListNode::code); }
    std::vector<float> values(int pfield) const {
        std::vector<float> all;
        for (const ListNode* event : events()) all.push_back(event->pf[pfield - 4]);
        return all;
    }
};

using Floats = std::vector<float>;
using Codes = std::vector<std::uint32_t>;

struct GetListNode : EventList {};
struct InsertBegTime : EventList {};
struct StorePfield : EventList {};
struct DoListChord : EventList {};
struct CopyEvent : EventList {};
struct InsertEvent : EventList {};
struct ClearLFusedCode : EventList {};
struct ListSize : EventList {
    float first = -1.0F;
    float last = -1.0F;
    std::uint64_t size(float span) { return vorn::ListSize(first, last, cursor, note_list, span); }
};
struct GetListStats : EventList {
    vorn::ListStats stats{-1.0, -2.0, -3.0, 99};
    void take() { vorn::GetListStats(note_list, stats); }
};
struct RemoveRests : EventList {
    std::uint64_t count = 0;
    std::int64_t number = 0;
    bool remove() { return vorn::RemoveRests(note_list, {count, number}); }
    void make_durations(std::initializer_list<float> values) {
        for (const float value : values) ASSERT_TRUE(insert(value));
        count = values.size();
        number = static_cast<std::int64_t>(values.size());
    }
};
struct GrowPfields : EventList {};
struct FreeListNodes : EventList {};

struct TraverseList : EventList {
    std::FILE* stream = std::tmpfile();
    std::FILE* output = std::tmpfile();
    std::FILE* const saved_output = vorn::std_out;
    TraverseList() { vorn::std_out = output; }
    ~TraverseList() override {
        vorn::std_out = saved_output;
        std::fclose(stream);
        std::fclose(output);
    }
    static std::string contents(std::FILE* file) {
        std::rewind(file);
        std::string text;
        for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) text += static_cast<char>(c);
        return text;
    }
};

}  // namespace

// --- new events ---

TEST_F(GetListNode, HasZeroedFieldsAndValues) {
    const ListNode* node = vorn::GetListNode(PFIELDS);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->code, 0U);
    EXPECT_EQ(node->start, 0.0F);
    EXPECT_EQ(node->dur, 0.0F);
    EXPECT_EQ(node->beat, 0.0F);
    EXPECT_EQ(node->next, nullptr);
    for (int i = 0; i < PFIELDS - 3; ++i) EXPECT_EQ(node->pf[i], 0.0F);
}

TEST_F(GetListNode, WritingAllItsValuesDoesNotReachTheNextEvent) {
    for (const int pfields : {3, 4, 5, 6, 7, 8, 128}) {
        ListNode* first = vorn::GetListNode(pfields);
        const ListNode* second = vorn::GetListNode(pfields);
        // A block of three or four has P4 and P5 too, for the MIDI pass.
        const int values = std::max(pfields - 3, 2);
        for (int i = 0; i < values; ++i) first->pf[i] = 1.0F;
        EXPECT_EQ(second->code, 0U) << pfields;
        EXPECT_EQ(second->start, 0.0F) << pfields;
        EXPECT_EQ(second->pf[0], 0.0F) << pfields;
    }
}

TEST_F(GetListNode, CostsThirtyTwoBytesAndItsValuesInWholePointers) {
    const auto cost = [](int pfields) {
        const ListNode* first = vorn::GetListNode(pfields);
        const ListNode* second = vorn::GetListNode(pfields);
        return reinterpret_cast<const char*>(second) - reinterpret_cast<const char*>(first);
    };
    EXPECT_EQ(cost(3), 32 + 4 * 2);
    EXPECT_EQ(cost(5), 32 + 4 * 2);
    EXPECT_EQ(cost(6), 32 + 4 * 4);
    EXPECT_EQ(cost(8), 32 + 4 * 6);
    EXPECT_EQ(cost(9), 32 + 4 * 6);
}

TEST_F(GetListNode, RefusesMoreEventsThanABlockMayHave) {
    vorn::event_nodes = vorn::MAX_EVENTS - 1;
    EXPECT_NE(vorn::GetListNode(PFIELDS), nullptr);
    EXPECT_EQ(vorn::GetListNode(PFIELDS), nullptr);
}

TEST_F(GetListNode, RefusesMoreValuesThanABlockMayHave) {
    vorn::event_values = vorn::MAX_VALUES - 9;
    EXPECT_NE(vorn::GetListNode(5), nullptr);
    EXPECT_EQ(vorn::GetListNode(5), nullptr);
    EXPECT_NE(vorn::GetListNode(4), nullptr);
    EXPECT_EQ(vorn::GetListNode(3), nullptr);
    EXPECT_EQ(vorn::event_nodes, 2U);
}

TEST_F(GetListNode, AFullBlockLeavesMuchOfEightGibibytes) {
    static_assert(vorn::MAX_VALUES >= std::uint64_t{10'000'000} * 8);
    for (int pfields = 3; pfields <= vorn::MAX_PFIELD_COUNT; ++pfields) {
        const char* first = reinterpret_cast<const char*>(vorn::GetListNode(pfields));
        const char* second = reinterpret_cast<const char*>(vorn::GetListNode(pfields));
        const auto values = static_cast<std::uint64_t>(pfields);
        const std::uint64_t events = std::min(vorn::MAX_EVENTS, vorn::MAX_VALUES / values);
        EXPECT_LE(events * static_cast<std::uint64_t>(second - first), 2'800'000'000U) << pfields;
    }
}

// --- P2 ---

TEST_F(InsertBegTime, FirstEventStartsWithTheBlock) {
    ASSERT_TRUE(insert(0.5F, 3.0F, 12.5F));
    EXPECT_EQ(note_list->start, 12.5F);
    EXPECT_EQ(note_list->beat, 3.0F);
    EXPECT_EQ(note_list->dur, 0.5F);
    EXPECT_EQ(note_list->code, 0U);
    EXPECT_EQ(note_list->next, note_list);
}

TEST_F(InsertBegTime, NextEventStartsAnIntervalLater) {
    insert(0.5F, 0.0F, 10.0F);
    insert(0.25F, 1.0F, 99.0F);
    insert(2.0F, 1.5F, 99.0F);
    EXPECT_EQ(starts(), (Floats{10.0F, 10.5F, 10.75F}));
    EXPECT_EQ(durations(), (Floats{0.5F, 0.25F, 2.0F}));
    EXPECT_EQ(beats(), (Floats{0.0F, 1.0F, 1.5F}));
}

TEST_F(InsertBegTime, LargestIntervalOfAChordCounts) {
    // 1 : 2 1
    insert(1.0F, 0.0F);
    insert_fused(2.0F, 1.0F);
    insert(1.0F, 3.0F);
    EXPECT_EQ(starts(), (Floats{0.0F, 0.0F, 2.0F}));
    EXPECT_EQ(codes(), (Codes{0, 1, 0}));
    EXPECT_EQ(beats(), (Floats{0.0F, 0.0F, 3.0F}));
    EXPECT_EQ(durations(), (Floats{1.0F, 2.0F, 1.0F}));
}

TEST_F(InsertBegTime, SmallerFusedIntervalDoesNotCount) {
    // -3 : 2 1, the magnitude decides
    insert(-3.0F);
    insert_fused(2.0F);
    insert(1.0F);
    EXPECT_EQ(starts(), (Floats{0.0F, 0.0F, 3.0F}));
}

TEST_F(InsertBegTime, NegativeIntervalIsARestThatTakesItsTime) {
    insert(1.0F);
    insert(-0.75F);
    insert(1.0F);
    EXPECT_EQ(starts(), (Floats{0.0F, 1.0F, 1.75F}));
    EXPECT_EQ(durations(), (Floats{1.0F, -0.75F, 1.0F}));
}

TEST_F(InsertBegTime, FusedMarkIsClearedWhenItIsUsed) {
    insert(1.0F);
    insert_fused(1.0F);
    EXPECT_EQ(fused, 0);
}

TEST_F(InsertBegTime, FusedMarkIsUntouchedOnAnEmptyList) {
    insert_fused(1.0F);
    EXPECT_EQ(fused, 1);
    EXPECT_EQ(note_list->code, 0U);
    insert(1.0F);
    EXPECT_EQ(codes(), (Codes{0, 1}));
    EXPECT_EQ(starts(), (Floats{0.0F, 0.0F}));
}

TEST_F(InsertBegTime, FailureLeavesTheListAsItWas) {
    insert(1.0F);
    const ListNode* tail = note_list;
    vorn::event_nodes = vorn::MAX_EVENTS;
    EXPECT_FALSE(insert_fused(5.0F));
    EXPECT_EQ(note_list, tail);
    EXPECT_EQ(tail->next, tail);
    EXPECT_EQ(fused, 1);
    EXPECT_EQ(vorn::last_dur, 1.0F);
}

TEST_F(InsertBegTime, StartsAddUpInSinglePrecision) {
    // 16777216 + 1 is no float; the sum stays where it is.
    insert(1.0F, 0.0F, 16777216.0F);
    insert(1.0F);
    EXPECT_EQ(note_list->start, 16777216.0F);
}

// --- values of P4 and up ---

TEST_F(StorePfield, CursorAtTailStartsAtHead) {
    make_events(3);
    ASSERT_TRUE(store(60.0F));
    EXPECT_EQ(cursor, note_list->next);
    EXPECT_EQ(values(4), (Floats{60.0F, 0.0F, 0.0F}));
}

TEST_F(StorePfield, GoesOnEventByEvent) {
    make_events(3);
    store(1.0F, 6);
    store(2.0F, 6);
    store(3.0F, 6);
    EXPECT_EQ(values(6), (Floats{1.0F, 2.0F, 3.0F}));
    EXPECT_EQ(cursor, note_list);
}

TEST_F(StorePfield, AppliesTheFactor) {
    make_events(2);
    store(3.0F, 4, 0.5F);
    EXPECT_EQ(cursor->pf[0], 1.5F);
    fused = 1;
    store(5.0F, 4, 2.0F);
    EXPECT_EQ(cursor->pf[0], 10.0F);
}

TEST_F(StorePfield, SetsCodeZeroOnTheEvent) {
    insert(1.0F);
    insert_fused(1.0F);
    cursor = note_list;
    store(1.0F);
    store(2.0F);
    EXPECT_EQ(codes(), (Codes{0, 0}));
}

TEST_F(StorePfield, LutFollowsTheCursor) {
    make_events(2);
    store(1.0F);
    EXPECT_EQ(LUT, cursor);
    store(2.0F);
    EXPECT_EQ(LUT, note_list);
}

TEST_F(StorePfield, FusedValueAddsAnEventAtTheSameTime) {
    insert(0.5F, 0.0F, 2.0F);
    insert(0.75F, 1.0F);
    cursor = note_list;
    store(9.0F, 5);
    cursor = note_list;
    store(60.0F);
    ASSERT_TRUE(store_fused(64.0F));
    EXPECT_EQ(starts(), (Floats{2.0F, 2.0F, 2.5F}));
    EXPECT_EQ(durations(), (Floats{0.5F, 0.5F, 0.75F}));
    EXPECT_EQ(beats(), (Floats{0.0F, 0.0F, 1.0F}));
    EXPECT_EQ(codes(), (Codes{0, 1, 0}));
    EXPECT_EQ(values(4), (Floats{60.0F, 64.0F, 0.0F}));
    EXPECT_EQ(values(5), (Floats{9.0F, 9.0F, 0.0F}));
    EXPECT_EQ(fused, 0);
}

TEST_F(StorePfield, FusedValueMovesTheCursorButNotLut) {
    make_events(2);
    store(60.0F);
    const ListNode* first = cursor;
    store_fused(64.0F);
    EXPECT_EQ(LUT, first);
    EXPECT_EQ(cursor, first->next);
    EXPECT_EQ(cursor->pf[0], 64.0F);
}

TEST_F(StorePfield, FusedValueBehindTheTailMovesTheTail) {
    make_events(1);
    store(60.0F);
    const ListNode* old_tail = note_list;
    store_fused(64.0F);
    EXPECT_NE(note_list, old_tail);
    EXPECT_EQ(note_list, cursor);
    EXPECT_EQ(note_list->next, old_tail);
}

TEST_F(StorePfield, FusedValueInTheMiddleLeavesTheTail) {
    make_events(2);
    const ListNode* old_tail = note_list;
    store(60.0F);
    store_fused(64.0F);
    EXPECT_EQ(note_list, old_tail);
}

TEST_F(StorePfield, FailureLeavesTheListAsItWas) {
    make_events(2);
    store(60.0F);
    const ListNode* before = cursor;
    vorn::event_nodes = vorn::MAX_EVENTS;
    EXPECT_FALSE(store_fused(64.0F));
    EXPECT_EQ(cursor, before);
    EXPECT_EQ(fused, 1);
    EXPECT_EQ(values(4), (Floats{60.0F, 0.0F}));
}

// --- repeated chords ---

TEST_F(DoListChord, RepeatsTheWholeChordBehindTheCursor) {
    // 60:64:67 / on events at 0, 1, 2
    make_events(3);
    store(60.0F);
    store_fused(64.0F);
    store_fused(67.0F);
    ASSERT_TRUE(repeat_chord());
    EXPECT_EQ(extra, 2U);
    EXPECT_EQ(values(4), (Floats{60.0F, 64.0F, 67.0F, 60.0F, 64.0F, 67.0F, 0.0F}));
    EXPECT_EQ(codes(), (Codes{0, 1, 1, 0, 1, 1, 0}));
    EXPECT_EQ(starts(), (Floats{0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F, 2.0F}));
    EXPECT_EQ(beats(), (Floats{0.0F, 0.0F, 0.0F, 1.0F, 1.0F, 1.0F, 2.0F}));
    EXPECT_EQ(cursor->next, note_list);
}

TEST_F(DoListChord, LutStaysForTheNextRepeat) {
    make_events(3);
    store(60.0F);
    store_fused(64.0F);
    const ListNode* lut = LUT;
    repeat_chord();
    EXPECT_EQ(LUT, lut);
    repeat_chord();
    EXPECT_EQ(values(4), (Floats{60.0F, 64.0F, 60.0F, 64.0F, 60.0F, 64.0F}));
    EXPECT_EQ(extra, 1U);
    EXPECT_EQ(note_list, cursor);
}

TEST_F(DoListChord, AddedEventsKeepTheOtherValuesOfTheirOwnTime) {
    make_events(2);
    store(11.0F, 5);
    store(22.0F, 5);
    cursor = note_list;
    store(60.0F);
    store_fused(64.0F);
    repeat_chord();
    EXPECT_EQ(values(5), (Floats{11.0F, 11.0F, 22.0F, 22.0F}));
}

TEST_F(DoListChord, CopiesAreNotMultipliedByTheFactor) {
    make_events(2);
    store(10.0F, 4, 2.0F);
    fused = 1;
    store(30.0F, 4, 2.0F);
    repeat_chord();
    EXPECT_EQ(values(4), (Floats{20.0F, 60.0F, 20.0F, 60.0F}));
}

TEST_F(DoListChord, WholeSecondsAtTheTail) {
    // The cursor at start 2.7, the chord's duration 0.5: start 2, duration 0.
    insert(0.5F, 4.0F, 2.25F);
    insert(0.5F, 5.0F);
    note_list->start = 2.7F;
    cursor = note_list;
    LUT = note_list->next;
    LUT->pf[0] = 60.0F;
    ASSERT_TRUE(repeat_chord());
    EXPECT_EQ(note_list->start, 2.0F);
    EXPECT_EQ(note_list->dur, 0.0F);
    EXPECT_EQ(note_list->beat, 4.0F);
    EXPECT_EQ(note_list->pf[0], 60.0F);
    EXPECT_EQ(extra, 0U);
    EXPECT_EQ(cursor, note_list);
}

TEST_F(DoListChord, WholeSecondsAtTheTailAreMagnitudes) {
    insert(-2.9F, 0.0F, -3.9F);
    cursor = LUT = note_list;
    repeat_chord();
    EXPECT_EQ(note_list->start, 5.0F);
    EXPECT_EQ(note_list->dur, 2.0F);
}

TEST_F(DoListChord, WholeSecondsAtTheTailSaturate) {
    // 2147483647 + 2147483647 = 4294967294, whose nearest float is 4294967296.
    insert(1e20F, 0.0F, 1e30F);
    cursor = LUT = note_list;
    repeat_chord();
    EXPECT_EQ(note_list->start, 4294967296.0F);
    EXPECT_EQ(note_list->dur, 2147483648.0F);
}

TEST_F(DoListChord, EventAtTheTailTakesItsOtherValuesFromTheOldTail) {
    make_events(2);
    store(11.0F, 5);
    store(22.0F, 5);
    cursor = note_list;
    store(60.0F, 4);
    store(61.0F, 4);
    LUT = note_list->next;
    repeat_chord();
    EXPECT_EQ(values(4), (Floats{60.0F, 61.0F, 60.0F}));
    EXPECT_EQ(values(5), (Floats{11.0F, 22.0F, 22.0F}));
}

TEST_F(DoListChord, ChordAtTheTailGrowsBehindIt) {
    make_events(1);
    store(60.0F);
    store_fused(64.0F);
    ASSERT_TRUE(repeat_chord());
    // Start 0 and duration 1: the new chord starts at 1.
    EXPECT_EQ(starts(), (Floats{0.0F, 0.0F, 1.0F, 1.0F}));
    EXPECT_EQ(values(4), (Floats{60.0F, 64.0F, 60.0F, 64.0F}));
    EXPECT_EQ(codes(), (Codes{0, 1, 0, 1}));
    EXPECT_EQ(note_list, cursor);
}

TEST_F(DoListChord, FailureLeavesAClosedRing) {
    make_events(2);
    store(60.0F);
    store_fused(64.0F);
    vorn::event_nodes = vorn::MAX_EVENTS;
    EXPECT_FALSE(repeat_chord());
    EXPECT_EQ(events().size(), 3U);
}

TEST_F(DoListChord, FailureAtTheTailLeavesTheListAsItWas) {
    make_events(1);
    store(60.0F);
    vorn::event_nodes = vorn::MAX_EVENTS;
    EXPECT_FALSE(repeat_chord());
    EXPECT_EQ(events().size(), 1U);
    EXPECT_EQ(cursor, note_list);
}

// --- building blocks ---

TEST_F(CopyEvent, CopiesTheTailAndStaysDetached) {
    insert(0.5F, 3.0F, 7.0F);
    note_list->code = 1;
    for (int i = 0; i < 3; ++i) note_list->pf[i] = static_cast<float>(i + 1);
    const ListNode* copy = vorn::CopyEvent(note_list, PFIELDS);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, note_list);
    EXPECT_EQ(copy->code, 1U);
    EXPECT_EQ(copy->start, 7.0F);
    EXPECT_EQ(copy->dur, 0.5F);
    EXPECT_EQ(copy->beat, 3.0F);
    EXPECT_EQ(copy->next, nullptr);
    EXPECT_EQ(copy->pf[0], 1.0F);
    EXPECT_EQ(copy->pf[1], 2.0F);
    EXPECT_EQ(copy->pf[2], 3.0F);
    EXPECT_EQ(events().size(), 1U);
}

TEST_F(CopyEvent, IsNullWithoutMemory) {
    insert(1.0F);
    vorn::event_nodes = vorn::MAX_EVENTS;
    EXPECT_EQ(vorn::CopyEvent(note_list, PFIELDS), nullptr);
}

TEST_F(InsertEvent, LinksBehindTheCursorAndMovesIt) {
    make_events(2);
    cursor = note_list->next;
    ListNode* node = vorn::GetListNode(PFIELDS);
    const ListNode* tail = note_list;
    EXPECT_EQ(vorn::InsertEvent(node, cursor, note_list), node);
    EXPECT_EQ(cursor, node);
    EXPECT_EQ(note_list, tail);
    EXPECT_EQ(events()[1], node);
}

TEST_F(InsertEvent, BecomesTheTailBehindTheTail) {
    make_events(2);
    ListNode* node = vorn::GetListNode(PFIELDS);
    vorn::InsertEvent(node, cursor, note_list);
    EXPECT_EQ(note_list, node);
    EXPECT_EQ(events().size(), 3U);
}

TEST_F(ClearLFusedCode, ClearsEveryEvent) {
    insert(1.0F);
    insert_fused(1.0F);
    insert_fused(1.0F);
    vorn::ClearLFusedCode(note_list);
    EXPECT_EQ(codes(), (Codes{0, 0, 0}));
}

TEST_F(ClearLFusedCode, ClearsTheCodesOfEveryKindOfChord) {
    make_events(3);
    store(1.0F);
    store_fused(2.0F);
    EXPECT_EQ(codes(), (Codes{0, 1, 0, 0}));
    vorn::ClearLFusedCode(note_list);
    EXPECT_EQ(codes(), (Codes{0, 0, 0, 0}));
    cursor = note_list;
    store(1.0F);
    store_fused(2.0F);
    repeat_chord();
    EXPECT_EQ(codes(), (Codes{0, 1, 0, 1, 0, 0}));
    vorn::ClearLFusedCode(note_list);
    EXPECT_EQ(codes(), (Codes{0, 0, 0, 0, 0, 0}));
}

TEST_F(ClearLFusedCode, ClearsTheCodesOfAListMadeBehindAReleasedOne) {
    insert(1.0F);
    insert_fused(1.0F);
    vorn::FreeListNodes(note_list);
    insert(1.0F);
    vorn::ClearLFusedCode(note_list);
    insert_fused(1.0F);
    EXPECT_EQ(codes(), (Codes{0, 1}));
    vorn::ClearLFusedCode(note_list);
    EXPECT_EQ(codes(), (Codes{0, 0}));
}

TEST_F(ClearLFusedCode, AcceptsAnEmptyList) { vorn::ClearLFusedCode(nullptr); }

// --- events within a span ---

TEST_F(ListSize, CursorAtTailStartsAtHead) {
    make_events(4);
    EXPECT_EQ(size(10.0F), 4U);
    EXPECT_EQ(first, 0.0F);
    EXPECT_EQ(last, 3.0F);
}

TEST_F(ListSize, IncludesBothEnds) {
    make_events(4);
    EXPECT_EQ(size(2.0F), 3U);
    EXPECT_EQ(last, 2.0F);
    EXPECT_EQ(size(1.75F), 2U);
    EXPECT_EQ(last, 1.0F);
}

TEST_F(ListSize, NeverWrapsPastTheHead) {
    make_events(4);
    cursor = note_list->next->next;  // beat 1
    EXPECT_EQ(size(100.0F), 2U);
    EXPECT_EQ(first, 2.0F);
    EXPECT_EQ(last, 3.0F);
}

TEST_F(ListSize, OfNoSpanCountsTheEventsOfOneBeat) {
    insert(1.0F, 0.0F);
    insert_fused(1.0F);
    insert(1.0F, 1.0F);
    cursor = note_list;
    EXPECT_EQ(size(0.0F), 2U);
    EXPECT_EQ(last, 0.0F);
}

TEST_F(ListSize, OfANegativeSpanIsNone) {
    make_events(2);
    EXPECT_EQ(size(-0.5F), 0U);
    EXPECT_EQ(first, 0.0F);
    EXPECT_EQ(last, 0.0F);
}

TEST_F(ListSize, OfAnEmptyListIsNone) { EXPECT_EQ(size(1.0F), 0U); }

// --- statistics ---

TEST_F(GetListStats, CountsAndMeasures) {
    insert(1.5F, 2.0F, 4.0F);
    insert(0.5F, 3.5F);
    insert(0.25F, 4.0F);
    take();
    EXPECT_EQ(stats.count, 3U);
    EXPECT_EQ(stats.end_time, 6.25);
    EXPECT_EQ(stats.duration, 2.25);
    EXPECT_EQ(stats.beats, 2.0);
}

TEST_F(GetListStats, BeginsWithNothing) {
    const vorn::ListStats fresh;
    EXPECT_EQ(fresh.duration, 0.0);
    EXPECT_EQ(fresh.beats, 0.0);
    EXPECT_EQ(fresh.end_time, 0.0);
    EXPECT_EQ(fresh.count, 0U);
}

TEST_F(GetListStats, EndTimeIsTheLargestNotTheLast) {
    insert(1.0F);
    insert(1.0F);
    note_list->next->dur = 30.0F;
    take();
    EXPECT_EQ(stats.end_time, 30.0);
}

TEST_F(GetListStats, SingleEventHasNoBeats) {
    insert(1.0F, 8.0F, 8.0F);
    take();
    EXPECT_EQ(stats.beats, 0.0);
    EXPECT_EQ(stats.duration, 1.0);
}

TEST_F(GetListStats, EndTimeStartsFromZero) {
    insert(-5.0F, 0.0F, 3.0F);
    take();
    EXPECT_EQ(stats.end_time, 0.0);
    EXPECT_EQ(stats.duration, -3.0);
}

TEST_F(GetListStats, EndTimesAreSumsInSinglePrecision) {
    // 16777216 + 1 is no float.
    insert(1.0F, 0.0F, 16777216.0F);
    take();
    EXPECT_EQ(stats.end_time, 16777216.0);
    EXPECT_EQ(stats.duration, 0.0);
}

TEST_F(GetListStats, EmptyListTouchesOnlyTheCount) {
    take();
    EXPECT_EQ(stats.count, 0U);
    EXPECT_EQ(stats.duration, -1.0);
    EXPECT_EQ(stats.beats, -2.0);
    EXPECT_EQ(stats.end_time, -3.0);
}

// --- rests ---

TEST_F(RemoveRests, TakesRestsFromFrontMiddleAndEnd) {
    make_durations({-1.0F, 0.0F, 1.0F, -2.0F, 3.0F, 0.0F, -1.0F});
    EXPECT_TRUE(remove());
    EXPECT_EQ(durations(), (Floats{1.0F, 3.0F}));
    EXPECT_EQ(note_list->dur, 3.0F);
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(number, 2);
}

TEST_F(RemoveRests, KeepsAListWithoutRests) {
    make_durations({1.0F, 2.0F, 3.0F});
    const ListNode* tail = note_list;
    EXPECT_TRUE(remove());
    EXPECT_EQ(note_list, tail);
    EXPECT_EQ(count, 3U);
    EXPECT_EQ(number, 3);
}

TEST_F(RemoveRests, KeepsTheOneEventThatSounds) {
    for (const auto& list : {std::initializer_list<float>{1.0F, -1.0F, -1.0F},
                             {-1.0F, 1.0F, -1.0F},
                             {-1.0F, -1.0F, 1.0F},
                             {1.0F}}) {
        make_durations(list);
        EXPECT_TRUE(remove());
        EXPECT_EQ(durations(), (Floats{1.0F}));
        EXPECT_EQ(note_list->next, note_list);
        EXPECT_EQ(count, 1U);
        vorn::FreeListNodes(note_list);
    }
}

TEST_F(RemoveRests, EmptiesAListOfRests) {
    for (const auto& list : {std::initializer_list<float>{-1.0F}, {0.0F, -1.0F}, {-1.0F, 0.0F, -2.0F}}) {
        make_durations(list);
        count += 5;  // marks of P3 raise the counts without adding an event
        EXPECT_FALSE(remove());
        EXPECT_EQ(note_list, nullptr);
        EXPECT_EQ(count, 0U);
        EXPECT_EQ(number, 0);
    }
}

TEST_F(RemoveRests, LeavesAnEmptyListAsItIs) {
    count = 4;
    number = 3;
    EXPECT_FALSE(remove());
    EXPECT_EQ(count, 4U);
    EXPECT_EQ(number, 3);
}

TEST_F(RemoveRests, LowersTheNumberOfEventsBelowZeroIfItMust) {
    make_durations({-1.0F, 1.0F});
    number = 0;
    EXPECT_TRUE(remove());
    EXPECT_EQ(number, -1);
}

TEST_F(RemoveRests, DurationThatIsNoNumberIsNoRest) {
    make_durations({1.0F, 1.0F});
    note_list->dur = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(remove());
    EXPECT_EQ(count, 2U);
}

// --- more p-fields ---

TEST_F(GrowPfields, KeepsValuesAndZeroesTheNewOnes) {
    make_events(2);
    store(1.0F, 4);
    store(2.0F, 6);
    ASSERT_TRUE(vorn::GrowPfields(note_list, PFIELDS, 128));
    EXPECT_EQ(values(4), (Floats{1.0F, 0.0F}));
    EXPECT_EQ(values(6), (Floats{0.0F, 2.0F}));
    EXPECT_EQ(values(128), (Floats{0.0F, 0.0F}));
}

TEST_F(GrowPfields, NeverShrinks) {
    make_events(1);
    const float* values = note_list->pf;
    EXPECT_TRUE(vorn::GrowPfields(note_list, PFIELDS, 4));
    EXPECT_EQ(note_list->pf, values);
}

TEST_F(GrowPfields, FurtherRoomCountsAsValues) {
    make_events(2);
    vorn::event_values = vorn::MAX_VALUES - 15;
    EXPECT_TRUE(vorn::GrowPfields(note_list, PFIELDS, 7));
    EXPECT_FALSE(vorn::GrowPfields(note_list, 7, 8));
}

TEST_F(GrowPfields, AcceptsAnEmptyList) { EXPECT_TRUE(vorn::GrowPfields(nullptr, 3, 8)); }

// --- dumps and release ---

TEST_F(TraverseList, ValuesGoToStandardOutput) {
    insert(0.5F, 1.0F, 2.0F);
    insert_fused(0.25F);
    cursor = note_list;
    store(60.0F, 4);
    note_list->code = 1;
    vorn::TraverseList(note_list, PFIELDS, stream);
    EXPECT_EQ(contents(stream),
              "\nST   2.000\tD   0.500\tBT  1.000\tCODE 0\t"
              "\nST   2.000\tD   0.250\tBT  1.000\tCODE 1\t");
    EXPECT_EQ(contents(output),
              "  60.0000\t   0.0000\t   0.0000\t"
              "   0.0000\t   0.0000\t   0.0000\t");
}

TEST_F(TraverseList, OfAnEmptyListWritesNothing) {
    vorn::TraverseList(nullptr, PFIELDS, stream);
    EXPECT_EQ(contents(stream), "");
}

TEST_F(FreeListNodes, NullsHandleAndLut) {
    make_events(3);
    store(1.0F);
    vorn::FreeListNodes(note_list);
    EXPECT_EQ(note_list, nullptr);
    EXPECT_EQ(LUT, nullptr);
    EXPECT_EQ(vorn::event_nodes, 0U);
    EXPECT_EQ(vorn::event_values, 0U);
}

TEST_F(FreeListNodes, GivesTheMemoryBack) {
    make_events(3);
    EXPECT_NE(vorn::event_arena.newest, nullptr);
    vorn::FreeListNodes(note_list);
    EXPECT_EQ(vorn::event_arena.newest, nullptr);
}

TEST_F(FreeListNodes, AcceptsAnEmptyList) {
    vorn::FreeListNodes(note_list);
    EXPECT_EQ(note_list, nullptr);
}

TEST_F(FreeListNodes, ResetForgetsTheLastInterval) {
    insert(4.0F);
    EXPECT_EQ(vorn::last_dur, 4.0F);
    vorn::reset_event_list();
    EXPECT_EQ(vorn::last_dur, 0.0F);
    EXPECT_EQ(note_list, nullptr);
}
