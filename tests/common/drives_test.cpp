#include "common/drives.h"

#include <gmock/gmock.h>

#include "common/shell_actions.h"
#include "support/fake_services.h"

TEST(Drives, TellWhyAPathCanNotBeReached) {
  MemoryFiles files;
  files.folders = {"/in"};
  files.contents = {{"/in/a.txt", ""}};
  const std::tuple<const char*, bool, bool, PathStyle, const char*> table[] = {
      {"/in/a.txt", true, true, kPosix, ""},
      {"/in", false, true, kPosix, ""},
      {"/in/b.txt", true, true, kPosix, "The specified file was not found."},
      {"/out", false, true, kPosix, "The specified folder was not found."},
      {"/out", false, false, kPosix, ""},
      {"", true, true, kPosix, "The drive is not present."},
      {"/", false, true, kPosix, ""},
      {"c:\\x", true, true, kDrive, "The drive is not present."}};
  for (const auto& [path, is_file, check_path, style, refusal] : table) {
    EXPECT_EQ(mDrive::FileManager3(files, path, is_file, check_path, style), refusal) << path;
  }
  EXPECT_TRUE(mScanCD::FolderExist(files, "abc", kDrive)) << "of a root's length";
  EXPECT_FALSE(mScanCD::FolderExist(files, "abc", kPosix));
}

TEST(Drives, MakeTheFolderToListWholeInEitherStyle) {
  struct : MemoryFiles {
    std::string ResolveFolder(std::string_view path) override { return "R:" + std::string(path); }
  } files;
  files.folders = {"/in", "/R:./in", "/C:\\in", "/R:.\\in", "/C:\\in\\..\\in"};
  const std::tuple<const char*, PathStyle, const char*> table[] = {
      {"/in", kPosix, "/in/"},        {"/in/./", kPosix, "R:/in/./"},
      {"in", kPosix, "R:./in/"},      {"in", kDrive, "R:.\\in\\"},
      {"C:\\in", kDrive, "C:\\in\\"}, {"C:\\in\\..\\in", kDrive, "R:C:\\in\\..\\in\\"}};
  for (const auto& [path, style, whole] : table) {
    EXPECT_EQ(mMain::FolderOf(files, path, style), whole) << path;
  }
}

TEST(Drives, TellFactsOfAVolumeByType) {
  MemoryFiles files;
  FakeSystemFacts facts;
  const std::optional<std::string> table[] = {"00AB-12CD", "", "ext4", std::nullopt};
  for (int type = 1; type <= 4; ++type) {
    EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/", type, &facts), table[type - 1]) << type;
  }
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/gone", 2, &facts), std::nullopt);
}

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
  using mFileProperties::ShowFileProperties;  // which doesn't look for the file first
  for (const char* name : {"", "/in/gone.txt"}) ShowFileProperties(prompts, shell, name);
  EXPECT_THAT(prompts.told,
              testing::ElementsAre("The specified file was not found.",
                                   "The operating system denied access to the specified file.",
                                   "The drive is not present.",
                                   testing::StartsWith("There is no application associated")));
}
