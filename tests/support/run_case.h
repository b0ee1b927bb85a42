#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "input/observer.h"

// Runs Vorn on given files and arguments, in this process or as a program of
// its own, and returns everything that it leaves behind. Example:
//
//     WorkFolder folder;
//     folder.write("in.vorn", "i1=2 0 1 {\n p2 re 1\n}");
//     RunResult result = run_in_process(folder, {"in.vorn", "out.sco"});
//     EXPECT_EQ(result.status, 0);
//     EXPECT_EQ(behind_banner(result.err), "...");
//     EXPECT_EQ(result.files["out.sco"], "...");

namespace vorn::test {

// A private folder under the system's temporary one, gone with the object.
class WorkFolder {
public:
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    void write(const std::string& name, const std::string& bytes) const;
    std::string read(const std::string& name) const;

    // Every regular file under the folder by its name from there, with its bytes.
    std::map<std::string, std::string> files() const;

private:
    std::filesystem::path path_;
};

struct RunResult {
    int status = -1;  // exit status; minus the signal's number when a signal ended the program
    std::string out;
    std::string err;
    std::map<std::string, std::string> files;  // of the folder, after the run
};

using Arguments = std::vector<std::string>;  // without the program's own name

// All run with the folder as the current one, so that messages show plain names.
RunResult run_in_process(const WorkFolder& folder, const Arguments& arguments, Observer* observer = nullptr);
RunResult run_without_limit(const WorkFolder& folder, const Arguments& arguments,
                            Observer* observer = nullptr);  // in this process, no alarm
RunResult run_as_program(const WorkFolder& folder, const Arguments& arguments);

// The text with the build's date and time in the banner as "DATE, TIME" and the
// random end of the temporary file's name as "XXXXXX".
std::string without_chance(const std::string& text);

// What stands behind the banner, that is behind the "Output" line and the "Log"
// and "MExp" lines that may follow it; the whole text where there is none.
std::string behind_banner(const std::string& text);

std::string read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, const std::string& bytes);

}  // namespace vorn::test
