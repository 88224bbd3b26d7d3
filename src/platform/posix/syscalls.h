#pragma once

#include <fcntl.h>
#include <linux/fs.h>
#include <signal.h>
#include <stdio.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <utility>

#include "platform/file_handle.h"

/// The system calls whose lack or failure the file operations must survive: this machine's, each
/// replaceable by itself. All answer as the manual page of their name says: -1 and errno on
/// failure.
struct Syscalls {
  std::function<int(int, const char*, int, mode_t)> openat = [](int folder, const char* name,
                                                                int flags, mode_t mode) {
    return ::openat(folder, name, flags, mode);
  };
  std::function<int(int)> close = ::close;
  std::function<int(int)> dup = [](int fd) { return ::fcntl(fd, F_DUPFD_CLOEXEC, 0); };
  std::function<int(int, const char*, int, unsigned, struct statx*)> statx = ::statx;
  std::function<int(int, struct statfs*)> fstatfs = ::fstatfs;
  std::function<ssize_t(int, const char*, char*, std::size_t)> readlinkat = ::readlinkat;
  std::function<ssize_t(int, void*, std::size_t)> getdents = [](int folder, void* buffer,
                                                                std::size_t size) {
    return static_cast<ssize_t>(::syscall(SYS_getdents64, folder, buffer, size));
  };
  std::function<int(int, const char*, int, const char*, unsigned)> renameat2 = ::renameat2;
  std::function<int(int, const char*, int, const char*)> renameat = ::renameat;
  std::function<int(int, const char*, int, const char*, int)> linkat = ::linkat;
  std::function<int(int, const char*, int)> unlinkat = ::unlinkat;
  std::function<int(int, const char*, mode_t)> mkdirat = ::mkdirat;
  std::function<int(const char*, int, const char*)> symlinkat = ::symlinkat;
  /// Into the first, from the second file.
  std::function<int(int, int)> clone = [](int to, int from) { return ::ioctl(to, FICLONE, from); };
  std::function<ssize_t(int, off_t*, int, off_t*, std::size_t)> copy_file_range =
      [](int from, off_t* from_at, int to, off_t* to_at, std::size_t size) {
        return ::copy_file_range(from, from_at, to, to_at, size, 0);
      };
  std::function<off_t(int, off_t, int)> lseek = ::lseek;
  std::function<ssize_t(int, void*, std::size_t, off_t)> pread = ::pread;
  std::function<ssize_t(int, const void*, std::size_t, off_t)> pwrite = ::pwrite;
  std::function<int(int, off_t)> ftruncate = ::ftruncate;
  std::function<int(int)> fsync = ::fsync;
  std::function<int(int)> syncfs = ::syncfs;
  std::function<int(int, uid_t, gid_t)> fchown = ::fchown;
  std::function<int(int, mode_t)> fchmod = ::fchmod;
  std::function<ssize_t(int, char*, std::size_t)> flistxattr = ::flistxattr;
  std::function<ssize_t(int, const char*, void*, std::size_t)> fgetxattr = ::fgetxattr;
  std::function<int(int, const char*, const void*, std::size_t)> fsetxattr =
      [](int fd, const char* name, const void* value, std::size_t size) {
        return ::fsetxattr(fd, name, value, size, 0);
      };
  std::function<int(int, const char*)> fremovexattr = ::fremovexattr;
  std::function<int(int, const struct timespec*)> futimens = ::futimens;
  std::function<int(int, const char*, const struct timespec*, int)> utimensat = ::utimensat;
  std::function<int(pid_t, int)> kill = ::kill;
};

/// What `call` answers; a call that a signal interrupted is made again (signal(7)).
template <class Call>
auto Uninterrupted(Call&& call) -> decltype(call()) {
  for (;;) {
    const auto answer = call();
    if (answer != -1 || errno != EINTR) return answer;
  }
}

/// 0 when `call` succeeds, else its errno.
template <class Call>
int ErrorOf(Call&& call) {
  return Uninterrupted(std::forward<Call>(call)) == -1 ? errno : 0;
}
