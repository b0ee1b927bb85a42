#include "support/run_case.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "driver/run.h"

// A run in this process writes to memory streams; a run of the program writes
// to two files outside the work folder, so that the folder holds nothing but
// the run's own files. A run that takes longer than TIME_LIMIT is ended by its
// alarm: a program shows status -SIGALRM, this process ends.

namespace vorn::test {

namespace fs = std::filesystem;

namespace {

constexpr unsigned TIME_LIMIT = 120;  // seconds; a hanging run fails rather than blocks

fs::path make_temporary_folder() {
    std::string name = (fs::temp_directory_path() / "vorn-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder " + name);
    return name;
}

// A stream into memory; its bytes are whole once the stream is closed.
class MemoryStream {
public:
    MemoryStream() : stream_(open_memstream(&data_, &size_)) {}
    ~MemoryStream() {
        close();
        std::free(data_);
    }
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    std::FILE* stream() const { return stream_; }
    std::string take() {
        close();
        return {data_, size_};
    }

private:
    void close() {
        if (stream_ != nullptr) std::fclose(stream_);
        stream_ = nullptr;
    }

    char* data_ = nullptr;
    std::size_t size_ = 0;
    std::FILE* stream_;
};

// Makes a folder the current one as long as the object lives.
class InFolder {
public:
    explicit InFolder(const fs::path& folder) : before_(fs::current_path()) { fs::current_path(folder); }
    ~InFolder() { fs::current_path(before_); }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

private:
    fs::path before_;
};

std::vector<const char*> argument_vector(const Arguments& arguments) {
    std::vector<const char*> vector = {"vorn"};
    for (const std::string& argument : arguments) vector.push_back(argument.c_str());
    vector.push_back(nullptr);
    return vector;
}

void redirect(int descriptor, const fs::path& path, int flags) {
    const int opened = open(path.c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0) _exit(125);
}

[[noreturn]] void become_program(const fs::path& folder, const fs::path& streams, char* const* argv) {
    redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
    redirect(STDOUT_FILENO, streams / "out", O_WRONLY | O_CREAT);
    redirect(STDERR_FILENO, streams / "err", O_WRONLY | O_CREAT);
    unsetenv("TMPDIR");
    alarm(TIME_LIMIT);
    if (chdir(folder.c_str()) != 0) _exit(125);
    execv(VORN_PROGRAM, argv);
    _exit(126);
}

}  // namespace

std::string read_file(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return bytes.str();
}

void write_file(const fs::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

WorkFolder::WorkFolder() : path_(make_temporary_folder()) {}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void WorkFolder::write(const std::string& name, const std::string& bytes) const {
    write_file(path_ / name, bytes);
}

std::string WorkFolder::read(const std::string& name) const { return read_file(path_ / name); }

std::map<std::string, std::string> WorkFolder::files() const {
    std::map<std::string, std::string> all;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path_)) {
        if (entry.is_regular_file()) {
            all[entry.path().lexically_relative(path_).string()] = read_file(entry.path());
        }
    }
    return all;
}

RunResult run_without_limit(const WorkFolder& folder, const Arguments& arguments, Observer* observer) {
    RunResult result;
    MemoryStream out;
    MemoryStream err;
    const std::vector<const char*> argv = argument_vector(arguments);
    {
        const InFolder in_folder(folder.path());
        result.status = vorn::run_program(static_cast<int>(argv.size()) - 1, argv.data(),
                                          {out.stream(), err.stream(), observer});
    }
    result.out = out.take();
    result.err = err.take();
    result.files = folder.files();
    return result;
}

RunResult run_in_process(const WorkFolder& folder, const Arguments& arguments, Observer* observer) {
    unsetenv("TMPDIR");  // expectations name the system's folder
    alarm(TIME_LIMIT);
    RunResult result = run_without_limit(folder, arguments, observer);
    alarm(0);
    return result;
}

RunResult run_as_program(const WorkFolder& folder, const Arguments& arguments) {
    const WorkFolder streams;
    const std::vector<const char*> argv = argument_vector(arguments);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a program");
    if (child == 0) become_program(folder.path(), streams.path(), const_cast<char* const*>(argv.data()));
    int ended = 0;
    waitpid(child, &ended, 0);
    RunResult result;
    result.status = WIFSIGNALED(ended) ? -WTERMSIG(ended) : WEXITSTATUS(ended);
    result.out = streams.read("out");
    result.err = streams.read("err");
    result.files = folder.files();
    return result;
}

std::string without_chance(const std::string& text) {
    static const std::regex build(
        "(\nVorn \\([0-9.]+), [A-Z][a-z]{2} [ 0-9][0-9] [0-9]{4}, "
        "[0-9]{2}:[0-9]{2}:[0-9]{2}\\)");
    static const std::regex temporary("/tmp/vorn[A-Za-z0-9]{6}\\b");
    return std::regex_replace(std::regex_replace(text, build, "$1, DATE, TIME)"), temporary,
                              "/tmp/vornXXXXXX");
}

std::string behind_banner(const std::string& text) {
    static const std::regex end("\nOutput\t= \".*\" \\[.*\\]\n(Log \t= \".*\"\n)?(MExp\t= \".*\"\n)?");
    std::smatch found;
    const bool has_banner = text.starts_with("\nVorn (") && std::regex_search(text, found, end);
    return has_banner ? found.suffix().str() : text;
}

}  // namespace vorn::test
