#include "platform/folder_state.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

std::string WithoutLastName(std::string path) {
  path.erase(path.find_last_not_of('/') + 1);
  path.erase(path.rfind('/') + 1);
  return path;
}

FolderState WhyNotSeen(int error) {
  return error == EACCES ? FolderState::kClosed : FolderState::kUnknown;
}

}  // namespace

FolderState StateOfFolder(const std::string& path, FolderUse use) {
  std::string level = path;
  level.erase(level.find_last_not_of('/') + 1);
  if (level.empty()) level = "/";
  const std::size_t whole = level.size();
  struct stat facts = {};
  while (::stat(level.c_str(), &facts) != 0) {
    const bool nothing_there = errno == ENOENT || errno == ENOTDIR;
    if (!nothing_there || level.find('/') != 0 || level == "/") return WhyNotSeen(errno);
    level = WithoutLastName(level);
    if (level != "/") level.pop_back();
  }
  const bool there = level.size() == whole;
  if (!S_ISDIR(facts.st_mode)) return there ? FolderState::kIsFile : FolderState::kBehindFile;
  if (!there && use == FolderUse::kRead) return FolderState::kMissing;
  const int rights = X_OK | (use == FolderUse::kRead ? R_OK : W_OK);
  if (::faccessat(AT_FDCWD, level.c_str(), rights, AT_EACCESS) != 0) return FolderState::kClosed;
  return there ? FolderState::kUsable : FolderState::kMissing;
}
