#pragma once

#include <fcntl.h>

#include <cerrno>
#include <functional>
#include <string_view>
#include <tuple>

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
struct Lack {
  const char* what;
  void (*apply)(Syscalls&);
};

inline const Lack kLacks[] = {
    {"nothing", [](Syscalls&) {}},
    {"no-replace renames", [](Syscalls& c) { Fail(c.renameat2, EINVAL); }},
    {"hard links too",
     [](Syscalls& c) {
       Fail(c.renameat2, EOPNOTSUPP);
       Fail(c.linkat, EPERM);
     }},
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

/// Puts `fault`, which must live as long, before every one of the calls.
inline void Inject(Syscalls& calls, Fault& fault) {
  const auto wrap = [&fault]<class Answer, class... Args>(const char* name,
                                                          std::function<Answer(Args...)>& call) {
    call = [&fault, name, real = call](Args... args) -> Answer {
      if (!fault.Hits(name)) return real(args...);
      const std::string_view what = name;
      const bool opens = what == "openat" || what == "dup";
      // What close(2) is asked to close is closed, whatever it answers.
      const Answer answer = fault.carried_out || what == "close" ? real(args...) : -1;
      if (opens && answer >= 0) ::close(static_cast<int>(answer));
      errno = fault.error;
      return -1;
    };
  };
  const char* const names[] = {"openat",   "close",     "dup",        "statx",      "readlinkat",
                               "getdents", "renameat2", "renameat",   "linkat",     "unlinkat",
                               "mkdirat",  "symlinkat", "clone",      "copy_range", "lseek",
                               "pread",    "pwrite",    "ftruncate",  "fsync",      "syncfs",
                               "fchown",   "fchmod",    "flistxattr", "fgetxattr",  "fsetxattr",
                               "fremove",  "futimens",  "utimensat",  "kill",       "fstatfs"};
  static_assert(sizeof(Syscalls) == std::size(names) * sizeof(calls.close), "one is missing here");
  const char* const* name = names;
  Syscalls& c = calls;
  std::apply([&](auto&... call) { (wrap(*name++, call), ...); },
             std::tie(c.openat, c.close, c.dup, c.statx, c.readlinkat, c.getdents, c.renameat2,
                      c.renameat, c.linkat, c.unlinkat, c.mkdirat, c.symlinkat, c.clone,
                      c.copy_file_range, c.lseek, c.pread, c.pwrite, c.ftruncate, c.fsync, c.syncfs,
                      c.fchown, c.fchmod, c.flistxattr, c.fgetxattr, c.fsetxattr, c.fremovexattr,
                      c.futimens, c.utimensat, c.kill, c.fstatfs));
}
