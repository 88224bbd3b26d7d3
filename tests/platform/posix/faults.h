#pragma once

#include <fcntl.h>

#include <cerrno>
#include <functional>
#include <string_view>

#include "platform/posix/syscalls.h"

/// `call` with its n-th use (from 1) answered by -1 and `error`; 0 answers every use so.
template <class Answer, class... Args>
void Fail(std::function<Answer(Args...)>& call, int error, int nth = 0) {
  call = [real = call, error, nth, used = 0](Args... args) mutable -> Answer {
    if (nth != 0 && ++used != nth) return real(args...);
    errno = error;
    return -1;
  };
}

/// What a file system, or a kernel, may not have.
inline const struct Lack {
  const char* what;
  void (*apply)(Syscalls&);
} kLacks[] = {
    {"nothing", [](Syscalls&) {}},
    {"no-replace renames", [](Syscalls& c) { Fail(c.renameat2, EINVAL); }},
    {"hard links too", [](Syscalls& c) { Fail(c.renameat2, EOPNOTSUPP), Fail(c.linkat, EPERM); }},
    {"files without a name", [](Syscalls& c) {
       c.openat = [real = c.openat](int at, const char* name, int flags, mode_t mode) {
         if ((flags & O_TMPFILE) != O_TMPFILE) return real(at, name, flags, mode);
         errno = EOPNOTSUPP;
         return -1;
       };
     }}};

/// What happens at the n-th use of all calls together.
struct Fault {
  int nth = 0;                   ///< from 1; 0 is never
  int error = 0;                 ///< 0: the call is made as it should
  bool carried_out = false;      ///< although it answers the error
  bool for_good = false;         ///< so do all later uses of that call
  bool twice = false;            ///< so does the next call, whichever
  std::function<void()> before;  ///< what another program does just then
  int used = 0;
  const char* hit = "";  ///< the name of the call

  bool Hits(const char* call) {
    if (++used != nth) return (for_good && call == hit) || (twice && used == nth + 1);
    hit = call;
    if (before) before();
    return error != 0;
  }
};

/// Puts `fault`, which must live as long, before `call`.
template <class Answer, class... Args>
void Inject(Fault& fault, std::string_view name, std::function<Answer(Args...)>& call) {
  call = [&fault, name, real = call](Args... args) -> Answer {
    if (!fault.Hits(name.data())) return real(args...);
    // What close(2) is asked to close is closed, whatever it answers.
    const Answer answer = fault.carried_out || name == "close" ? real(args...) : -1;
    if ((name == "openat" || name == "dup") && answer >= 0) ::close(static_cast<int>(answer));
    errno = fault.error;
    return -1;
  };
}

/// Puts it before each of the named calls.
template <class Call, class... More>
void Inject(Fault& fault, std::string_view name, Call& call, More&... more) {
  Inject(fault, name, call);
  Inject(fault, more...);
}

/// Puts it before every one of the calls.
inline void Inject(Syscalls& c, Fault& fault) {
  static_assert(sizeof(Syscalls) == 30 * sizeof(c.close), "a new call stands here too");
  Inject(fault, "openat", c.openat, "close", c.close, "dup", c.dup, "statx", c.statx, "fstatfs",
         c.fstatfs, "readlinkat", c.readlinkat, "getdents", c.getdents, "renameat2", c.renameat2,
         "renameat", c.renameat, "linkat", c.linkat, "unlinkat", c.unlinkat, "mkdirat", c.mkdirat,
         "symlinkat", c.symlinkat, "clone", c.clone, "copy_file_range", c.copy_file_range, "lseek",
         c.lseek, "pread", c.pread, "pwrite", c.pwrite, "ftruncate", c.ftruncate, "fsync", c.fsync,
         "syncfs", c.syncfs, "fchown", c.fchown, "fchmod", c.fchmod, "flistxattr", c.flistxattr,
         "fgetxattr", c.fgetxattr, "fsetxattr", c.fsetxattr, "fremovexattr", c.fremovexattr,
         "futimens", c.futimens, "utimensat", c.utimensat, "kill", c.kill);
}
