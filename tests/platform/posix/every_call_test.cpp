#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <algorithm>
#include <map>
#include <ranges>
#include <set>
#include <string>

#include "faults.h"
#include "platform/posix/files_posix.h"
#include "support/temp_folder.h"

// Every call of every file operation fails in turn, once or for good, carried out or not; and in
// turn another program comes just before it. An operation that makes other calls tomorrow is tested
// with those.

namespace {

using State = std::map<std::string, std::string>;

struct World {
  World() {
    for (const char* name : {"in", "out", "in/sub", "made"}) folder.MakeFolder(name);
    folder.Write("in/a", "head");
    EXPECT_EQ(::truncate((folder / "in/a").c_str(), 90'000), 0);  // a hole
    std::ofstream(folder / "in/a", std::ios::app) << "end";
    ::setxattr((folder / "in/a").c_str(), "user.x", "1", 1, 0);
    folder.Write("in/sub/inner", "inner");
    folder.MakeLink("in/link", "nowhere");
    folder.Write("original", "O");
    const auto files = MakePosixFileSystem();
    EXPECT_TRUE(files->CopyFile(folder / "original", folder / "out/copy", {}, &copied));
    made = *files->IdentifyFolder(folder / "made");
    listed = files->Look(folder / "in/a")->fingerprint;
  }

  State Now() const { return folder.Everything(); }

  TempFolder folder{::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : ""};
  CopyIdentities copied;
  FolderIdentity made;
  Fingerprint listed = 0;  ///< of in/a
};

/// As if every folder were a file system of its own.
void Split(Syscalls& calls, const World&) {
  const auto guard =
      []<class... More>(std::function<int(int, const char*, int, const char*, More...)>& call) {
        call = [real = call](int a, const char* from, int b, const char* to, More... more) {
          struct stat x, y;
          if (a < 0 || (::fstat(a, &x) == 0 && ::fstat(b, &y) == 0 && x.st_ino == y.st_ino)) {
            return real(a, from, b, to, more...);
          }
          errno = EXDEV;
          return -1;
        };
      };
  guard(calls.renameat2);
  guard(calls.renameat);
  guard(calls.linkat);
}

/// A file system that ignores letter case, in "in", for names of ASCII letters: every name but a
/// temporary one is looked up under the case in which it is listed. Asked to change the case, it
/// refuses, or `lies`: answers 0 and does nothing.
template <bool lies>
void IgnoreCase(Syscalls& calls, const World& world) {
  const auto stored = [&folder = world.folder](const char* name) -> std::string {
    for (const std::string& entry : folder.List("in")) {
      if (::strcasecmp(entry.c_str(), name) == 0) return entry;
    }
    return name;
  };
  calls.statx = [=, real = calls.statx](int at, const char* name, int how, unsigned mask,
                                        struct statx* facts) {
    const bool as_told = *name == '/' || *name == '\0';
    return real(at, as_told ? name : stored(name).c_str(), how, mask, facts);
  };
  calls.renameat2 = [=, real = calls.renameat2](int a, const char* from, int b, const char* to,
                                                unsigned flags) {
    if (stored(from) != stored(to)) return real(a, stored(from).c_str(), b, to, flags);
    errno = EEXIST;
    return lies ? 0 : -1;
  };
}

bool Move(FileSystem& files, const std::string& from, const std::string& to, const World&) {
  return files.MoveFile(from, to, {});
}

/// As a run moves a file that it has listed.
bool MoveListed(FileSystem& files, const std::string& from, const std::string& to,
                const World& world) {
  Fingerprint known = world.listed;
  return files.MoveKnown(from, to, {}, known);
}

const struct Operation {
  const char* what;
  const char* from;
  const char* to;
  bool (*run)(FileSystem& files, const std::string& from, const std::string& to, const World&);
  void (*on)(Syscalls&, const World&) = [](Syscalls&, const World&) {};
} kOperations[] = {
    {"move in one folder", "in/a", "in/b", Move},
    {"move to another folder", "in/a", "out/b", Move},
    {"move a folder", "in/sub", "out/b", Move},
    {"move to another file system", "in/a", "out/b", Move, Split},
    {"move a link to another file system", "in/link", "out/b", Move, Split},
    {"change letter case", "in/a", "in/A", Move, IgnoreCase<false>},
    {"change letter case, answered and not done", "in/a", "in/A", Move, IgnoreCase<true>},
    {"move a listed file", "in/a", "in/b", MoveListed},
    {"change letter case of a listed file", "in/a", "in/A", MoveListed},
    {"the same, answered and not done", "in/a", "in/A", MoveListed, IgnoreCase<true>},
    {"copy", "in/a", "out/b",
     [](auto& files, auto& a, auto& b, auto&) { return files.CopyFile(a, b, {}, nullptr); }},
    {"delete a copy", "out/copy", "none",
     [](auto& files, auto& a, auto&, auto& w) { return files.DeleteMadeFile(a, w.copied.made); }},
    {"make a folder", "none", "out/b",
     [](auto& files, auto&, auto& b, auto&) { return files.CreateDirectory(b); }},
    {"delete a made folder", "made", "none",
     [](auto& files, auto& a, auto&, auto& w) { return files.DeleteMadeFolder(a, w.made); }},
};

struct Try {
  const Operation& operation;
  const Lack& lack;
  World world{};
  Fault fault{};

  bool Perform() {
    Syscalls calls;
    lack.apply(calls);
    operation.on(calls, world);
    Inject(calls, fault);
    return operation.run(*MakePosixFileSystem(calls), world.folder / operation.from,
                         world.folder / operation.to, world);
  }
};

/// Calls `check` for each operation on each kind of file system, `kinds` times for each call that
/// it makes there: with a try, the kind from 0, and what is there before and after it.
template <class Check>
void ForEachCall(int kinds, Check check) {
  for (const Operation& operation : kOperations) {
    int calls_with_all = 0;
    for (const Lack& lack : kLacks) {
      SCOPED_TRACE(std::string(operation.what) + ", lacking " + lack.what);
      Try whole{operation, lack};
      const State before = whole.world.Now();
      ASSERT_TRUE(whole.Perform());
      const State after = whole.world.Now();
      const int calls = whole.fault.used;
      if (calls == calls_with_all) continue;  // it never came to what is lacking
      if (&lack == kLacks) calls_with_all = calls;
      for (int n = 0; n < kinds * calls; ++n) {
        Try one{operation, lack};
        one.fault.nth = 1 + n / kinds;
        check(one, n % kinds, before, after);
      }
    }
  }
}

std::string Told(const Fault& fault) {
  return std::string(fault.hit) + ", call " + std::to_string(fault.nth) + ", " +
         ::strerror(fault.error) + (fault.carried_out ? ", carried out" : "");
}

/// What was made, and answered as if somebody else had made it, can't be told from that; and a look
/// that denies what is there leaves nothing to go by. Of a listed file that is gone nobody knows
/// who took it: a disk of this machine doesn't deny a file that it has just renamed.
bool IsUnknowable(const Operation& operation, const Fault& fault) {
  const bool renames = fault.hit == std::string_view("renameat2");
  if (fault.error == ENOENT && renames && operation.run == MoveListed) return true;
  static const std::set<std::string_view> kMakers = {"openat", "mkdirat", "symlinkat"};
  if (fault.error == ENOENT && fault.hit == std::string_view("statx")) return true;
  const bool looks_taken = fault.error == EEXIST || fault.error == EINTR;
  return fault.carried_out && looks_taken && kMakers.contains(fault.hit);
}

bool Holds(const State& state, const std::string& content) {
  return std::ranges::count(std::views::values(state), content) > 0;
}

}  // namespace

TEST(EveryCall, TellsWhatWasDoneWhateverItAnswers) {
  static const std::set<std::string_view> kAttributes = {"fchmod", "futimens", "fsetxattr"};
  static const int kErrors[] = {EIO, EPERM, EEXIST, ENOENT, EINTR};
  ForEachCall(10, [](Try& one, int kind, const State& before, const State& after) {
    Fault& fault = one.fault;
    fault.error = kErrors[kind / 2];
    fault.carried_out = kind % 2 == 1;
    const bool answer = one.Perform();
    if (IsUnknowable(one.operation, fault)) return;
    EXPECT_TRUE(one.world.Now() == (answer ? after : before)) << Told(fault);
    // An interrupted call is made again; what the target can't hold, as FAT a mode, is no loss.
    const bool attribute = kAttributes.contains(fault.hit);
    const bool no_matter = fault.error == EINTR || (attribute && fault.error == EPERM);
    EXPECT_TRUE(answer || !no_matter) << Told(fault);
    EXPECT_FALSE(answer && attribute && fault.error == EIO) << Told(fault);
  });
}

TEST(EveryCall, LosesNothingWhenMoreThanOneFails) {
  ForEachCall(4, [](Try& one, int kind, const State& before, const State& after) {
    Fault& fault = one.fault;
    fault.error = EIO;
    fault.carried_out = kind % 2 == 1;
    fault.twice = kind < 2;
    fault.for_good = !fault.twice;
    const bool answer = one.Perform();
    const State now = one.world.Now();
    for (const auto& [path, content] : before) {
      EXPECT_TRUE(Holds(now, content)) << Told(fault) << ": lost " << path;
    }
    for (const auto& [path, content] : now) {
      // Whole, or temporary, or the empty placeholder of a fallback that can't be taken away again.
      const bool may_be = content.empty() || path.find(".qv-") != path.npos;
      EXPECT_TRUE(may_be || Holds(before, content)) << Told(fault) << ": half " << path;
    }
    for (const auto& [path, content] : answer ? after : State()) {
      EXPECT_TRUE(now.contains(path) && now.at(path) == content) << Told(fault) << path;
    }
  });
}

TEST(EveryCall, LeavesAStrangerWhoComesJustBefore) {
  ForEachCall(2, [](Try& one, int kind, const State& before, const State&) {
    const TempFolder& root = one.world.folder;
    const std::string name = kind == 0 ? one.operation.from : one.operation.to;
    const bool folder = before.contains(name) && before.at(name) == "/";
    struct stat stranger = {};
    State then;
    one.fault.before = [&] {
      if (kind == 1 && root.Has(name)) return;
      const std::string path = root / name;  // a file is replaced, a folder moved away
      folder ? ::rename(path.c_str(), (path + " kept").c_str()) : ::unlink(path.c_str());
      folder ? root.MakeFolder(name) : root.Write(name, "stranger");
      stranger = root.Facts(name);
      then = one.world.Now();
    };
    one.Perform();
    if (stranger.st_ino == 0) return;
    SCOPED_TRACE(std::to_string(one.fault.nth) + ", at " + name);
    const State now = one.world.Now();
    const auto is_stranger = [&](auto& path) { return root.Facts(path).st_ino == stranger.st_ino; };
    EXPECT_TRUE(folder ? std::ranges::any_of(std::views::keys(now), is_stranger)
                       : Holds(now, "stranger"))
        << "the stranger is lost";
    for (const auto& [path, held] : then) {
      EXPECT_TRUE(!Holds(before, held) || Holds(now, held)) << "lost " << path;
    }
    EXPECT_TRUE(kind == 0 || root.Facts(name).st_ino == stranger.st_ino) << "replaced";
  });
}
