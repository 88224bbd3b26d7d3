#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include <utility>

#include "commands/commands_fixture.h"
#include "support/temp_folder.h"

TEST_F(CommandsTest, KeepAJournalAsLongAsTheirRowsCanBeUndone) {
  const TempFolder folder;
  session.journal.KeepIn(folder.path());
  clock.step_ms = 50;
  const std::pair<const char*, std::size_t> table[] = {
      {"l p", 0},     {"l p r", 1},    {"l p r p", 1},    {"l p r2", 1},   {"l p r l", 0},
      {"l p r u", 0}, {"l p r u2", 1}, {"l p r u2 u", 0}, {"l p r u r", 1}};
  for (const auto& [road, journals] : table) {
    files.contents = {{"/in/a.txt", "a"}, {"/in/b.txt", "b"}};
    commands.EnableDisable(ModeFolderChosen);
    Walk(road);
    EXPECT_EQ(folder.List().size(), journals) << road;
  }
  files.contents["/in/a.txt"] = "a stranger";
  Walk("u");
  EXPECT_EQ(folder.List().size(), 1u) << "one file isn't home";
  commands.ForgetRuns();
  EXPECT_TRUE(folder.List().empty()) << "as when another folder is chosen";
}

TEST_F(CommandsTest, RunWithoutAJournalAndTellItOnce) {
  const TempFolder folder;
  const rlimit no_limit{RLIM_INFINITY, RLIM_INFINITY};
  const auto run = [&](const std::string& kept_in, const rlimit& limit) {
    session.journal.KeepIn(kept_in);
    files.contents = {{"/in/a.txt", "a"}, {"/in/b.txt", "b"}};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const std::string modes = Walk("l p r");
    ::setrlimit(RLIMIT_FSIZE, &no_limit);
    EXPECT_TRUE(modes == "3 5 8" && files.contents.contains("/in/x b.txt"));
    return state.panes.paneResult;
  };
  const auto before = ::signal(SIGXFSZ, SIG_IGN);
  const auto told = testing::HasSubstr("2 renamed. Undo after a crash isn't");
  for (const rlim_t room : {0, 100, 190}) {
    EXPECT_THAT(run("/dev/null/none", no_limit), told);
    EXPECT_EQ(run("/dev/null/none", no_limit), "2 renamed");
    EXPECT_THAT(run(folder.path(), {room, RLIM_INFINITY}), told) << "no more than that fits";
    EXPECT_EQ(run(folder.path(), {room, RLIM_INFINITY}), "2 renamed");
  }
  ::signal(SIGXFSZ, before);
}
