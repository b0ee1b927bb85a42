#include "posix.h"

#include <io.h>
#include <signal.h>
#include <sys/random.h>
#include <windows.h>
// behind windows.h
#include <ntsecapi.h>
#undef fstat

#include <cerrno>
#include <string_view>

// The linker hands the calls of the sources to the routines here whose names begin
// with __wrap_ (cmake/windows.cmake names them); __real_ is what the library has.
// Names of files are UTF-8 outside and UTF-16 inside; every file is binary.

namespace {

constexpr int MAX_NAME = 4096;  // UTF-16 units

// Where a stream in memory goes when it is closed. There is one log, and so one of them.
struct MemoryStream {
    std::FILE* stream = nullptr;
    char** text = nullptr;
    std::size_t* size = nullptr;
};
MemoryStream memory_stream;

class WideName {
public:
    explicit WideName(const char* name) {
        if (MultiByteToWideChar(CP_UTF8, 0, name, -1, wide_, MAX_NAME) == 0) wide_[0] = 0;
    }
    const wchar_t* get() const { return wide_; }

private:
    wchar_t wide_[MAX_NAME];
};

// On POSIX the device that takes everything has a name of its own.
const char* native_name(const char* name) { return std::string_view(name) == "/dev/null" ? "NUL" : name; }

// The file's number on its disk, as far as it fits; two files of a run are alike by chance once in 2^48.
void identify(HANDLE file, struct stat* found) {
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!GetFileInformationByHandle(file, &information)) return;
    found->st_dev =
        information.dwVolumeSerialNumber ^ information.nFileIndexHigh ^ (information.nFileIndexLow >> 16);
    found->st_ino = static_cast<decltype(found->st_ino)>(information.nFileIndexLow);
}

// What was written to the stream, at the end of a run whose memory suffices; false where it does not.
bool take_text(const MemoryStream& memory) {
    std::fflush(memory.stream);
    const long size = std::ftell(memory.stream);
    *memory.text = size < 0 ? nullptr : static_cast<char*>(std::malloc(static_cast<std::size_t>(size) + 1));
    if (*memory.text == nullptr) return false;
    std::rewind(memory.stream);
    *memory.size = std::fread(*memory.text, 1, static_cast<std::size_t>(size), memory.stream);
    (*memory.text)[*memory.size] = 0;
    return true;
}

}  // namespace

extern "C" {

int __real_fclose(std::FILE* stream);
int __wrap_fclose(std::FILE* stream);
std::FILE* __wrap_fopen(const char* name, const char* mode);
int __wrap_open(const char* name, int flags, int rights);
int __wrap_unlink(const char* name);
int __wrap_stat(const char* name, struct stat* found);

int __wrap_fclose(std::FILE* stream) {
    if (stream != memory_stream.stream) return __real_fclose(stream);
    const bool taken = take_text(memory_stream);
    memory_stream = {};
    return __real_fclose(stream) == 0 && taken ? 0 : EOF;
}

std::FILE* __wrap_fopen(const char* name, const char* mode) {
    return _wfopen(WideName(native_name(name)).get(), WideName(mode).get());
}

int __wrap_open(const char* name, int flags, int rights) {
    return _wopen(WideName(native_name(name)).get(), flags | _O_BINARY, rights & (_S_IREAD | _S_IWRITE));
}

int __wrap_unlink(const char* name) { return _wunlink(WideName(name).get()); }

int vorn_fstat(int descriptor, struct stat* found) {
    if (fstat(descriptor, found) != 0) return -1;
    identify(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)), found);
    return 0;
}

int __wrap_stat(const char* name, struct stat* found) {
    const int descriptor = _wopen(WideName(native_name(name)).get(), _O_RDONLY | _O_BINARY);
    if (descriptor >= 0) {
        const int status = vorn_fstat(descriptor, found);
        close(descriptor);
        return status;
    }
    const DWORD attributes = GetFileAttributesW(WideName(name).get());
    if (attributes == INVALID_FILE_ATTRIBUTES) return -1;
    *found = {};
    found->st_mode = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? _S_IFDIR : _S_IFREG;
    return 0;
}

std::FILE* open_memstream(char** text, std::size_t* size) {
    std::FILE* const stream = tmpfile();
    if (stream != nullptr) memory_stream = {stream, text, size};
    return stream;
}

int getentropy(void* bytes, std::size_t size) {
    return RtlGenRandom(bytes, static_cast<ULONG>(size)) ? 0 : -1;
}

int sigaction(int number, const struct sigaction* wanted, struct sigaction* before) {
    if (before != nullptr) before->sa_handler = SIG_DFL;
    if (wanted != nullptr) signal(number, wanted->sa_handler);
    return 0;
}
}
