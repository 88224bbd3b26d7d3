#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <map>
#include <set>
#include <string>

#include "faults.h"
#include "platform/posix/files_posix.h"
#include "support/temp_folder.h"

// Every call of every file operation fails in turn, once or for good, carried out or not; and in
// turn another program comes just before every call. What is injected is written down nowhere but
// here: an operation that makes other calls tomorrow is tested with those.

namespace {

/// All that is there: paths and contents, "/" for a folder, "->" and more for a link.
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
  }

  State Now() const {
    State state;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
      const std::string name = entry.path().string().substr(folder.path().size() + 1);
      state[name] = entry.is_symlink()     ? "->" + std::filesystem::read_symlink(entry).string()
                    : entry.is_directory() ? "/"
                                           : folder.Read(name).value_or("unreadable");
    }
    return state;
  }

  TempFolder folder{::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : ""};
  CopyIdentities copied;
  FolderIdentity made;
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

struct Operation {
  const char* what;
  const char* from;
  const char* to;
  bool (*run)(FileSystem& files, const std::string& from, const std::string& to, const World&);
  void (*on)(Syscalls&, const World&) = [](Syscalls&, const World&) {};
};

bool Move(FileSystem& files, const std::string& from, const std::string& to, const World&) {
  return files.MoveFile(from, to, {});
}

const Operation kOperations[] = {
    {"move in one folder", "in/a", "in/b", Move},
    {"move to another folder", "in/a", "out/b", Move},
    {"move a folder", "in/sub", "out/b", Move},
    {"move to another file system", "in/a", "out/b", Move, Split},
    {"move a link to another file system", "in/link", "out/b", Move, Split},
    {"change letter case", "in/a", "in/A", Move, IgnoreCase<false>},
    {"change letter case, answered and not done", "in/a", "in/A", Move, IgnoreCase<true>},
    {"copy", "in/a", "out/b",
     [](auto& files, auto& a, auto& b, auto&) { return files.CopyFile(a, b, {}, nullptr); }},
    {"delete a copy", "out/copy", "none",
     [](auto& files, auto& a, auto&, auto& w) { return files.DeleteMadeFile(a, w.copied.made); }},
    {"make a folder", "none", "out/b",
     [](auto& files, auto&, auto& b, auto&) { return files.CreateDirectory(b); }},
    {"delete a made folder", "made", "none",
     [](auto& files, auto& a, auto&, auto& w) { return files.DeleteMadeFolder(a, w.made); }},
};

bool Perform(const Operation& operation, const Lack& lack, const World& world, Fault& fault) {
  Syscalls calls;
  lack.apply(calls);
  operation.on(calls, world);
  Inject(calls, fault);
  return operation.run(*MakePosixFileSystem(calls), world.folder / operation.from,
                       world.folder / operation.to, world);
}

/// Calls `check` with each operation on each kind of file system, how many calls it makes there,
/// and what is there before and after it.
template <class Check>
void ForEachOperation(Check check) {
  for (const Operation& operation : kOperations) {
    int calls_with_all = 0;
    for (const Lack& lack : kLacks) {
      SCOPED_TRACE(std::string(operation.what) + ", lacking " + lack.what);
      const World world;
      const State before = world.Now();
      Fault none;
      ASSERT_TRUE(Perform(operation, lack, world, none));
      if (none.used == calls_with_all) continue;  // it never came to what is lacking
      if (&lack == kLacks) calls_with_all = none.used;
      check(operation, lack, none.used, before, world.Now());
    }
  }
}

std::string Told(const Fault& fault) {
  return std::string(fault.hit) + ", call " + std::to_string(fault.nth) + ", " +
         ::strerror(fault.error) + (fault.carried_out ? ", carried out" : "");
}

const std::set<std::string_view> kAttributes = {"fchmod", "futimens", "fsetxattr"};

/// What was made, and answered as if somebody else had made it, can't be told from that; and a look
/// that denies what is there leaves nothing to go by.
bool IsUnknowable(const Fault& fault) {
  static const std::set<std::string_view> kMakers = {"openat", "mkdirat", "symlinkat"};
  if (fault.error == ENOENT && fault.hit == std::string_view("statx")) return true;
  const bool looks_taken = fault.error == EEXIST || fault.error == EINTR;
  return fault.carried_out && looks_taken && kMakers.contains(fault.hit);
}

