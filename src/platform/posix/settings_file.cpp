#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <filesystem>
#include <system_error>

#include "platform/posix/syscalls.h"
#include "platform/settings_file.h"

namespace settings_file {
namespace {

namespace fs = std::filesystem;

/// What open(2) answers to a writer.
int ErrorOfKind(mode_t mode) {
  if (S_ISDIR(mode)) return EISDIR;
  return S_ISFIFO(mode) || S_ISSOCK(mode) ? ENXIO : 0;
}

bool LeadsSomewhere(const fs::path& path) {
  std::error_code error;
  const fs::path target = fs::read_symlink(path, error);
  return error || fs::is_directory((path.parent_path() / target).parent_path(), error);
}

}  // namespace

Place Look(const std::string& path) {
  struct stat facts;
  const int error = ErrorOf([&] { return ::stat(path.c_str(), &facts); });
  if (error == ENOENT && LeadsSomewhere(path)) return {Place::kFree};
  if (error != 0) return {Place::kUnreachable, error};
  if (S_ISREG(facts.st_mode)) return {Place::kFile};
  return {Place::kOther, ErrorOfKind(facts.st_mode)};
}

bool IsBlocked(const std::string& path) {
  struct stat facts;
  return ::lstat(path.c_str(), &facts) == 0 && !S_ISREG(facts.st_mode);
}

int ErrorOfWriting(const std::string& path, std::size_t size) {
  std::error_code error;
  const fs::path file = fs::weakly_canonical(path, error);
  if (!error) fs::create_directories(file.parent_path(), error);
  if (error) return error.value();
  const FileHandle old(::open(file.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  if (!old && errno != ENOENT) return errno;
  std::string name = file.string() + ".XXXXXX";
  const FileHandle trial(::mkostemp(name.data(), O_CLOEXEC));
  if (!trial) return errno;
  ::unlink(name.c_str());
  const std::string bytes(size, ' ');
  for (std::size_t at = 0; at < size;) {
    const ssize_t done =
        Uninterrupted([&] { return ::write(trial.get(), bytes.data() + at, size - at); });
    if (done <= 0) return errno;
    at += static_cast<std::size_t>(done);
  }
  return ErrorOf([&] { return ::fsync(trial.get()); });
}

void SyncFolderOf(const std::string& path) {
  const std::string folder = fs::path(path).parent_path();
  const FileHandle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle) ::fsync(handle.get());
}

}  // namespace settings_file
