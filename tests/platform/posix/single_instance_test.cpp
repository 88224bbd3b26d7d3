#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>

#include "support/temp_folder.h"

TEST(SingleInstance, NeitherACrashNorAStartedProgramKeepsItsLock) {
  const TempFolder folder;
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t other = ::fork();
  if (other == 0) {
    const SingleInstance instance(folder.path());
    (void)!::write(ends[1], instance.AnotherRuns() ? "n" : "y", 1);
    for (;;) ::pause();
  }
  char has_lock = 0;
  ASSERT_EQ(::read(ends[0], &has_lock, 1), 1);
  EXPECT_EQ(has_lock, 'y');
  for (int look = 0; look < 2; ++look) EXPECT_TRUE(SingleInstance(folder.path()).AnotherRuns());
  ::kill(other, SIGKILL);
  ::waitpid(other, nullptr, 0);
  pid_t child = 0;
  {
    const SingleInstance next(folder.path());
    EXPECT_FALSE(next.AnotherRuns());
    char* const words[] = {const_cast<char*>("sleep"), const_cast<char*>("60"), nullptr};
    ASSERT_EQ(::posix_spawnp(&child, "sleep", nullptr, nullptr, words, environ), 0);
  }
  EXPECT_FALSE(SingleInstance(folder.path()).AnotherRuns());
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  for (const int end : ends) ::close(end);
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
