#include "rename/folder_path.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

namespace {

std::string_view Create(MemoryFiles& files, std::string_view path, PathStyle style) {
  return CreateFolderPath(
      files, path, [&](const std::string& level) { return files.CreateDirectory(level); }, style);
}

}  // namespace

TEST(FolderPath, MakesEachMissingLevel) {
  MemoryFiles files;
  files.folders = {"/out"};
  EXPECT_EQ(Create(files, "/out/2024/Lisbon", kPosix), "");
  EXPECT_EQ(files.folders, (std::set<std::string>{"/out", "/out/2024", "/out/2024/Lisbon"}));
  EXPECT_EQ(Create(files, "", kPosix), "");
  EXPECT_EQ(Create(files, "out/x", kPosix), "The drive is not present.");
  EXPECT_EQ(files.folders.size(), 3u);
}

TEST(FolderPath, KeepsTheRootsSeparatorInDriveStyle) {
  MemoryFiles files;
  files.contents = {{"C:\\", ""}};  // the root that the drive test looks at
  EXPECT_EQ(Create(files, "C:\\a\\b", kDrive), "");
  EXPECT_EQ(files.folders, (std::set<std::string>{"C:\\a", "C:\\a\\b"}));
}
