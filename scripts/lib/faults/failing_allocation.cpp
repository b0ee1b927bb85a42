#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

// Stands in front of the C library's allocations, those of `new` and of streams
// included, and lets some fail. Loaded into the program by LD_PRELOAD; told what
// to do by the environment:
//
//     FAILING_ALLOCATION=7    the seventh fails
//     FAILING_FURTHER=1       ... and all after it
//     ALLOCATION_COUNT=file   their number is written there at the end of the run

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

long first_failing = 0;  // counted from 1; 0: none
bool fails_further = false;
long allocations = 0;

long number_in(const char* name) {
    const char* const text = std::getenv(name);
    return text == nullptr ? 0 : std::atol(text);
}

[[gnu::constructor]] void read_environment() {
    first_failing = number_in("FAILING_ALLOCATION");
    fails_further = number_in("FAILING_FURTHER") != 0;
}

[[gnu::destructor]] void write_count() {
    const char* const name = std::getenv("ALLOCATION_COUNT");
    const int file = name == nullptr ? -1 : open(name, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file >= 0) dprintf(file, "%ld\n", allocations);
}

bool fails() {
    ++allocations;
    const bool failing = first_failing != 0 &&
                         (allocations == first_failing || (fails_further && allocations > first_failing));
    if (failing) errno = ENOMEM;
    return failing;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return fails() ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t count, std::size_t size) { return fails() ? nullptr : __libc_calloc(count, size); }

void* realloc(void* memory, std::size_t size) { return fails() ? nullptr : __libc_realloc(memory, size); }

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = aligned_alloc(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}
}
