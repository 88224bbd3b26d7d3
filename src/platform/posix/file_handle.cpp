#include "platform/file_handle.h"

#include <unistd.h>

#include <cerrno>

FileHandle::~FileHandle() {
  const int kept = errno;
  if (fd_ >= 0) ::close(fd_);
  errno = kept;
}
