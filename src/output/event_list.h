#pragma once

#include <cstdint>
#include <cstdio>

#include "output/arena.h"

// The events of one instrument block.
//
// The list is a singly linked ring. Its handle points at the tail, the newest
// event; the tail's next is the head, the earliest. An empty list is a null
// handle. Statements keep a cursor of their own, the event that received the
// last value; a cursor at the tail therefore starts at the head.
//
// Nodes and their p-field values come from one arena, which FreeListNodes
// releases as a whole. All insertions are O(1).

namespace vorn {

struct ListNode {
    std::uint32_t code;  // 1: fused to the event before it; in the MIDI pass 1 note-on, 0 note-off
    float start;         // seconds
    float dur;           // seconds; 0 or less is a rest. The start interval until P3 is read
    float beat;          // beat position at which the event starts
    float* pf;           // Pn at index n - 4; zero-filled
    ListNode* next;
};

constexpr int MAX_PFIELD_COUNT = 128;  // p-fields of one event, P1 included

// Events of one block; more is error 32. The fuzzers are built with fewer.
#ifdef VORN_MAX_EVENTS
constexpr std::uint64_t MAX_EVENTS = VORN_MAX_EVENTS;
#else
constexpr std::uint64_t MAX_EVENTS = 50'000'000;
#endif

// Values of one block, that is its events times its p-fields; more is error 32, so
// that a machine of 8 GiB says so before it runs out of memory. An event costs 20
// bytes and 4 for each p-field, rounded up to whole pointers, and 40 at least: a full
// block takes 2.8 GB at 8 p-fields and less at any other number. Below 8 p-fields
// MAX_EVENTS comes first.
constexpr std::uint64_t MAX_VALUES = 8 * MAX_EVENTS;

extern ListNode* note_list;  // tail of the current block's events; null when there are none
extern ListNode* LUT;  // the event that was last given a value from data rather than copied; may be null

extern float last_dur;     // seconds: the largest |interval| of the last start time; written by InsertBegTime
extern Arena event_arena;  // holds every event of the current block
extern std::uint64_t event_nodes;   // events taken from event_arena since it was last released
extern std::uint64_t event_values;  // their p-fields, those of further room counted anew
extern bool event_codes_set;        // false: every event has code 0

// A new zeroed event with room for pfields values, not linked; null when memory,
// MAX_EVENTS or MAX_VALUES is exhausted.
[[nodiscard]] ListNode* GetListNode(int pfields);

// Appends one event of P2. `fused` is the pending fusion mark, cleared when it is
// used; value (seconds), block_start (seconds), beat. False: out of memory.
[[nodiscard]] bool InsertBegTime(ListNode*& list, int pfields, int& fused, float value, float block_start,
                                 float beat);

// Stores value * factor as P(pfield), pfield 4 or above, into the event behind
// the cursor, or, with a pending fusion mark, into a new event at the cursor's
// time. The cursor moves to the event. False: out of memory.
[[nodiscard]] bool StorePfield(ListNode*& cursor, ListNode*& list, int pfield, int pfields, int& fused,
                               ListNode*& lut, float value, float factor);

// Repeats the last chord of P(pfield) from lut behind the cursor; `extra` is the
// number of events added beside the first. False: out of memory.
[[nodiscard]] bool DoListChord(ListNode*& list, ListNode*& cursor, ListNode* lut, int pfield, int pfields,
                               std::uint64_t& extra);

// A detached copy of the tail event, or null.
[[nodiscard]] ListNode* CopyEvent(const ListNode* list, int pfields);

// Links node behind the cursor; it becomes the cursor, and the tail if the cursor was.
ListNode* InsertEvent(ListNode* node, ListNode*& cursor, ListNode*& list);

// Code 0 for every event.
void ClearLFusedCode(ListNode* list);

// Events from the one behind the cursor whose beat is at most first beat + span.
std::uint64_t ListSize(float& first_beat, float& last_beat, const ListNode* cursor, const ListNode* list,
                       float span);

struct ListStats {
    double duration = 0;      // seconds from the head's start to the end time
    double beats = 0;         // from the head's beat to the tail's
    double end_time = 0;      // largest start + dur
    std::uint64_t count = 0;  // events
};

// Leaves everything but the count untouched for an empty list.
void GetListStats(const ListNode* list, ListStats& stats);

// The two counts of a block that removing events lowers.
struct EventCounts {
    std::uint64_t& events;
    std::int64_t& event_no;
};

// Unlinks every event whose dur is 0 or less. False when none is left:
// the list is then empty, the counts 0. An empty list is left as it is.
[[nodiscard]] bool RemoveRests(ListNode*& list, EventCounts counts);

// Gives every event room for pfields values, keeping what it has.
// False: out of memory.
[[nodiscard]] bool GrowPfields(ListNode* list, int old_pfields, int pfields);

// Debugging dump; the P4-and-up values go to standard output, kept on purpose.
void TraverseList(const ListNode* list, int pfields, std::FILE* stream);

// Releases all events of the block; the handle and LUT become null.
void FreeListNodes(ListNode*& list);

void reset_event_list();

}  // namespace vorn
