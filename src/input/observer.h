#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>

// What a run tells a front end while it reads, beside the messages that it prints:
//
//     source   the bytes of the temporary copy, by the files that they come from
//     line     a line of the copy as it is read
//     splice   a call in that line gives way to its text
//     ...      what the line defines, sets and writes
//     message  an error or a warning
//
// A routine of the interface does nothing unless it is overridden. Everything
// that a record points at belongs to the run and holds until the routine returns;
// no routine may start another run or change what the run works on.
//
// Lines are numbered as in messages, from 1; positions count bytes of the line as
// it then stands, from 0. The lines follow each other in the copy without a gap, so
// the offset of a line is the sum of the lengths told before it. A line is cut in
// pieces where it is too long; each piece is a line.

namespace vorn {

struct ListNode;  // output/event_list.h
struct TempoDef;  // output/tempo_map.h

struct LinePlace {
    std::uint64_t line = 0;  // 0: before the first line
    std::int32_t pos = 0;
};

enum class SourceChange {
    BEGIN,   // a file begins
    RESUME,  // behind an include directive, whether or not its file had any text
    SKIP,    // behind a text that resembles a directive and is not copied
};

// From copy_offset on, and up to the next span, the copy holds the bytes of one
// file from file_offset on. A "#" that ends a file is followed by one byte more
// than the file has.
struct SourceSpan {
    SourceChange change = SourceChange::BEGIN;
    const char* name = nullptr;         // as the command line or the directive gives it
    int depth = 0;                      // 0 the input itself, 1 a file that it includes, ...
    std::int64_t copy_offset = 0;       // all three -1 in a stream without positions
    std::int64_t file_offset = 0;       //
    std::int64_t directive_offset = 0;  // BEGIN of an included file: of the "#" in the including one
};

// Line ends, and the byte 255, stand as blanks, a NUL byte as the byte 26; every
// other byte is that of the copy, and no byte is added or left out.
struct SourceLine {
    std::uint64_t number = 0;
    const char* text = nullptr;  // terminated
    std::size_t length = 0;
};

enum class SpliceKind { MACRO, CONSTANT, EQUATION, TIME_VARIABLE };

// text[start, end) of the line told last has given way to `inserted`. Applied in
// turn to the text of that line, the splices yield what the readers see; going
// through them backwards leads from a position there to the call. What is expanded
// within a macro's body is part of that body's splice.
struct Splice {
    SpliceKind kind = SpliceKind::MACRO;
    std::uint64_t line = 0;
    std::int32_t start = 0;
    std::int32_t end = 0;
    const char* inserted = nullptr;
    std::size_t inserted_length = 0;
    const char* name = nullptr;  // of the macro or constant; of others what a trace calls them
};

enum class Severity { ERROR, WARNING };

// A message as it is printed, the echoed line and its caret left out; warnings
// also while they are suppressed. Number 0: it has none. Error 1000 comes without a
// text and gives the place of the message told last.
struct Message {
    Severity severity = Severity::ERROR;
    int number = 0;
    const char* text = nullptr;  // not terminated; of a longer one the last 64 KiB
    std::size_t length = 0;
    LinePlace place;                     // where reading stopped; line 0: before the first line
    const char* line_text = nullptr;     // the line as it stands, terminated; may be null
    std::int64_t directive_offset = -1;  // of an include directive that fails: of its "#" in the file
                                         // told last; -1: of no directive
};

// A setting: the code of its command (blocks/command_codes.h) and its value,
// which is what stands at `begin` up to position `end` of the same line.
struct Setting {
    int command = 0;
    double value = 0;
    LinePlace begin;
    std::int32_t end = 0;
};

// A constant and its value, which is what stands at `begin` up to position `end`.
struct ConstantDefinition {
    const char* name = nullptr;
    double value = 0;
    LinePlace begin;
    std::int32_t end = 0;
};

// A macro; `begin` is behind the "#" that opens its body.
struct MacroDefinition {
    const char* name = nullptr;
    int argument_count = 0;
    const char* body = nullptr;
    LinePlace begin;
};

// A p-field statement that has been read and filled to the block's end.
struct PfieldStatement {
    int number = 0;                    // 2: P2
    int input_type = 0;                // the last one that it chose, as a command code
    int output_type = 0;               // as a command code
    LinePlace begin;                   // of its "p"
    LinePlace end;                     // of what comes next
    std::uint64_t count = 0;           // events of the block so far
    const ListNode* events = nullptr;  // the ring's tail; null: none. Behind P2 `dur` is the start interval
};

// An instrument block that has been read, before anything of it is written: rests
// are among the events still. The arrays have an entry for each p-field from P2 on
// and are null for a skipped block.
struct Block {
    int number = 0;        // in the score's comment; that of the next block if this one writes nothing
    int instrument = 0;    // negative: the block is skipped, and nothing below it is set
    bool is_midi = false;  // it becomes the MIDI file
    LinePlace begin;       // of the "i" of its first header
    LinePlace end;         // behind its "}"
    float start_beat = 0;
    float start_seconds = 0;
    float length = 0;                             // beats, or minus the number of events
    int pfields = 0;                              // P1 included
    const std::uint32_t* output_types = nullptr;  // command codes
    const std::uint32_t* decimals = nullptr;      // of output "re"
    const std::int32_t* fft_sizes = nullptr;      // size index of output "bn"
    std::uint64_t sample_rate = 0;                // hertz
    const ListNode* events = nullptr;             // the ring's tail; null: none
};

class Observer {
public:
    virtual void on_source(const SourceSpan&) {}
    virtual void on_line(const SourceLine&) {}
    virtual void on_splice(const Splice&) {}
    virtual void on_message(const Message&) {}
    virtual void on_setting(const Setting&) {}
    virtual void on_constant(const ConstantDefinition&) {}
    virtual void on_macro(const MacroDefinition&) {}

    // Entry `index` of the tempo map has been written; begin is behind the command's name.
    virtual void on_tempo(const TempoDef&, int /*index*/, const LinePlace& /*begin*/) {}

    // A ">" line: what stands at `begin` up to the end of the line, terminated.
    virtual void on_direct_line(const char* /*text*/, const LinePlace& /*begin*/) {}

    // Of each header, those that stand within a block included, the "i".
    virtual void on_header(const LinePlace& /*begin*/) {}
    virtual void on_pfield(const PfieldStatement&) {}
    virtual void on_block(const Block&) {}

    // The run ends; of one that was refused, too. Seconds: the latest end of any event.
    virtual void on_end(int /*status*/, double /*seconds*/) {}

    // Opens the input (includer null) or an include file. Whoever wants offsets
    // returns a stream that knows its position. Null: there is no such file.
    virtual std::FILE* open_source(const char* name, const char* /*includer*/) {
        return std::fopen(name, "r");
    }

    // Whether that is open already: a source that is still being read, or a file that the
    // observer's own program writes. Asked before it is opened. What the run itself has
    // open as files of the system is told apart without it.
    virtual bool has_open(const char* /*name*/, const char* /*includer*/) { return false; }

protected:
    ~Observer() = default;
};

// Opens an input as the observer does, and without one by its name.
inline std::FILE* open_source(Observer* observer, const char* name, const char* includer) {
    return observer != nullptr ? observer->open_source(name, includer) : std::fopen(name, "r");
}

inline bool has_open(Observer* observer, const char* name, const char* includer) {
    return observer != nullptr && observer->has_open(name, includer);
}

}  // namespace vorn
