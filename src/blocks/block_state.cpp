#include "blocks/block_state.h"

#include <algorithm>
#include <cstdlib>

#include "blocks/command_codes.h"

// Definitions and initial values of the block state. The three output-setting
// arrays live from a block's header until its score is written; a header inside
// a block replaces them.

namespace vorn {

int I_NO = 0;
int MAX_PFIELDS = 0;
float STIME = 0;
float SBEAT = 0;
float BEATS = 0;
std::uint64_t EVENTS = 0;
float ETIME = 0;

float CBEATS = 0;
std::int64_t EVENT_NO = 0;
int P_NO = 0;

int DID_P[MAX_PFIELD_COUNT + 1] = {};
std::uint32_t* OUTS = nullptr;
std::uint32_t* RE_FW = nullptr;
std::int32_t* FFT_SZ = nullptr;

int IN_TYPE = CODE_RE;
int OUT_TYPE = CODE_RE;
int IN_LOOP = 0;
int IS_FUSED = 0;
int WROTE_DATA = 0;
int NX = 0;
float PFACTOR = 1;
float LAST_VAL = 0;
float MAX_DEV2 = 0;

float MAX_DEV = 0;
std::uint64_t SRATE = SRATE_DEFAULT;

bool allocate_output_settings() {
    free_output_settings();
    const std::size_t count = static_cast<std::size_t>(MAX_PFIELDS) - 1;
    OUTS = static_cast<std::uint32_t*>(std::malloc(count * sizeof *OUTS));
    RE_FW = static_cast<std::uint32_t*>(std::malloc(count * sizeof *RE_FW));
    FFT_SZ = static_cast<std::int32_t*>(std::malloc(count * sizeof *FFT_SZ));
    if (OUTS == nullptr || RE_FW == nullptr || FFT_SZ == nullptr) {
        free_output_settings();
        return false;
    }
    std::fill_n(OUTS, count, static_cast<std::uint32_t>(CODE_RE));
    std::fill_n(RE_FW, count, RE_FW_DEFAULT);
    std::fill_n(FFT_SZ, count, FFT_SZ_DEFAULT);
    return true;
}

void free_output_settings() {
    std::free(OUTS);
    std::free(RE_FW);
    std::free(FFT_SZ);
    OUTS = RE_FW = nullptr;
    FFT_SZ = nullptr;
}

void reset_block_state() {
    I_NO = MAX_PFIELDS = P_NO = 0;
    STIME = SBEAT = BEATS = ETIME = CBEATS = 0;
    EVENTS = 0;
    EVENT_NO = 0;
    std::fill_n(DID_P, MAX_PFIELD_COUNT + 1, 0);
    free_output_settings();
    IN_TYPE = OUT_TYPE = CODE_RE;
    IN_LOOP = IS_FUSED = WROTE_DATA = NX = 0;
    PFACTOR = 1;
    LAST_VAL = MAX_DEV = MAX_DEV2 = 0;
    SRATE = SRATE_DEFAULT;
}

}  // namespace vorn
