#include "platform/single_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cstdlib>

#include "platform/posix/syscalls.h"

namespace {

/// The value of an environment variable that holds a path; a relative one is to be ignored (XDG
/// Base Directory Specification, "Basics").
std::string AbsolutePath(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? value : "";
}

/// Whether nobody else can put or take files there: in /tmp anyone may have made the name first.
bool IsOursAlone(const std::string& folder) {
  struct stat facts;
  return ::lstat(folder.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) &&
         facts.st_uid == ::geteuid() && (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

SingleInstance::SingleInstance(const std::string& folder) {
  if (folder.empty()) return;
  const std::string path = folder + "/quorvane.lock";
  FileHandle file(Uninterrupted(
      [&] { return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600); }));
  if (!file) return;
  // Old files in the runtime folder may be cleaned away, but for those with the sticky bit (XDG
  // Base Directory Specification, $XDG_RUNTIME_DIR); a new file of that name would be a second
  // lock.
  (void)::fchmod(file.get(), 01600);
  const int error = ErrorOf([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); });
  another_runs_ = error == EWOULDBLOCK;
  if (error == 0) file_ = std::move(file);
}

std::string InstanceFolder() {
  if (std::string runtime = AbsolutePath("XDG_RUNTIME_DIR"); !runtime.empty()) return runtime;
  std::string folder = AbsolutePath("TMPDIR");
  if (folder.empty()) folder = "/tmp";
  folder += "/quorvane-" + std::to_string(::geteuid());
  ::mkdir(folder.c_str(), 0700);
  return IsOursAlone(folder) ? folder : "";
}
