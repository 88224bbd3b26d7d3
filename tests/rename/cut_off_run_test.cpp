#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

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

/// Ends the process at the n-th change of the disk, before or after it, or after a time.
struct Killer {
  int nth = 0;  ///< from 1; 0 is never
  bool after = false;
  int microseconds = 0;
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
    calls.fsync = calls.syncfs = [](int) { return 0; };  // what was written outlives a process
    Watch(calls.renameat2), Watch(calls.linkat), Watch(calls.unlinkat), Watch(calls.mkdirat);
    Watch(calls.symlinkat), Watch(calls.fsync), Watch(calls.openat), Watch(calls.fchmod);
    return calls;
  }
};

/// A tree with files, and what a user does with it until the program is killed.
struct World {
  explicit World(std::uint32_t seed, int count = 20)
      : files(count),
        random(seed),
        out(seed % 3 == 0 ? "" : "/dev/shm"),
        mode(static_cast<int>(random() % 3)) {}

  int Below(int n) { return static_cast<int>(random() % static_cast<std::uint32_t>(n)); }

  void MakeFiles() {
    in.MakeFolder("sub");
    for (int i = 0; i < files; ++i) {
      const std::string name = (i % 4 == 3 ? "sub/f" : "f") + std::to_string(i);
      if (i % 7 == 6) {
        in.MakeLink(name, "nowhere" + std::to_string(i));
      } else {
        in.Write(name, "content of " + name + std::string(Below(3) == 0 ? 90'000 : 0, 'x'));
      }
    }
    in.Write("stranger", "s"), out.Write("stranger", "s");
  }

  /// Every third one comes at any moment, and not between two system calls.
  Killer AnyKiller(int changes, int microseconds) {
    if (Below(3) == 0) return {.microseconds = 1 + Below(microseconds)};
    return {.nth = 1 + Below(changes), .after = Below(2) == 1};
  }

  /// Half of the names are swapped, turned round or taken more than once.
  void List(Records& records) {
    const int kind = Below(4);
    for (int i = 0; i < files; ++i) {
      const std::string folder = in / (i % 4 == 3 ? "sub/" : "");
      records.AddRecord("", folder, "f" + std::to_string(i), FileDate(), 0, "");
      const std::string names[] = {"f" + std::to_string(i ^ 1),
                                   "f" + std::to_string((i + files / 5) % files), "same",
                                   "n" + std::to_string(i)};
      records[static_cast<std::size_t>(i)].newFileName = names[OneOf(kind)];
    }
  }
  int OneOf(int kind) { return Below(5) == 0 ? Below(4) : kind; }

  /// Run, undo, run, undo, as many of them as that.
  void RunAndUndo(const Killer& killer, int passes = 4) {
    Killer own = killer;
    const auto system = MakePosixFileSystem(own.Calls());
    FakeServices fakes;
    const Services services = fakes.With(*system, fakes.clock, fakes.locale);
    RunJournal journal;
    journal.KeepIn(state.path());
    Records records;
    List(records);
    RunState run_state;
    RunReports reports;
    const RunOutput output{{mode, out / "new/deep/", true}, in / ""};
    for (int pass = 0; pass < passes; ++pass) {
      const bool undo = pass % 2 == 1;
      const auto work = undo ? journal::Work::kUndo : journal::Work::kRun;
      journal.Begin({OwnMark(), 7, work, mode, in / "", static_cast<std::size_t>(files)});
      {
        JournaledServices journaled(services, journal, [&] { journal.Sync(); });
        Pass one(records, run_state, journaled.Get(), records.Count());
        undo ? UndoRun(one, reports).Undo() : RenameRun(one, output, reports).RunRename();
        system->LetFoldersGo();
      }
      journal.End();
    }
  }

  /// What the next start does.
  void PutBack(const Killer& killer) {
    Killer own = killer;
    const auto system = MakePosixFileSystem(own.Calls());
    FakeServices fakes;
    const Services services = fakes.With(*system, fakes.clock, fakes.locale);
    for (const std::string& journal : LeftJournals(state.path())) {
      const auto left = LeftRun::Read(journal, *system, [] { return true; });
      RunState run_state;
      EXPECT_TRUE(left || state.List().empty()) << "it tells, or it goes";
      if (left) left->PutBack(services, run_state);
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

  const int files;
  std::mt19937 random;
  TempFolder in{"/dev/shm"}, out, state{"/dev/shm"};
  int mode;
};

/// Whether it was killed.
template <class Work>
bool InChild(const Killer& killer, const Work& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    const itimerval limit = {{}, {60, 0}}, timer = {{}, {0, killer.microseconds}};
    ::setitimer(ITIMER_REAL, killer.microseconds != 0 ? &timer : &limit, nullptr);
    work(killer);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  const int expected = killer.microseconds != 0 ? SIGALRM : SIGKILL;
  EXPECT_TRUE(WIFEXITED(status) || WTERMSIG(status) == expected) << "signal " << WTERMSIG(status);
  return WIFSIGNALED(status);
}

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise : static_cast<std::uint32_t>(std::stoul(value));
}

std::string Text(const World& world) {
  return world.state.Read(world.state.List()[0]).value_or("");
}

/// At the end of each record and within it, the last one first.
std::vector<std::size_t> Cuts(std::string_view journal) {
  std::vector<std::size_t> cuts;
  for (std::size_t at = journal::kFirstBytes.size(), next = at; at < journal.size(); at = next) {
    std::size_t size = 0;
    for (int shift = 0; next == at || (journal[next - 1] & 0x80) != 0; shift += 7) {
      size |= static_cast<std::size_t>(journal[next++] & 0x7F) << shift;
    }
    next += size + 4;
    for (const std::size_t cut : {at, at + 1, (at + next) / 2, next - 1}) cuts.push_back(cut);
  }
  std::ranges::reverse(cuts);
  return cuts;
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
    const Killer killer = world.AnyKiller(400, 20'000);
    const bool killed = InChild(killer, [&](const Killer& own) { world.RunAndUndo(own); });
    met += killed;
    const std::set<std::string> cut = world.All();
    int again = 0;
    // Some of the ways back are killed too, and taken up again.
    const auto put_back = [&](const Killer& own) { world.PutBack(own); };
    while (killed && again < 3 && InChild(world.AnyKiller(60, 5'000), put_back)) ++met, ++again;
    world.PutBack({});
    const std::set<std::string> after = world.All();
    std::set<std::string> differ;
    std::ranges::set_symmetric_difference(before, after, std::inserter(differ, differ.end()));
    ASSERT_EQ(differ, std::set<std::string>())
        << "seed " << seed << " mode " << world.mode << " kill " << killer.nth << killer.after
        << " at " << killer.microseconds << " again " << again << testing::PrintToString(cut);
    ASSERT_TRUE(world.state.List().empty()) << "seed " << seed;
  }
}

// A power cut may keep less of the journal than was done, and less of what was done than it tells.
// Answers whether there is such a cut.
bool SurvivesCut(std::uint32_t seed, int killed_at, std::size_t cut_number) {
  World world(seed, 5);
  world.MakeFiles();
  const std::set<std::string> before = world.All();
  const auto run = [&](const Killer& own) { world.RunAndUndo(own, 1); };
  if (killed_at == 0) run({});
  if (killed_at != 0 && !InChild({.nth = killed_at}, run)) return false;
  const std::string whole = world.state.List().empty() ? "" : Text(world);
  const std::vector<std::size_t> cuts = Cuts(whole);
  if (cut_number >= cuts.size()) return false;
  const std::string name = world.state.List()[0], zeros(cut_number % 2 * 500, '\0');
  world.state.Write(name, whole.substr(0, cuts[cut_number]) + zeros);
  world.PutBack({});
  std::set<std::string> lost;
  const auto content = [](const std::string& entry) { return entry.substr(entry.find(':')); };
  for (const std::string& entry : before) lost.insert(content(entry));
  const std::set<std::string> after = world.All();
  for (const std::string& entry : after) lost.erase(content(entry));
  EXPECT_EQ(lost, std::set<std::string>())
      << "seed " << seed << ", killed at " << killed_at << ", cut at " << cuts[cut_number];
  EXPECT_TRUE(after.contains("in/stranger: s1") && after.contains("out/stranger: s1"));
  return true;
}

TEST(CutOffRun, LosesNothingWhenAPowerCutKeepsAPartOnly) {
  int met = 0;
  std::set<int> modes;
  for (const std::uint32_t seed : {1, 2, 3, 6, 9, 12}) {
    modes.insert(World(seed).mode);
    for (std::size_t cut = 0; SurvivesCut(seed, 0, cut); ++cut) ++met;
    for (int at = 1; at < 40; ++at) met += SurvivesCut(seed, at, static_cast<std::size_t>(at % 4));
  }
  EXPECT_EQ(modes.size(), 3u);
  EXPECT_GT(met, 300);
}

TEST(CutOffRun, IsPutBackWhenLessWasDoneThanItsJournalTells) {
  for (std::uint32_t seed = 1; seed <= 9; ++seed) {
    World ahead(seed);
    ahead.MakeFiles();
    const std::set<std::string> before = ahead.All();
    ahead.RunAndUndo({}, 1);
    const std::string told = Text(ahead), journal = ahead.state.List()[0];
    ahead.PutBack({});
    ahead.state.Write(journal, told);
    ASSERT_EQ(::chmod((ahead.state / journal).c_str(), 0600), 0);
    ahead.PutBack({});
    ASSERT_EQ(ahead.All(), before) << "seed " << seed;
  }
}

struct Strange : testing::Test {
  Strange() { folder.Write("a", "a"); }

  /// What would have moved "a" from `from` in the folder `where`.
  std::string JournalOf(const ProcessMark& mark, const std::string& where,
                        const std::string& from) {
    journal::Writer writer;
    std::string bytes(journal::kFirstBytes);
    writer.Begin(bytes, {mark, 7, journal::Work::kRun, 0, where, 1});
    writer.Folder(bytes, where, *files->IdentifyFolder(folder.path()));
    const Fingerprint a = FingerprintOf(*files->Identify(folder / "a"));
    writer.Before(bytes, {journal::Action::kMove, {0, from}, {0, "a"}, a});
    return bytes;
  }
  void Write(const std::string& bytes) {
    state.Write("j.journal", bytes);
    ::chmod(journal.c_str(), 0600);
  }
  bool Leaves(const std::string& file) {
    const auto left = LeftRun::Read(file, *files, [] { return true; });
    return left == nullptr && folder.Read("a") == "a" && folder.List().size() == 1;
  }

  const TempFolder folder, state;
  const std::string path = folder / "", journal = state / "j.journal";
  std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  const ProcessMark own = OwnMark();
};

TEST_F(Strange, JournalsTellNothing) {
  ProcessMark other_machine = own, other_user = own;
  other_machine.machine += "x", ++other_user.user;
  const std::string good = JournalOf(own, path, "b");
  const std::pair<std::string, std::string> cases[] = {
      {"another machine", JournalOf(other_machine, path, "b")},
      {"another user", JournalOf(other_user, path, "b")},
      {"a way up", JournalOf(own, path + "../" + folder.path().substr(5) + "/", "b")},
      {"no root", JournalOf(own, path.substr(1), "b")},
      {"a name that leads away", JournalOf(own, path, "sub/b")},
      {"a name that is a folder", JournalOf(own, path, "..")},
      {"another version", "QVJRNL9\n" + good.substr(8)},
      {"garbage", std::string(100'000, 'x')},
  };
  for (const auto& [what, bytes] : cases) {
    Write(bytes);
    EXPECT_TRUE(Leaves(journal) && state.Has("j.journal")) << what;
  }
  Write(good);
  const auto left = LeftRun::Read(journal, *files, [] { return true; });
  EXPECT_TRUE(left && left->Told().renamed == 1) << "this one does";
}

TEST_F(Strange, FilesAreNoJournals) {
  Write("");
  EXPECT_EQ(::truncate(journal.c_str(), 2LL << 30), 0);
  EXPECT_TRUE(Leaves(journal)) << "as large as that";
  Write(JournalOf(own, path, "b"));
  const std::string other = state / "k.journal";
  EXPECT_EQ(::link(journal.c_str(), other.c_str()), 0);
  EXPECT_TRUE(Leaves(journal)) << "a second name";
  ::unlink(other.c_str());
  EXPECT_EQ(::symlink(journal.c_str(), other.c_str()), 0);
  EXPECT_TRUE(Leaves(other)) << "a link";
  ::unlink(other.c_str());
  EXPECT_EQ(::mkfifo(other.c_str(), 0600), 0);
  EXPECT_TRUE(Leaves(other)) << "a fifo";
  ::chmod(journal.c_str(), 0622);
  EXPECT_TRUE(Leaves(journal)) << "others can write to it";
  ::chmod(journal.c_str(), 0600);
  const auto held = JournalFile::Take(journal);
  EXPECT_TRUE(held && Leaves(journal)) << "held by another";
}
