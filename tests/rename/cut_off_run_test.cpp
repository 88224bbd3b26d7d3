#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>

#include "platform/posix/files_posix.h"
#include "rename/journaled_files.h"
#include "rename/left_runs.h"
#include "rename/run.h"
#include "rename/run_journal.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

namespace {

using Everything = std::map<std::string, std::string>;

/// Ends the process at the n-th change of the disk, before or after it.
struct Killer {
  int nth = 0;  ///< from 1; 0 is never
  bool after = false;
  int used = 0;

  template <class Answer, class... Args>
  void Watch(std::function<Answer(Args...)>& call) {
    call = [this, real = call](Args... args) {
      const bool now = ++used == nth;
      if (now && !after) ::kill(::getpid(), SIGKILL);
      const Answer answer = real(args...);
      if (now) ::kill(::getpid(), SIGKILL);
      return answer;
    };
  }

  Syscalls Calls() {
    Syscalls calls;
    Watch(calls.renameat2), Watch(calls.linkat), Watch(calls.unlinkat), Watch(calls.mkdirat);
    Watch(calls.symlinkat), Watch(calls.fsync), Watch(calls.openat), Watch(calls.fchmod);
    return calls;
  }
};

/// A tree with files, and what a user does with it until the program is killed.
struct World {
  explicit World(std::uint32_t seed)
      : random(seed), out(seed % 3 == 0 ? "" : "/dev/shm"), mode(static_cast<int>(random() % 3)) {}

  int Below(int n) { return static_cast<int>(random() % static_cast<std::uint32_t>(n)); }

  void MakeFiles() {
    in.MakeFolder("sub");
    for (int i = 0; i < kFiles; ++i) {
      const std::string name = (i % 4 == 3 ? "sub/f" : "f") + std::to_string(i);
      if (i % 7 == 6) {
        in.MakeLink(name, "nowhere" + std::to_string(i));
      } else {
        in.Write(name, "content of " + name + std::string(Below(3) == 0 ? 90'000 : 0, 'x'));
      }
    }
    in.Write("stranger", "s"), out.Write("stranger", "s");
  }

  /// Half of the names are swapped, turned round or taken more than once.
  void List(Records& records) {
    const int kind = Below(4);
    for (int i = 0; i < kFiles; ++i) {
      const std::string folder = in / (i % 4 == 3 ? "sub/" : "");
      records.AddRecord("", folder, "f" + std::to_string(i), FileDate(), 0, "");
      const std::string names[] = {"f" + std::to_string(i ^ 1),
                                   "f" + std::to_string((i + 4) % kFiles), "same",
                                   "n" + std::to_string(i)};
      records[static_cast<std::size_t>(i)].newFileName = names[OneOf(kind)];
    }
  }
  int OneOf(int kind) { return Below(5) == 0 ? Below(4) : kind; }

  /// In a process of its own. 0 when it came to its end.
  void RunAndUndo(const Killer& killer) {
    Killer own = killer;
    const auto files = MakePosixFileSystem(own.Calls());
    FakeServices fakes;
    const Services services = fakes.With(*files, fakes.clock, fakes.locale);
    RunJournal journal;
    journal.KeepIn(state.path());
    Records records;
    List(records);
    RunState run_state;
    RunReports reports;
    const RunOutput output{{mode, out / "new/deep/", true}, in / ""};
    for (int pass = 0; pass < 4; ++pass) {
      const bool undo = pass % 2 == 1;
      const auto work = undo ? journal::Work::kUndo : journal::Work::kRun;
      journal.Begin({OwnMark(), 7, work, mode, in / "", kFiles});
      {
        JournaledServices journaled(services, journal, [&] { journal.Sync(); });
        Pass one(records, run_state, journaled.Get(), records.Count());
        undo ? UndoRun(one, reports).Undo() : RenameRun(one, output, reports).RunRename();
        files->LetFoldersGo();
      }
      journal.End();
    }
  }

  /// False when the way back was killed.
  void PutBack(const Killer& killer) {
    Killer own = killer;
    const auto files = MakePosixFileSystem(own.Calls());
    FakeServices fakes;
    const Services services = fakes.With(*files, fakes.clock, fakes.locale);
    for (const std::string& journal : LeftJournals(state.path())) {
      const auto left = LeftRun::Read(journal, *files, [] { return true; });
      RunState run_state;
      if (left) left->PutBack(services, run_state);
      if (left)
        for (const auto& f : left->Files(100))
          std::cout << f.former << " <- " << f.present << " " << f.problem << "\n";
    }
  }

  /// Every entry with what it holds, long contents in short.
  std::set<std::string> All() const {
    std::set<std::string> all;
    const auto add = [&](const std::string& folder, const Everything& entries) {
      for (const auto& [name, content] : entries) {
        all.insert(folder + name + ": " + content.substr(0, 25) + std::to_string(content.size()));
      }
    };
    add("in/", in.Everything()), add("out/", out.Everything());
    return all;
  }

  static constexpr int kFiles = 20;
  std::mt19937 random;
  TempFolder in{"/dev/shm"}, out, state;
  int mode;
};

/// Whether it was killed.
template <class Work>
bool InChild(const Work& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::alarm(60);
    work();
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) || WTERMSIG(status) == SIGKILL) << "signal " << WTERMSIG(status);
  return WIFSIGNALED(status);
}

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : static_cast<std::uint32_t>(std::stoul(value));
}

}  // namespace

// QUORVANE_KILLS is their number, QUORVANE_KILL_SEED the first one's seed.
TEST(CutOffRun, IsPutBackWholeAtTheNextStart) {
  const std::uint32_t kills = FromEnvironment("QUORVANE_KILLS", 60);
  const std::uint32_t first = FromEnvironment("QUORVANE_KILL_SEED", 1);
  std::uint32_t met = 0;
  for (std::uint32_t seed = first; met < kills; ++seed) {
    World world(seed);
    world.MakeFiles();
    const std::set<std::string> before = world.All();
    const Killer killer{1 + world.Below(400), world.Below(2) == 1};
    const bool killed = InChild([&] { world.RunAndUndo(killer); });
    met += killed;
    const std::set<std::string> cut = world.All();
    int again = 0;
    while (killed && InChild([&] { world.PutBack({1 + world.Below(60), world.Below(2) == 1}); })) {
      ++met;
      world.random.discard(2);
      if (++again == 3) break;
    }
    world.PutBack({});
    const std::set<std::string> after = world.All();
    std::set<std::string> differ;
    std::ranges::set_symmetric_difference(before, after, std::inserter(differ, differ.end()));
    ASSERT_EQ(differ, std::set<std::string>())
        << "seed " << seed << " mode " << world.mode << " kill " << killer.nth << killer.after
        << " again " << again << testing::PrintToString(cut);
    ASSERT_TRUE(world.state.List().empty()) << "seed " << seed;
  }
}
