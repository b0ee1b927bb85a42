#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "kit/command/atomic_file.h"
#include "kit/command/console.h"
#include "kit/command/signals_held_back.h"
#include "kit/command/subcommands.h"
#include "kit/orchestra/document.h"
#include "kit/orchestra/first_piece.h"

// vornkit new: a folder with a piece that plays at once. Either all of it is made
// or nothing, also when a signal comes.

namespace vorn::kit {

namespace {

std::string without_last_slashes(std::string name) {
    while (name.size() > 1 && name.back() == '/') name.pop_back();
    return name;
}

// The name of the piece is that of the folder; "." and ".." have none to give.
std::string piece_name(const std::string& folder) {
    const std::string name = folder.substr(folder.rfind('/') + 1);
    return name.empty() || name == "." || name == ".." ? "piece" : name;
}

bool is_empty(const std::string& folder) {
    DIR* const entries = opendir(folder.c_str());
    if (entries == nullptr) return false;
    int count = 0;
    while (readdir(entries) != nullptr) ++count;
    closedir(entries);
    return count == 2;  // "." and ".."
}

// The name as a shell takes it, and a command that would read an option where "-" begins it.
std::string quoted(const std::string& plain_name) {
    std::string name = plain_name.starts_with('-') ? "./" + plain_name : plain_name;
    constexpr const char* PLAIN = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./";
    if (name.find_first_not_of(PLAIN) == std::string::npos) return name;
    std::string text = "'";
    for (const char c : name) text += c == '\'' ? "'\\''" : std::string(1, c);
    return text + "'";
}

// Tells below its first line how it is heard, unless the name would end the comment.
std::string score_of(const std::string& piece) {
    std::string score = FIRST_SCORE;
    if (piece.find_first_of("\n\r") != std::string::npos) return score;
    const std::string files = quoted(piece + ".vorn") + " " + quoted(piece + ".orc");
    return score.insert(score.find('\n') + 1, "; To hear it, in its folder: vornkit play " + files + "\n");
}

struct NewFile {
    std::string name;
    std::string text;
};

// On failure what was written before is gone, too.
bool write_all(const std::vector<NewFile>& files) {
    std::string error;
    for (std::size_t at = 0; at < files.size(); ++at) {
        if (write_file(files[at].name, files[at].text, error)) continue;
        complain(error);
        while (at > 0) unlink(files[--at].name.c_str());
        return false;
    }
    return true;
}

// For a person: a script is told nothing when all is well.
void tell_next_steps(const std::string& path) {
    const std::string score = quoted(path + ".vorn");
    const std::string orchestra = quoted(path + ".orc");
    std::printf("Hear it:              vornkit play %s %s\n", score.c_str(), orchestra.c_str());
    std::printf("All in one file:      csound %s\n", quoted(path + ".csd").c_str());
}

Outcome make_piece(const std::string& name) {
    const SignalsHeldBack held;
    const std::string folder = without_last_slashes(name);
    const bool is_made = mkdir(folder.c_str(), 0777) == 0;
    if (!is_made && errno != EEXIST) {
        return wrong_use("cannot make the folder \"" + folder + "\": " + std::strerror(errno));
    }
    if (!is_made && !is_empty(folder)) {
        return wrong_use("\"" + folder + "\" is there and is no empty folder; take another name");
    }
    const std::string path = folder + "/" + piece_name(folder);
    const std::string score = score_of(piece_name(folder));
    if (!write_all({{path + ".vorn", score},
                    {path + ".orc", FIRST_ORCHESTRA},
                    {path + ".csd", document_text(FIRST_ORCHESTRA, score)}})) {
        if (is_made) rmdir(folder.c_str());
        return Outcome::WRONG_USE;
    }
    if (is_terminal(stdout)) tell_next_steps(path);
    return Outcome::WELL;
}

}  // namespace

void add_new(CLI::App& app, Outcome& outcome) {
    CLI::App* const command =
        app.add_subcommand("new", "begins a piece: a folder with a score, an orchestra and both in one file");
    command->footer("Example: vornkit new nocturne");
    const auto name = std::make_shared<std::string>();
    command->add_option("NAME", *name, "the folder, which is not there yet or is empty")->required();
    command->callback([name, &outcome] { outcome = make_piece(*name); });
}

}  // namespace vorn::kit
