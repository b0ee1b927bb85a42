#pragma once

#include <cerrno>
#include <cstdint>
#include <system_error>

// <cerrno> has a macro of this name on POSIX systems. The two headers that use
// it are included first, so that it means our variable in all that follows.
#undef ETIME

#include "output/event_list.h"

// The state of the instrument block that is being read, and the settings in
// force. The header and the p-field statements write it; the value readers, the
// generators and the driver read it.

namespace vorn {

constexpr int MIN_PFIELD_COUNT = 3;
constexpr std::uint32_t RE_FW_DEFAULT = 3;      // decimals of "re" output
constexpr std::int32_t FFT_SZ_DEFAULT = 4;      // size index of "bn" output
constexpr std::uint64_t SRATE_DEFAULT = 44100;  // hertz

// --- from the header ---
extern int I_NO;              // instrument number, -32768 to 32767; negative: block skipped
extern int MAX_PFIELDS;       // p-fields of every event, 3 to 128; 0 before the first header
extern float STIME;           // block start: beats until P2 begins, then seconds
extern float SBEAT;           // block start in beats
extern float BEATS;           // length in beats; 0 when the length is in events
extern std::uint64_t EVENTS;  // events of the block; 0 while P2 is read in beat mode
extern float ETIME;           // BEATS, or minus the number of events (event mode)

// --- running positions ---
extern float CBEATS;           // beat position while P2 is read
extern std::int64_t EVENT_NO;  // values stored so far in the current p-field
extern int P_NO;               // number of the p-field being read; 0 before the first

// --- per p-field of the block; the three arrays have MAX_PFIELDS - 1 entries, index P-number - 2 ---
extern int DID_P[MAX_PFIELD_COUNT + 1];  // 1 once Pn has been read in this block
extern std::uint32_t* OUTS;              // output type codes; null outside a block
extern std::uint32_t* RE_FW;             // decimals of "re" output; null outside a block
extern std::int32_t* FFT_SZ;             // size index of "bn" output; null outside a block

// --- of the current p-field statement ---
extern int IN_TYPE;     // input type code
extern int OUT_TYPE;    // output type code
extern int IN_LOOP;     // 1 while a "<" loop is open
extern int IS_FUSED;    // pending fusion marks
extern int WROTE_DATA;  // 1 once the statement has stored a value
extern int NX;          // 1: pitch input carried the suffix "x", no rounding, quarter-tones allowed
extern float PFACTOR;   // factor on stored values
extern float LAST_VAL;  // the last value read or generated; outlives the statement
extern float MAX_DEV2;  // random deviation of this statement, fraction of the value

// --- for the whole run ---
extern float MAX_DEV;        // random deviation, fraction of the value
extern std::uint64_t SRATE;  // sample rate in hertz

// Allocates OUTS, RE_FW and FFT_SZ for MAX_PFIELDS p-fields with their
// defaults, releasing earlier ones. False: out of memory.
[[nodiscard]] bool allocate_output_settings();
void free_output_settings();

void reset_block_state();

}  // namespace vorn
