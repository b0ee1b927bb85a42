#include "output/midi_events.h"

#include <bit>
#include <memory>
#include <new>
#include <utility>

#include "generators/arithmetic.h"
#include "input/messages.h"
#include "output/midi_trace.h"

// A note of the score has a start and a duration; a MIDI track wants a note-on
// and, later, a note-off. List2MIDI adds the note-offs to the event list, each
// behind every event that starts no later than the note ends:
//
//     c 0..1, e 1..2    ->    on c 0, on e 1, off c 1, off e 2
//
// so a note-on precedes the note-off of the note before it at the same moment.
//
// Where starts never decrease, note-offs fall into the order of their ends, and
// among equal ends into the order of their notes. Sorted so, unless they are
// already, they are merged with the notes, in time that grows with the events
// however many overlap.
// Where a start steps back, which whole-second copies of a chord can do, the
// list is walked forward from each note to the place of its note-off instead.

namespace vorn {

namespace {

constexpr float TICKS_PER_SECOND = 480.0F;
constexpr int EVENT_BYTES = 3;                         // status, note, velocity
constexpr double VELOCITY_FACTOR = 0.003875850703452;  // 127 / 32767
constexpr float NOTE_OFF_VELOCITY = static_cast<float>(15480.47265625 * VELOCITY_FACTOR);  // 60

// The events as they are visited in playing order, and what that adds up to.
struct Track {
    ListNode*& list;
    int pfields;
    float previous_start = 0;
    std::uint64_t size = 0;
    MidiTrace trace = {};
};

float end_of(const ListNode& note) { return note.start + note.dur; }

// Turns P4 into the velocity and P5 into the note, in the list itself: kept on purpose.
void convert_note(ListNode& note) {
    note.pf[0] = static_cast<float>(static_cast<double>(note.pf[0]) * VELOCITY_FACTOR);
    note.pf[1] = mod(note.pf[1], MIDI_NOTES);
}

// Accounts for one event of the track: its bytes and its line of the trace.
void add_event(Track& track, const ListNode& event) {
    track.size +=
        static_cast<std::uint64_t>(VLSize(delta_ticks(track.previous_start, event.start)) + EVENT_BYTES);
    track.previous_start = event.start;
    trace_event(track.trace, event);
}

// The note-off of a converted note, not linked. It keeps the note's duration:
// kept on purpose, the length of the file counts it. Null: out of memory.
ListNode* make_note_off(const ListNode& note, int pfields) {
    ListNode* off = CopyEvent(&note, pfields);
    if (off == nullptr) return nullptr;
    off->code = NOTE_OFF_CODE;
    off->start = end_of(note);
    off->pf[0] = NOTE_OFF_VELOCITY;
    return off;
}

// --- by walking forward from each note ---

// Links the note-off behind the last of the following events that starts no
// later than the note ends.
bool insert_note_off(Track& track, ListNode& note) {
    ListNode* off = make_note_off(note, track.pfields);
    if (off == nullptr) return false;
    ListNode* place = &note;
    while (place != track.list && !(place->next->start > off->start)) place = place->next;
    InsertEvent(off, place, track.list);
    return true;
}

bool walk_events(Track& track) {
    ListNode* event = track.list;
    do {
        event = event->next;
        if (event->code == NOTE_ON_CODE) {
            convert_note(*event);
            if (!insert_note_off(track, *event)) return false;
        }
        add_event(track, *event);
    } while (event != track.list);
    return true;
}

// --- by merging notes and note-offs ---

struct NoteEnd {
    std::uint32_t key;  // bits of the end, which order as ends of 0 and above do
    const ListNode* note;
};

std::uint32_t end_key(const ListNode& note) { return std::bit_cast<std::uint32_t>(end_of(note)); }

// Sorts by key, a byte at a time from the lowest; equal keys keep their order.
// The four passes end where they began, in `ends`.
void sort_ends(NoteEnd* ends, NoteEnd* scratch, std::size_t count) {
    for (int shift = 0; shift < 32; shift += 8) {
        const auto digit = [shift](const NoteEnd& end) { return (end.key >> shift) & 0xFFU; };
        std::size_t place[257] = {};  // of the next end with that digit
        for (std::size_t i = 0; i < count; ++i) ++place[digit(ends[i]) + 1];
        for (int i = 0; i < 256; ++i) place[i + 1] += place[i];
        for (std::size_t i = 0; i < count; ++i) scratch[place[digit(ends[i])]++] = ends[i];
        std::swap(ends, scratch);
    }
}

// The ends of `count` notes in their order; null when out of memory.
std::unique_ptr<NoteEnd[]> sorted_ends(const ListNode* list, std::size_t count) {
    std::unique_ptr<NoteEnd[]> ends(new (std::nothrow) NoteEnd[count]);
    const std::unique_ptr<NoteEnd[]> scratch(new (std::nothrow) NoteEnd[count]);
    if (ends == nullptr || scratch == nullptr) return nullptr;
    const ListNode* note = list;
    for (std::size_t i = 0; i < count; ++i) {
        note = note->next;
        ends[i] = {end_key(*note), note};
    }
    sort_ends(ends.get(), scratch.get(), count);
    return ends;
}

// A place among the notes in the order of their ends: in a sorted array or, where
// notes end in the order in which they start, in the list itself.
struct Ending {
    const NoteEnd* sorted;  // null: in the list
    const ListNode* note;
};

void step(Ending& ending) {
    if (ending.sorted != nullptr) {
        ending.note = (++ending.sorted)->note;
        return;
    }
    do {
        ending.note = ending.note->next;
    } while (ending.note->code == NOTE_OFF_CODE);
}

// Visits the notes and, as soon as the next note starts later than the earliest
// end, inserts note-offs.
bool merge_events(Track& track, Ending ending, std::size_t notes) {
    ListNode* event = track.list;
    std::size_t started = 0;
    std::size_t ended = 0;
    while (ended < notes) {
        if (started < notes && event->next->start <= end_of(*ending.note)) {
            event = event->next;
            convert_note(*event);
            ++started;
        } else {
            ListNode* off = make_note_off(*ending.note, track.pfields);
            if (off == nullptr) return false;
            InsertEvent(off, event, track.list);
            if (++ended < notes) step(ending);
        }
        add_event(track, *event);
    }
    return true;
}

struct Survey {
    std::size_t notes = 0;
    // Starts never decrease, and no note ends before it starts, which rounding
    // cannot bring about but a value that is not a number does.
    bool starts_in_order = true;
    bool ends_in_order = true;
};

// Makes every event a note-on.
Survey mark_as_notes(ListNode* list) {
    Survey survey;
    float previous_start = 0;
    float previous_end = 0;
    event_codes_set = true;
    ListNode* event = list;
    do {
        event = event->next;
        event->code = NOTE_ON_CODE;
        ++survey.notes;
        const float end = end_of(*event);
        if (!(event->start >= previous_start && end >= event->start)) survey.starts_in_order = false;
        if (!(end >= previous_end)) survey.ends_in_order = false;
        previous_start = event->start;
        previous_end = end;
    } while (event != list);
    return survey;
}

// Inserts and visits everything. False: out of memory.
bool make_track(Track& track) {
    const Survey survey = mark_as_notes(track.list);
    if (!survey.starts_in_order) return walk_events(track);
    if (survey.ends_in_order) return merge_events(track, {nullptr, track.list->next}, survey.notes);
    const std::unique_ptr<NoteEnd[]> ends = sorted_ends(track.list, survey.notes);
    return ends != nullptr && merge_events(track, {ends.get(), ends[0].note}, survey.notes);
}

}  // namespace

std::uint64_t to_ticks(float seconds) {
    const float ticks = seconds * TICKS_PER_SECOND;
    if (!(ticks > 0)) return 0;
    if (ticks >= static_cast<float>(MAX_TICKS)) return MAX_TICKS;
    return static_cast<std::uint64_t>(ticks);
}

int VLSize(std::uint64_t value) {
    int size = 1;
    while (value >>= 7) ++size;
    return size;
}

MidiResult List2MIDI(ListNode*& list, int pfields, int instrument, std::uint64_t& track_size,
                     EventCounts counts) {
    if (list == nullptr) return MidiResult::NO_NOTES;
    if (!RemoveRests(list, counts)) {
        Mprintf("\n\nOops i-block %d is all rests! ", instrument);
        return MidiResult::NO_NOTES;
    }
    Track track{list, pfields};
    const bool done = make_track(track);
    print_trace(track.trace);
    track_size = track.size;
    return done ? MidiResult::NOTES : MidiResult::OUT_OF_MEMORY;
}

}  // namespace vorn
