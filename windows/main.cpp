#include <fcntl.h>
#include <io.h>
#include <windows.h>
// behind windows.h
#include <shellapi.h>

#include <cstdlib>
#include <string>
#include <vector>

// The arguments as UTF-8, whatever the user's code page; streams without line-end
// translation, so that the same bytes come out as elsewhere; and the user's own folder
// for temporary files, unless TMPDIR names another.

extern "C" int __real_main(int argc, char** argv);
extern "C" int __wrap_main(int argc, char** argv);
extern "C" char* __wrap_getenv(const char* name);

namespace {

std::string utf8(const wchar_t* wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), 0);
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.resize(text.size() - 1);
    return text;
}

std::vector<std::string> utf8_arguments() {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) arguments.push_back(utf8(wide[i]));
    LocalFree(wide);
    return arguments;
}

std::string temporary_folder() {
    wchar_t name[MAX_PATH + 2] = {};
    GetTempPathW(MAX_PATH + 1, name);
    std::string folder = utf8(name);
    while (!folder.empty() && folder.back() == '\\') folder.pop_back();
    return folder;
}

std::string& told_folder() {
    static std::string folder;
    return folder;
}

}  // namespace

// Not of the environment, whose text is in the user's code page.
extern "C" char* __wrap_getenv(const char* name) {
    const std::string wide_name(name);
    const wchar_t* const found = _wgetenv(std::wstring(wide_name.begin(), wide_name.end()).c_str());
    if (found == nullptr && wide_name != "TMPDIR") return nullptr;
    told_folder() = found != nullptr ? utf8(found) : temporary_folder();
    return told_folder().data();
}

extern "C" int __wrap_main(int, char**) {
    _fmode = _O_BINARY;
    for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);
    std::vector<std::string> arguments = utf8_arguments();
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    return __real_main(static_cast<int>(arguments.size()), pointers.data());
}
