#include "platform/posix/syscalls.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <signal.h>
#include <stdio.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

Syscalls RealSyscalls() {
  Syscalls calls;
  calls.openat = [](int folder, const char* name, int flags, mode_t mode) {
    return ::openat(folder, name, flags, mode);
  };
  calls.close = ::close;
  calls.dup = [](int fd) { return ::fcntl(fd, F_DUPFD_CLOEXEC, 0); };
  calls.fstatfs = ::fstatfs;
  calls.statx = ::statx;
  calls.readlinkat = ::readlinkat;
  calls.getdents = [](int folder, void* buffer, std::size_t size) -> ssize_t {
    return ::syscall(SYS_getdents64, folder, buffer, size);
  };
  calls.renameat2 = ::renameat2;
  calls.renameat = ::renameat;
  calls.linkat = ::linkat;
  calls.unlinkat = ::unlinkat;
  calls.mkdirat = ::mkdirat;
  calls.symlinkat = ::symlinkat;
  calls.clone = [](int to, int from) { return ::ioctl(to, FICLONE, from); };
  calls.copy_file_range = [](int from, off_t* from_at, int to, off_t* to_at, std::size_t size) {
    return ::copy_file_range(from, from_at, to, to_at, size, 0);
  };
  calls.lseek = ::lseek;
  calls.pread = [](int fd, void* buffer, std::size_t size, off_t at) {
    return ::pread(fd, buffer, size, at);
  };
  calls.pwrite = ::pwrite;
  calls.ftruncate = ::ftruncate;
  calls.fsync = ::fsync;
  calls.syncfs = ::syncfs;
  calls.fchown = ::fchown;
  calls.fchmod = ::fchmod;
  calls.flistxattr = ::flistxattr;
  calls.fgetxattr = ::fgetxattr;
  calls.fsetxattr = [](int fd, const char* name, const void* value, std::size_t size) {
    return ::fsetxattr(fd, name, value, size, 0);
  };
  calls.fremovexattr = ::fremovexattr;
  calls.futimens = ::futimens;
  calls.utimensat = ::utimensat;
  calls.kill = ::kill;
  return calls;
}
