#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "rename/killed_run.h"
#include "support/temp_folder.h"

namespace {

constexpr int kKillsAWork = 12;
constexpr int kLongestLifeMs = 60;

/// The program, started; killed at the end of its life.
class Victim {
 public:
  Victim(KilledWork work, std::string folder, std::string output) {
    int ends[2];
    if (::pipe(ends) != 0) return;
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addclose(&actions, ends[0]);
    std::string program = QUORVANE_RUN_TO_BE_KILLED;
    std::string number = std::to_string(static_cast<int>(work));
    std::array<char*, 5> arguments = {program.data(), number.data(), folder.data(), output.data(),
                                      nullptr};
    if (::posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ)) {
      process_ = -1;
    }
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    char first = 0;
    started_ = ::read(ends[0], &first, 1) == 1;
    ::close(ends[0]);
  }
  Victim(const Victim&) = delete;
  Victim& operator=(const Victim&) = delete;
  ~Victim() { Kill(); }

  /// True when it was running until now.
  bool Kill() {
    if (process_ < 0) return false;
    ::kill(process_, SIGKILL);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return started_ && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

 private:
  pid_t process_ = -1;
  bool started_ = false;
};

class KilledRun : public testing::TestWithParam<KilledWork> {
 protected:
  static void SetUpTestSuite() {
    Contents().clear();
    for (int i = 0; i < kKilledFiles; ++i) Contents().push_back(KilledContent(i));
  }

  /// The whole files.
  static std::vector<std::string>& Contents() {
    static std::vector<std::string> contents;
    return contents;
  }

  /// How often each file stands whole in the folder; whatever else is there is a failure.
  static std::vector<int> Count(const TempFolder& folder) {
    std::vector<int> count(kKilledFiles);
    for (const std::string& name : folder.List()) {
      if (name.starts_with(".qv-") && name.ends_with(".part")) continue;
      EXPECT_TRUE(HasAnExpectedName(name)) << name;
      const std::string content = folder.Read(name).value_or("unreadable");
      const auto found = std::find(Contents().begin(), Contents().end(), content);
      EXPECT_NE(found, Contents().end())
          << name << " holds " << content.size() << " bytes and is not whole";
      if (found != Contents().end()) {
        ++count[static_cast<std::size_t>(found - Contents().begin())];
      }
    }
    return count;
  }

  /// Old and new names are the same ones; a holder moved aside is numbered.
  static bool HasAnExpectedName(const std::string& name) {
    for (int i = 0; i < kKilledFiles; ++i) {
      const std::string stem = "f" + std::to_string(i);
      if (name == stem + ".jpg" || name == stem + "_{1}.jpg") return true;
    }
    return false;
  }

  /// Whether every file stands under its old name, or every one under its new name.
  static bool AtRest(const TempFolder& folder) {
    bool old_names = true, new_names = true;
    for (int i = 0; i < kKilledFiles; ++i) {
      const std::string& content = Contents()[static_cast<std::size_t>(i)];
      old_names = old_names && folder.Read(KilledName(i)) == content;
      new_names = new_names && folder.Read(KilledNewName(i)) == content;
    }
    return old_names || new_names;
  }
};

std::string NameOf(const testing::TestParamInfo<KilledWork>& work) {
  return work.param == KilledWork::kRename ? "Renaming"
         : work.param == KilledWork::kCopy ? "Copying"
                                           : "Moving";
}

}  // namespace

TEST_P(KilledRun, LeavesEveryFileWhole) {
  std::mt19937 random(std::random_device{}());
  int in_the_middle = 0;
  for (int kill = 0; kill < kKillsAWork; ++kill) {
    SCOPED_TRACE(kill);
    TempFolder in("/dev/shm");
    TempFolder out(GetParam() == KilledWork::kMove ? "" : "/dev/shm");
    for (int i = 0; i < kKilledFiles; ++i) {
      in.Write(KilledName(i), Contents()[static_cast<std::size_t>(i)]);
    }
    Victim victim(GetParam(), in / "", out / "");
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % kLongestLifeMs));
    ASSERT_TRUE(victim.Kill()) << "it did not start, or it ended by itself";
    const std::vector<int> stayed = Count(in), left = Count(out);
    for (std::size_t i = 0; i < stayed.size(); ++i) {
      const int most = GetParam() == KilledWork::kRename ? 1 : 2;
      EXPECT_GE(stayed[i] + (GetParam() == KilledWork::kMove ? left[i] : 0), 1) << i << " is lost";
      EXPECT_LE(stayed[i] + left[i], most) << i;
    }
    if (!AtRest(in) || !out.List().empty()) ++in_the_middle;
  }
  EXPECT_GT(in_the_middle, 0) << "no kill met a run at work";
}

INSTANTIATE_TEST_SUITE_P(All, KilledRun,
                         testing::Values(KilledWork::kRename, KilledWork::kCopy, KilledWork::kMove),
                         NameOf);