bool IsTemporary(const std::string& path) {
  return path.find("/.qv-") != path.npos || path.starts_with(".qv-");
}

bool Holds(const State& state, const std::string& content) {
  return std::any_of(state.begin(), state.end(),
                     [&](const auto& entry) { return entry.second == content; });
}

}  // namespace

TEST(EveryCall, TellsWhatWasDoneWhateverItAnswers) {
  ForEachOperation([](const Operation& operation, const Lack& lack, int calls, const State& before,
                      const State& after) {
    for (const int error : {EIO, EPERM, EEXIST, ENOENT, EINTR}) {
      for (int n = 0; n < 2 * calls; ++n) {
        const World world;
        Fault fault;
        fault.nth = 1 + n / 2;
        fault.error = error;
        fault.carried_out = n % 2 == 1;
        const bool answer = Perform(operation, lack, world, fault);
        if (IsUnknowable(fault)) continue;
        EXPECT_TRUE(world.Now() == (answer ? after : before)) << Told(fault);
        // An interrupted call is made again; what the target can't hold, as FAT a mode, is no loss.
        const bool attribute = kAttributes.contains(fault.hit);
        EXPECT_TRUE(answer || (error != EINTR && !(attribute && error == EPERM))) << Told(fault);
        EXPECT_FALSE(answer && attribute && error == EIO) << Told(fault);
      }
    }
  });
}

TEST(EveryCall, LosesNothingWhenMoreThanOneFails) {
  ForEachOperation([](const Operation& operation, const Lack& lack, int calls, const State& before,
                      const State& after) {
    for (int n = 0; n < 4 * calls; ++n) {
      const World world;
      Fault fault;
      fault.nth = 1 + n / 4;
      fault.error = EIO;
      fault.carried_out = n % 2 == 1;
      fault.twice = n % 4 < 2;
      fault.for_good = !fault.twice;
      const bool answer = Perform(operation, lack, world, fault);
      const State now = world.Now();
      for (const auto& [path, content] : before) {
        EXPECT_TRUE(Holds(now, content)) << Told(fault) << ": lost " << path;
      }
      for (const auto& [path, content] : now) {
        // Whole, or the empty placeholder of a fallback that can't be taken away again.
        const bool whole = content.empty() || Holds(before, content);
        EXPECT_TRUE(whole || IsTemporary(path)) << Told(fault) << ": half " << path;
      }
      for (const auto& [path, content] : after) {
        if (!answer) break;
        EXPECT_TRUE(now.contains(path) && now.at(path) == content) << Told(fault) << path;
      }
    }
  });
}

TEST(EveryCall, LeavesAStrangerWhoComesJustBefore) {
  ForEachOperation([](const Operation& operation, const Lack& lack, int calls, const State& before,
                      const State&) {
    for (int n = 0; n < 2 * calls; ++n) {
      const World world;
      const std::string name = n % 2 == 0 ? operation.from : operation.to;
      const bool folder = before.contains(name) && before.at(name) == "/";
      const std::string content = folder ? "/" : "stranger";
      struct stat stranger = {};
      State then;
      Fault fault;
      fault.nth = 1 + n / 2;
      fault.before = [&] {
        if (name == operation.to && world.folder.Has(name)) return;
        const std::string path = world.folder / name;  // a file is replaced, a folder moved away
        folder ? ::rename(path.c_str(), (path + " kept").c_str()) : ::unlink(path.c_str());
        folder ? world.folder.MakeFolder(name) : world.folder.Write(name, content);
        stranger = world.folder.Facts(name);
        then = world.Now();
      };
      Perform(operation, lack, world, fault);
      if (stranger.st_ino == 0) continue;
      bool stands = false;
      const State now = world.Now();
      for (const auto& [path, held] : now) {
        stands |= folder ? world.folder.Facts(path).st_ino == stranger.st_ino : held == content;
      }
      EXPECT_TRUE(stands) << fault.nth << ": the stranger at " << name << " is lost";
      for (const auto& [path, held] : then) {
        EXPECT_TRUE(!Holds(before, held) || Holds(now, held)) << fault.nth << ": lost " << path;
      }
      if (name == operation.from) continue;
      EXPECT_EQ(world.folder.Facts(name).st_ino, stranger.st_ino);
    }
  });
}
