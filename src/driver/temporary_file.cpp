#include "driver/temporary_file.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/random.h>
#include <unistd.h>

#include "input/messages.h"
#include "input/run_flags.h"

// A new file under a name that nobody can foresee:
//
//     TMPDIR=/var/tmp vorn piece.vorn piece.sco     ->     /var/tmp/vornq3Zk0T
//
// The name stands in tmp_fname before the file is there and until it is gone, so
// that a signal finds it at any moment.

namespace vorn {

char tmp_fname[TMP_NAME_SIZE] = {};

namespace {

constexpr const char* SYSTEM_FOLDER = "/tmp";
constexpr const char* PREFIX = "/vorn";
constexpr std::size_t CHANCE_LENGTH = 6;  // characters behind the prefix
constexpr int MOST_ATTEMPTS = 100;        // each with a name of its own

const char* temporary_folder() {
    const char* const wanted = std::getenv("TMPDIR");
    return wanted != nullptr && *wanted != 0 ? wanted : SYSTEM_FOLDER;
}

// Six letters and digits that were drawn by chance; false where the system has none to give.
bool append_chance(char* name) {
    constexpr char CHARACTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    unsigned char drawn[CHANCE_LENGTH];
    if (getentropy(drawn, sizeof drawn) != 0) return false;
    char* end = name + std::strlen(name);
    for (const unsigned char byte : drawn) *end++ = CHARACTERS[byte % (sizeof CHARACTERS - 1)];
    *end = 0;
    return true;
}

// The first character comes last: a signal sees no name or the whole.
void set_name(const char* name) {
    std::strcpy(tmp_fname + 1, name + 1);
    std::atomic_signal_fence(std::memory_order_seq_cst);
    tmp_fname[0] = name[0];
}

// The descriptor of a new file in the folder; negative when none can be made.
int make_file(const char* folder) {
    for (int attempt = 0; attempt < MOST_ATTEMPTS; ++attempt) {
        char name[TMP_NAME_SIZE];
        std::strcpy(name, folder);
        std::strcat(name, PREFIX);
        if (!append_chance(name)) break;
        set_name(name);
        const int descriptor = open(tmp_fname, O_WRONLY | O_CREAT | O_EXCL, 0600);
        if (descriptor >= 0) return descriptor;
        tmp_fname[0] = 0;
        if (errno != EEXIST) break;
    }
    return -1;
}

std::FILE* refuse(const char* message, Observer* observer) {
    std::fputs(message, std_err);
    tell_error(observer, message);
    return nullptr;
}

}  // namespace

std::FILE* open_temporary_file(Observer* observer) {
    const char* const folder = temporary_folder();
    if (std::strlen(folder) + std::strlen(PREFIX) + CHANCE_LENGTH >= TMP_NAME_SIZE) {
        return refuse("\nERROR: The name of the temporary folder (TMPDIR) is too long.\n\n", observer);
    }
    const int descriptor = make_file(folder);
    std::FILE* const stream = descriptor < 0 ? nullptr : fdopen(descriptor, "w");
    if (stream != nullptr) return stream;
    if (descriptor >= 0) close(descriptor);
    return refuse("\nERROR: Can't open temporary file\n\n", observer);
}

void remove_temporary_file() {
    if (tmp_fname[0] != 0) unlink(tmp_fname);
    tmp_fname[0] = 0;
}

}  // namespace vorn
