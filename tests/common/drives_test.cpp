#include "common/drives.h"

#include <gtest/gtest.h>

#include "support/fake_system.h"
#include "support/fakes.h"
#include "support/memory_files.h"

TEST(Drives, TellWhyAPathCanNotBeReached) {
  MemoryFiles files;
  files.folders = {"/in"};
  files.contents = {{"/in/a.txt", ""}};
  const struct {
    const char* path;
    bool is_file;
    bool check_path;
    const char* refusal;
  } table[] = {
      {"/in/a.txt", true, true, ""},
      {"/in", false, true, ""},
      {"/in/b.txt", true, true, "The specified file was not found."},
      {"/out", false, true, "The specified folder was not found."},
      {"/out", false, false, ""},
      {"relative", true, true, "The drive is not present."},
      {"", true, true, "The drive is not present."},
      {"/", false, true, ""},
  };
  for (const auto& row : table) {
    EXPECT_EQ(mDrive::FileManager3(files, row.path, row.is_file, row.check_path, kPosix),
              row.refusal)
        << row.path;
  }
  EXPECT_EQ(mDrive::FileManager3(files, "c:\\x", true, true, kDrive), "The drive is not present.");

  FakePrompts prompts;
  EXPECT_TRUE(mMain::FileManager(files, prompts, "/in/a.txt", kPosix));
  EXPECT_FALSE(mMain::FileManager(files, prompts, "/in/b.txt", kPosix));
  EXPECT_EQ(prompts.told, std::vector<std::string>{"The specified file was not found."});
}

TEST(Drives, TakeATextOfARootsLengthForAFolder) {
  MemoryFiles files;
  EXPECT_TRUE(mScanCD::FolderExist(files, "Q:\\", kDrive));
  EXPECT_TRUE(mScanCD::FolderExist(files, "abc", kDrive));
  EXPECT_FALSE(mScanCD::FolderExist(files, "abc", kPosix));
}

TEST(Drives, TellFactsOfAVolumeByType) {
  MemoryFiles files;
  FakeSystemFacts facts;
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/", 1, &facts), "00AB-12CD");
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/", 2, &facts), "");
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/", 3, &facts), "ext4");
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/", 4, &facts), std::nullopt);
  EXPECT_EQ(DriveStuff::GetDriveInfo(files, "/gone", 2, &facts), std::nullopt);
}
