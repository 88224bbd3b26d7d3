#include "rename/folder_path.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

TEST(FolderPath, MakesEachMissingLevel) {
  MemoryFiles files;
  files.folders = {"/out"};
  EXPECT_EQ(CreateFolderPath(files, "/out/2024/Lisbon", kPosix), "");
  EXPECT_EQ(files.folders, (std::set<std::string>{"/out", "/out/2024", "/out/2024/Lisbon"}));
  EXPECT_EQ(CreateFolderPath(files, "", kPosix), "");
  EXPECT_EQ(CreateFolderPath(files, "out/x", kPosix), "The drive is not present.");
  EXPECT_EQ(files.folders.size(), 3u);
}

TEST(FolderPath, KeepsTheRootsSeparatorInDriveStyle) {
  MemoryFiles files;
  files.contents = {{"C:\\", ""}};  // the root that the drive test looks at
  EXPECT_EQ(CreateFolderPath(files, "C:\\a\\b", kDrive), "");
  EXPECT_EQ(files.folders, (std::set<std::string>{"C:\\a", "C:\\a\\b"}));
}
