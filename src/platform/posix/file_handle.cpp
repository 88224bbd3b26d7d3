#include "platform/file_handle.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace {

bool IsRegular(int error, const struct stat& facts) {
  if (error != 0) return false;
  if (!S_ISREG(facts.st_mode)) errno = EINVAL;
  return S_ISREG(facts.st_mode);
}

}  // namespace

FileHandle::~FileHandle() {
  const int kept = errno;
  if (fd_ >= 0) ::close(fd_);
  errno = kept;
}

FileHandle OpenRegularFile(const std::string& path) {
  struct stat facts;
  if (!IsRegular(::stat(path.c_str(), &facts), facts)) return {};
  FileHandle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  // Something else may stand there by now.
  if (file && !IsRegular(::fstat(file.get(), &facts), facts)) return {};
  return file;
}
