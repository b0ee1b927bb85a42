#include "output/event_list.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

#include "generators/arithmetic.h"
#include "input/run_flags.h"

// P2 appends the events in time order; every later p-field statement walks the
// ring once more from the head and gives each event one value.
//
// Invariants: the handle is null or points at the newest event of a closed ring;
// a fused event (code 1) stands right behind the event whose start it shares.
// An event and its values are one piece of the arena:
//
//     | code start dur beat pf next | P4 P5 ... Pn |
//
// with room for P4 and P5 at least, which the MIDI pass needs. A block of n
// p-fields costs 20 + 4n bytes for each event, rounded up to whole pointers, and
// events that follow each other in the list mostly follow each other in memory.
//
// Example: the P2 values 1 : 2 1 at tempo 60 give starts 0, 0 and 2, since the
// larger interval of a chord is the one that counts.

namespace vorn {

ListNode* note_list = nullptr;
ListNode* LUT = nullptr;
float last_dur = 0.0F;
Arena event_arena;
std::uint64_t event_nodes = 0;
std::uint64_t event_values = 0;
bool event_codes_set = false;

namespace {

// P4 to Pn.
std::size_t value_count(int pfields) { return static_cast<std::size_t>(pfields - 3); }

// Values that an event has room for: also a block without P4 and P5 has them in the MIDI pass.
std::size_t value_room(int pfields) { return value_count(pfields < 5 ? 5 : pfields); }

std::size_t value_index(int pfield) { return static_cast<std::size_t>(pfield - 4); }

// Counts the p-fields of an event. False, with nothing counted, when the block is to have no more.
bool count_values(int pfields) {
    const auto values = static_cast<std::uint64_t>(pfields);
    if (event_values + values > MAX_VALUES) return false;
    event_values += values;
    return true;
}

// Asks for the memory some events ahead: in a large block a walk over the list
// waits for memory and for little else. A wrong guess does no harm.
inline void read_ahead(const ListNode* node) {
    constexpr std::size_t DISTANCE = 1024;  // bytes; about 16 events of 8 p-fields
    __builtin_prefetch(reinterpret_cast<const char*>(node) + DISTANCE, 1);
}

// StorePfield with a pending mark: a further member of the chord at the cursor.
bool store_fused(ListNode*& cursor, ListNode*& list, int pfield, int pfields, float value) {
    ListNode* node = CopyEvent(cursor, pfields);
    if (node == nullptr) return false;
    node->pf[value_index(pfield)] = value;
    node->code = 1;
    event_codes_set = true;
    InsertEvent(node, cursor, list);
    return true;
}

// DoListChord with the cursor at the tail: one more event behind it.
bool append_repeat(ListNode*& list, ListNode*& cursor, const ListNode* lut, int pfield, int pfields) {
    ListNode* node = CopyEvent(cursor, pfields);
    if (node == nullptr) return false;
    // Whole seconds, kept on purpose.
    const std::int64_t duration = std::abs(std::int64_t{to_int32(lut->dur)});
    const std::int64_t start = std::abs(std::int64_t{to_int32(cursor->start)}) + duration;
    node->code = lut->code;
    node->beat = lut->beat;
    node->dur = static_cast<float>(duration);
    node->start = static_cast<float>(start);
    node->pf[value_index(pfield)] = lut->pf[value_index(pfield)];
    InsertEvent(node, cursor, list);
    return true;
}

// Copies the fused events behind lut, each at the time of the event before the copy.
bool repeat_chord_members(ListNode*& list, ListNode*& cursor, const ListNode* lut, int pfield, int pfields,
                          std::uint64_t& extra) {
    for (const ListNode* member = lut->next; member->code != 0; member = member->next) {
        ListNode* node = CopyEvent(cursor, pfields);
        if (node == nullptr) return false;
        node->code = member->code;
        node->pf[value_index(pfield)] = member->pf[value_index(pfield)];
        InsertEvent(node, cursor, list);
        ++extra;
    }
    return true;
}

// Takes the event behind `previous` out of the ring.
void unlink_next(ListNode* previous, ListNode*& list, EventCounts counts) {
    ListNode* node = previous->next;
    previous->next = node->next;
    if (node == list) list = previous;
    --counts.events;
    --counts.event_no;
}

bool is_rest(const ListNode* node) { return node->dur <= 0.0F; }

}  // namespace

ListNode* GetListNode(int pfields) {
    if (event_nodes >= MAX_EVENTS || !count_values(pfields)) return nullptr;
    const std::size_t values = value_room(pfields) * sizeof(float);
    void* memory = arena_allocate(event_arena, sizeof(ListNode) + values);
    if (memory == nullptr) return nullptr;
    ++event_nodes;
    auto* node = static_cast<ListNode*>(memory);
    node->pf = reinterpret_cast<float*>(node + 1);
    return node;
}

bool InsertBegTime(ListNode*& list, int pfields, int& fused, float value, float block_start, float beat) {
    ListNode* node = GetListNode(pfields);
    if (node == nullptr) return false;
    const float interval = std::fabs(value);
    node->dur = value;
    if (list == nullptr) {
        // The pending mark stays for the next value, kept on purpose.
        node->start = block_start;
        node->beat = beat;
        node->next = node;
        last_dur = interval;
    } else if (fused != 0) {
        node->code = 1;
        event_codes_set = true;
        node->start = list->start;
        node->beat = list->beat;
        if (interval > last_dur) last_dur = interval;
        fused = 0;
    } else {
        node->start = list->start + last_dur;
        node->beat = beat;
        last_dur = interval;
    }
    if (list != nullptr) {
        node->next = list->next;
        list->next = node;
    }
    list = node;
    return true;
}

bool StorePfield(ListNode*& cursor, ListNode*& list, int pfield, int pfields, int& fused, ListNode*& lut,
                 float value, float factor) {
    const float stored = value * factor;
    if (fused != 0) {
        if (!store_fused(cursor, list, pfield, pfields, stored)) return false;
        fused = 0;
        return true;
    }
    cursor = cursor->next;
    read_ahead(cursor);
    cursor->pf[value_index(pfield)] = stored;
    cursor->code = 0;
    lut = cursor;
    return true;
}

bool DoListChord(ListNode*& list, ListNode*& cursor, ListNode* lut, int pfield, int pfields,
                 std::uint64_t& extra) {
    extra = 0;
    if (cursor != list) {
        cursor = cursor->next;
        cursor->pf[value_index(pfield)] = lut->pf[value_index(pfield)];
        cursor->code = lut->code;
    } else if (!append_repeat(list, cursor, lut, pfield, pfields)) {
        return false;
    }
    return repeat_chord_members(list, cursor, lut, pfield, pfields, extra);
}

ListNode* CopyEvent(const ListNode* list, int pfields) {
    ListNode* node = GetListNode(pfields);
    if (node == nullptr) return nullptr;
    node->code = list->code;
    node->start = list->start;
    node->dur = list->dur;
    node->beat = list->beat;
    std::memcpy(node->pf, list->pf, value_count(pfields) * sizeof(float));
    return node;
}

ListNode* InsertEvent(ListNode* node, ListNode*& cursor, ListNode*& list) {
    node->next = cursor->next;
    cursor->next = node;
    if (cursor == list) list = node;
    cursor = node;
    return node;
}

void ClearLFusedCode(ListNode* list) {
    if (list == nullptr || !event_codes_set) return;
    ListNode* node = list;
    do {
        node = node->next;
        read_ahead(node);
        node->code = 0;
    } while (node != list);
    event_codes_set = false;
}

std::uint64_t ListSize(float& first_beat, float& last_beat, const ListNode* cursor, const ListNode* list,
                       float span) {
    if (list == nullptr) return 0;
    const ListNode* node = cursor->next;
    first_beat = node->beat;
    last_beat = node->beat;
    const float end = first_beat + span;
    std::uint64_t count = 0;
    // An event exactly at the end counts as well, kept on purpose.
    while (!(node->beat > end)) {
        ++count;
        last_beat = node->beat;
        if (node == list) break;
        node = node->next;
    }
    return count;
}

void GetListStats(const ListNode* list, ListStats& stats) {
    stats.count = 0;
    if (list == nullptr) return;
    double end_time = 0.0;
    const ListNode* node = list;
    do {
        node = node->next;
        const float end = node->start + node->dur;
        if (end > end_time) end_time = end;
        ++stats.count;
    } while (node != list);
    stats.end_time = end_time;
    stats.duration = end_time - list->next->start;
    // The last event's own length is left out, kept on purpose.
    stats.beats = list->beat - list->next->beat;
}

bool RemoveRests(ListNode*& list, EventCounts counts) {
    if (list == nullptr) return false;
    ListNode* previous = list;
    const ListNode* const last = list;
    bool at_last = false;
    while (!at_last) {
        ListNode* node = previous->next;
        at_last = node == last;
        if (!is_rest(node)) {
            previous = node;
        } else if (node == previous) {
            counts.events = 0;
            counts.event_no = 0;
            FreeListNodes(list);
            return false;
        } else {
            unlink_next(previous, list, counts);
        }
    }
    return true;
}

bool GrowPfields(ListNode* list, int old_pfields, int pfields) {
    if (list == nullptr || pfields <= old_pfields) return true;
    const std::size_t size = value_room(pfields) * sizeof(float);
    ListNode* node = list;
    do {
        node = node->next;
        if (!count_values(pfields)) return false;
        void* values = arena_allocate(event_arena, size);
        if (values == nullptr) return false;
        std::memcpy(values, node->pf, value_room(old_pfields) * sizeof(float));
        node->pf = static_cast<float*>(values);
    } while (node != list);
    return true;
}

void TraverseList(const ListNode* list, int pfields, std::FILE* stream) {
    if (list == nullptr) return;
    const ListNode* node = list;
    do {
        node = node->next;
        std::fprintf(stream, "\nST %7.3f\tD %7.3f\tBT%7.3f\tCODE %d\t", double{node->start},
                     double{node->dur}, double{node->beat}, static_cast<int>(node->code));
        // Not to the stream, kept on purpose.
        for (std::size_t k = 0; k < value_count(pfields); ++k) {
            std::fprintf(std_out, "%9.4f\t", double{node->pf[k]});
        }
    } while (node != list);
}

void FreeListNodes(ListNode*& list) {
    arena_release(event_arena);
    event_nodes = event_values = 0;
    event_codes_set = false;
    list = nullptr;
    LUT = nullptr;
}

void reset_event_list() {
    FreeListNodes(note_list);
    last_dur = 0.0F;
}

}  // namespace vorn
