#include "common/shell_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_services.h"
#include "support/memory_files.h"

using testing::ElementsAre;

TEST(ShellActions, ShowAFileThatIsThere) {
  MemoryFiles files;
  files.contents = {{"/in/a.txt", ""}};
  FakePrompts prompts;
  FakeShell shell;
  mMain::OpenInExplorerList(files, prompts, shell, "/in/a.txt");
  EXPECT_THAT(shell.asked, ElementsAre("show /in/a.txt"));

  mMain::OpenInExplorerList(files, prompts, shell, "/in/gone.txt");
  EXPECT_EQ(shell.asked.size(), 1u);
  EXPECT_THAT(prompts.told, ElementsAre("The specified file was not found."));

  shell.answer = kShellDenied;
  mMain::OpenInExplorerList(files, prompts, shell, "/in/a.txt");
  EXPECT_EQ(prompts.told.back(), "The operating system denied access to the specified file.");

  for (const ShellResult wordless : {static_cast<ShellResult>(32), kShellDone}) {
    mMain::ShellErrorMessage(prompts, wordless);
    EXPECT_EQ(prompts.told.size(), 2u);
  }
}
