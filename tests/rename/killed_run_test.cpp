#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <thread>
#include <vector>

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

/// The first half swaps names in pairs, the second half turns them round.
std::string NewName(int i) {
  constexpr int kHalf = kFiles / 2;
  return Name(i < kHalf ? i ^ 1 : i + 1 < kFiles ? i + 1 : kHalf);
}

/// A whole content tells which file it is, and every eighth is large.
std::vector<std::string> Contents() {
  std::vector<std::string> contents(kFiles);
  for (int i = 0; i < kFiles; ++i) {
    std::string& content = contents[static_cast<std::size_t>(i)];
    for (int line = i % 8 == 0 ? 100'000 : 1 + i; line > 0; --line) {
      content += "file " + std::to_string(i) + "\n";
    }
  }
  return contents;
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
    records[records.Count() - 1].newFileName = NewName(i);
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

/// How often each file stands whole in `folder`; whatever else is there is a failure, but for an
/// unfinished copy under its temporary name. `moved`: some bears another name than at first.
std::vector<int> Count(const TempFolder& folder, const std::vector<std::string>& contents,
                       bool& moved) {
  std::vector<int> count(kFiles);
  for (const std::string& name : folder.List()) {
    if (name.starts_with(".qv-") && name.ends_with(".part")) continue;
    const std::string content = folder.Read(name).value_or("unreadable");
    const auto found = std::find(contents.begin(), contents.end(), content);
    EXPECT_NE(found, contents.end()) << name << " is not whole, " << content.size() << " bytes";
    if (found == contents.end()) continue;
    const auto i = found - contents.begin();
    ++count[static_cast<std::size_t>(i)];
    moved = moved || name != Name(static_cast<int>(i));
  }
  return count;
}

}  // namespace

TEST(KilledRun, LeavesEveryFileWhole) {
  std::mt19937 random(std::random_device{}());
  const std::vector<std::string> contents = Contents();
  for (const int mode : {kUseSourceFolder, kCopyTo, kMoveTo}) {
    bool at_work = false;
    for (int kill = 0; kill < kKillsAMode; ++kill) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << ", kill " << kill);
      const TempFolder in("/dev/shm"), out(mode == kMoveTo ? "" : "/dev/shm");
      for (int i = 0; i < kFiles; ++i) in.Write(Name(i), contents[static_cast<std::size_t>(i)]);
      const std::chrono::milliseconds life(random() % kLongestLifeMs);
      ASSERT_TRUE(RunAndKill({mode, out / "", false, in / ""}, life)) << "it ended by itself";
      const std::vector<int> stayed = Count(in, contents, at_work);
      const std::vector<int> left = Count(out, contents, at_work);
      for (std::size_t i = 0; i < contents.size(); ++i) {
        EXPECT_GE(stayed[i] + (mode == kMoveTo ? left[i] : 0), 1) << i << " is lost";
        EXPECT_LE(stayed[i] + left[i], mode == kUseSourceFolder ? 1 : 2) << i;
      }
    }
    EXPECT_TRUE(at_work) << "no kill met a run at work";
  }
}
