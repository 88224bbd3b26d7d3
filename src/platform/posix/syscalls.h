#pragma once

#include <sys/stat.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <utility>

/// The system calls whose lack or failure the file operations must survive, each replaceable by
/// itself. All answer as the manual page of their name says: -1 and errno on failure.
struct Syscalls {
  std::function<int(int, const char*, int, mode_t)> openat;
  std::function<int(int)> close;
  std::function<int(int)> dup;  ///< fcntl F_DUPFD_CLOEXEC
  std::function<int(int, const char*, int, unsigned, struct statx*)> statx;
  std::function<int(int, struct statfs*)> fstatfs;
  std::function<ssize_t(int, const char*, char*, std::size_t)> readlinkat;
  std::function<ssize_t(int, void*, std::size_t)> getdents;
  std::function<int(int, const char*, int, const char*, unsigned)> renameat2;
  std::function<int(int, const char*, int, const char*)> renameat;
  std::function<int(int, const char*, int, const char*, int)> linkat;
  std::function<int(int, const char*, int)> unlinkat;
  std::function<int(int, const char*, mode_t)> mkdirat;
  std::function<int(const char*, int, const char*)> symlinkat;
  std::function<int(int, int)> clone;  ///< ioctl FICLONE: into the first, from the second
  std::function<ssize_t(int, off_t*, int, off_t*, std::size_t)> copy_file_range;
  std::function<off_t(int, off_t, int)> lseek;
  std::function<ssize_t(int, void*, std::size_t, off_t)> pread;
  std::function<ssize_t(int, const void*, std::size_t, off_t)> pwrite;
  std::function<int(int, off_t)> ftruncate;
  std::function<int(int)> fsync;
  std::function<int(int)> syncfs;
  std::function<int(int, uid_t, gid_t)> fchown;
  std::function<int(int, mode_t)> fchmod;
  std::function<ssize_t(int, char*, std::size_t)> flistxattr;
  std::function<ssize_t(int, const char*, void*, std::size_t)> fgetxattr;
  std::function<int(int, const char*, const void*, std::size_t)> fsetxattr;
  std::function<int(int, const char*)> fremovexattr;
  std::function<int(int, const struct timespec*)> futimens;
  std::function<int(int, const char*, const struct timespec*, int)> utimensat;
  std::function<int(pid_t, int)> kill;
};

/// The calls of this machine.
Syscalls RealSyscalls();

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

/// Owns one file descriptor; -1 is none.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int fd) : fd_(fd) {}
  FileHandle(FileHandle&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~FileHandle() {
    const int kept = errno;  // an answer is often on its way out through errno
    if (fd_ >= 0) ::close(fd_);
    errno = kept;
  }

  explicit operator bool() const { return fd_ >= 0; }
  int get() const { return fd_; }

 private:
  int fd_ = -1;
};
