#pragma once

#include <string>

// Which files may be written, asked before the work is done.

namespace vorn::kit {

// Refuses an output that is one of the score's own files, or a folder.
class SystemSources;
[[nodiscard]] bool may_write(const std::string& path, const SystemSources& sources);

// Tells what hinders it when the folder of a file takes no new one.
[[nodiscard]] bool takes_file(const std::string& path);

// Tells the endings of pictures when the name has none of them.
[[nodiscard]] bool is_picture_name(const std::string& name);

}  // namespace vorn::kit
