#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <map>
#include <random>
#include <string>
#include <thread>

#include "rename/run.h"
#include "rename/undo.h"
#include "support/fake_services.h"
#include "support/temp_folder.h"

namespace {

constexpr int kFiles = 40;
constexpr int kKillsAMode = 12;
constexpr int kLongestLifeMs = 60;

std::string Name(int i) {
  return "f" + std::to_string(i) + ".jpg";
}

/// A whole content tells which file it is, and every eighth is large.
std::string Content(int i) {
  return Name(i) + std::string(i % 8 == 0 ? 900'000 : 10, static_cast<char>('0' + i));
}

/// Runs and undoes, round and round, until the process is killed; 1 when a run goes wrong.
int RunForever(const RunOutput& output) {
  const std::unique_ptr<FileSystem> files = MakePosixFileSystem();
  FakeServices fakes;
  const Services services = fakes.With(*files, fakes.clock, fakes.locale);
  RunState state;
  RunReports reports;
  Records records;
  for (int i = 0; i < kFiles; ++i) {
    records.AddRecord("", output.fdSourceFolder, Name(i), FileDate(), 0, "");
    // The first half swaps names in pairs, the second half turns them round.
    const int next = i < kFiles / 2 ? i ^ 1 : i + 1 < kFiles ? i + 1 : kFiles / 2;
    records[records.Count() - 1].newFileName = Name(next);
  }
  while (reports.gFailureReport.empty()) {
    Pass run(records, state, services, records.Count());
    RenameRun(run, output, reports).RunRename();
    Pass undo(records, state, services, records.Count());
    UndoRun(undo, reports).Undo();
  }
  return 1;
}

/// Runs in a process of its own and kills it after `ms`; false when it ended by itself.
bool RunAndKill(const RunOutput& output, std::chrono::milliseconds ms) {
  const pid_t process = ::fork();
  if (process == 0) {
    ::alarm(60);  // should nobody come to kill it
    ::_exit(RunForever(output));
  }
  std::this_thread::sleep_for(ms);
  ::kill(process, SIGKILL);
  int status = 0;
  return process > 0 && ::waitpid(process, &status, 0) == process && WIFSIGNALED(status) &&
         WTERMSIG(status) == SIGKILL;
}

/// How often each content stands in `folder`, but for unfinished copies under their temporary
/// names. `moved`: some file bears another name than at first.
std::map<std::string, int> Count(const TempFolder& folder, bool& moved) {
  std::map<std::string, int> count;
  for (const std::string& name : folder.List()) {
    if (name.starts_with(".qv-") && name.ends_with(".part")) continue;
    const std::string content = folder.Read(name).value_or("unreadable");
    ++count[content];
    moved = moved || !content.starts_with(name);
  }
  return count;
}

}  // namespace

TEST(KilledRun, LeavesEveryFileWhole) {
  std::mt19937 random(std::random_device{}());
  for (const int mode : {kUseSourceFolder, kCopyTo, kMoveTo}) {
    bool at_work = false;
    for (int kill = 0; kill < kKillsAMode; ++kill) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << ", kill " << kill);
      const TempFolder in("/dev/shm"), out(mode == kMoveTo ? "" : "/dev/shm");
      for (int i = 0; i < kFiles; ++i) in.Write(Name(i), Content(i));
      const std::chrono::milliseconds life(random() % kLongestLifeMs);
      ASSERT_TRUE(RunAndKill({mode, out / "", false, in / ""}, life)) << "it ended by itself";
      std::map<std::string, int> stayed = Count(in, at_work), left = Count(out, at_work);
      for (int i = 0; i < kFiles; ++i) {
        const int here = stayed[Content(i)], there = left[Content(i)];
        EXPECT_GE(here + (mode == kMoveTo ? there : 0), 1) << i << " is lost";
        EXPECT_LE(here + there, mode == kUseSourceFolder ? 1 : 2) << i;
      }
      EXPECT_TRUE(stayed.size() == kFiles && left.size() == kFiles) << "some is not whole";
    }
    EXPECT_TRUE(at_work) << "no kill met a run at work";
  }
}
