#include "common/shell_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_services.h"

TEST(ShellActions, ShowAFileThatIsThereAndTellWhyItCanNotBeShown) {
  MemoryFiles files;
  files.contents = {{"/in/a.txt", ""}};
  FakePrompts prompts;
  FakeShell shell;
  for (const char* name : {"/in/a.txt", "/in/gone.txt"}) {
    mMain::OpenInExplorerList(files, prompts, shell, name);
  }
  EXPECT_THAT(shell.asked, testing::ElementsAre("show /in/a.txt"));
  shell.answer = kShellDenied;
  mMain::ExecuteFile(files, prompts, shell, "/in/a.txt");
  mMain::ExecuteFile(files, prompts, shell, "");
  shell.answer = kShellNoAssociation;
  mFileProperties::ShowFileProperties(prompts, shell, "/in/gone.txt");  // not looked for first
  EXPECT_THAT(prompts.told,
              testing::ElementsAre("The specified file was not found.",
                                   "The operating system denied access to the specified file.",
                                   "The drive is not present.",
                                   testing::StartsWith("There is no application associated")));
}
