#include "platform/subfolders.h"

#include <filesystem>
#include <system_error>

std::vector<std::string> SubfoldersOf(const std::string& folder, std::size_t most) {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  std::error_code none;
  for (fs::directory_iterator entry(folder, none), end;
       !none && entry != end && names.size() < most; entry.increment(none)) {
    std::error_code unknown;
    if (entry->is_directory(unknown)) names.push_back(entry->path().filename().string());
  }
  return names;
}
