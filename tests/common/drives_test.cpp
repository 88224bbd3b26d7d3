#include "common/drives.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"
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
    PathStyle style = kPosix;
  } table[] = {{"/in/a.txt", true, true, ""},
               {"/in", false, true, ""},
               {"/in/b.txt", true, true, "The specified file was not found."},
               {"/out", false, true, "The specified folder was not found."},
               {"/out", false, false, ""},
               {"", true, true, "The drive is not present."},
               {"/", false, true, ""},
               {"c:\\x", true, true, "The drive is not present.", kDrive}};
  for (const auto& row : table) {
    EXPECT_EQ(mDrive::FileManager3(files, row.path, row.is_file, row.check_path, row.style),
              row.refusal)
        << row.path;
  }
  EXPECT_TRUE(mScanCD::FolderExist(files, "abc", kDrive)) << "of a root's length";
  EXPECT_FALSE(mScanCD::FolderExist(files, "abc", kPosix));
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
