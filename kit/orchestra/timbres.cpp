#include "kit/orchestra/timbres.h"

#include <iterator>

// A row a timbre. Those beyond the last row are the rows again with one more partial,
// a higher one each time. Of a high note only the lowest partial is left, since the others
// would lie above what the sampling rate can hold.

namespace vorn::kit {

namespace {

struct Timbre {
    const char* partials;  // strengths, the lowest first
    const char* envelope;
    const char* place;  // 0 left, 1 right
};

constexpr const char* HELD = "linsegr 0, min(.02, p3 / 4), 1, p3, .7, .08, 0";
constexpr const char* STRUCK = "expsegr .001, min(.005, p3 / 4), 1, 1.5, .05, .08, .001";
constexpr const char* SWELLING = "linsegr 0, min(.15, p3 / 2), 1, p3, .8, .1, 0";

constexpr Timbre TIMBRES[] = {
    {"1, .5, .3, .2, .1, .05", STRUCK, ".5"},             // strings, plucked
    {"1, .1, .05", HELD, ".3"},                           // flute
    {"1, 0, .5, 0, .3, 0, .15, 0, .1", HELD, ".7"},       // clarinet
    {"1, 0, 0, .4, 0, 0, 0, 0, .2", STRUCK, ".4"},        // wooden bars
    {"1, .7, .5, .4, .3, .25, .2, .15", SWELLING, ".6"},  // strings, bowed
    {"1, 1, 0, .6, 0, 0, 0, .4", HELD, ".2"},             // organ
    {"1, 0, .2, 0, 0, .6, 0, .3", STRUCK, ".8"},          // bells
    {"1, 0, .1", SWELLING, ".5"},                         // humming
};

// Time that a score skips by an "a" ends what is always on, and with it the instrument that writes out.
constexpr const char* OUTPUT_HELD =
    "\n    if active:i(\"Output\") == 0 then\n        event_i \"i\", \"Output\", 0, -1\n    endif\n";

constexpr int TIMBRE_COUNT = static_cast<int>(std::size(TIMBRES));
constexpr int FIRST_ADDED_PARTIAL = 10;

std::string partials_of(int rank) {
    std::string partials = TIMBRES[rank % TIMBRE_COUNT].partials;
    const int rounds = rank / TIMBRE_COUNT;
    if (rounds == 0) return partials;
    std::size_t count = 1;
    for (const char c : partials) count += c == ',' ? 1 : 0;
    for (; count < static_cast<std::size_t>(FIRST_ADDED_PARTIAL + rounds - 2); ++count) partials += ", 0";
    return partials + ", .5";
}

}  // namespace

std::string timbre_text(int number, int rank) {
    const Timbre& timbre = TIMBRES[rank % TIMBRE_COUNT];
    const std::string name = std::to_string(number);
    return "giwave" + name + " ftgen 0, 0, 16384, 10, " + partials_of(rank) + "\ninstr " + name +
           OUTPUT_HELD + "    iwave  = p4 < 2000 ? giwave" + name + " : gisine\n    kenv   " +
           timbre.envelope + "\n    asound poscil p5 * kenv, p4, iwave\n    galeft  += asound * sqrt(1 - " +
           timbre.place + ")\n    garight += asound * sqrt(" + timbre.place + ")\nendin\n";
}

}  // namespace vorn::kit
