#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>

#include "support/temp_folder.h"

namespace {

/// A second process that has the lock, or fails to have it, until it is killed.
class OtherProcess {
 public:
  explicit OtherProcess(const std::string& folder) {
    int ends[2];
    if (::pipe(ends) != 0) return;
    pid_ = ::fork();
    if (pid_ == 0) {
      const SingleInstance instance(folder);
      const char sign = instance.AnotherRuns() ? 'n' : 'y';
      (void)!::write(ends[1], &sign, 1);
      for (;;) ::pause();
    }
    char sign = 0;
    started = pid_ > 0 && ::read(ends[0], &sign, 1) == 1;
    has_lock = sign == 'y';
    ::close(ends[0]);
    ::close(ends[1]);
  }
  ~OtherProcess() { Kill(); }

  void Kill() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }

  bool started = false;
  bool has_lock = false;

 private:
  pid_t pid_ = -1;
};

TEST(SingleInstance, ACrashLeavesNothingThatBlocksTheNextStart) {
  const TempFolder folder;
  OtherProcess first(folder.path());
  ASSERT_TRUE(first.started && first.has_lock);
  EXPECT_TRUE(SingleInstance(folder.path()).AnotherRuns());
  EXPECT_TRUE(SingleInstance(folder.path()).AnotherRuns()) << "a look takes the lock away";
  first.Kill();
  const SingleInstance next(folder.path());
  EXPECT_FALSE(next.AnotherRuns());
  EXPECT_FALSE(OtherProcess(folder.path()).has_lock);
}

TEST(SingleInstance, WhatAProgramStartsDoesNotKeepItsLock) {
  const TempFolder folder;
  pid_t child = 0;
  {
    const SingleInstance instance(folder.path());
    char* const words[] = {const_cast<char*>("sleep"), const_cast<char*>("60"), nullptr};
    ASSERT_EQ(::posix_spawnp(&child, "sleep", nullptr, nullptr, words, environ), 0);
  }
  EXPECT_FALSE(SingleInstance(folder.path()).AnotherRuns());
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

TEST(SingleInstance, StartsWhereNoLockCanBeMade) {
  const TempFolder folder;
  folder.Write("file", "");
  folder.MakeFolder("planted");
  folder.MakeLink("planted/quorvane.lock", folder / "elsewhere");
  for (const std::string& where : {std::string(), folder / "file", folder / "planted"}) {
    EXPECT_FALSE(SingleInstance(where).AnotherRuns()) << where;
  }
  EXPECT_FALSE(folder.Has("elsewhere"));
}

TEST(SingleInstance, WithoutARuntimeFolderTheLockIsInAFolderOfTheUserAlone) {
  const TempFolder folder;
  const std::string own = folder / ("quorvane-" + std::to_string(::geteuid()));
  ::setenv("TMPDIR", folder.path().c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", "relative", 1);
  EXPECT_EQ(InstanceFolder(), own);
  EXPECT_EQ(InstanceFolder(), own);
  ::chmod(own.c_str(), 0770);
  EXPECT_EQ(InstanceFolder(), "");
  ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
  EXPECT_EQ(InstanceFolder(), folder.path());
  ::unsetenv("XDG_RUNTIME_DIR");
  ::unsetenv("TMPDIR");
}

}  // namespace
