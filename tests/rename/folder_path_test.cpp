#include "rename/folder_path.h"

#include <gtest/gtest.h>

#include "support/memory_files.h"

TEST(FolderPath, MakesEachMissingLevelOnADriveThatIsThere) {
  MemoryFiles files;
  files.contents = {{"C:\\", ""}};  // the root that the drive test looks at
  const auto make = [&](const std::string& level) { return files.CreateDirectory(level); };
  EXPECT_EQ(CreateFolderPath(files, "C:\\a\\b", make, kDrive), "");
  EXPECT_EQ(CreateFolderPath(files, "", make, kPosix), "");
  EXPECT_EQ(CreateFolderPath(files, "out/x", make, kPosix), "The drive is not present.");
  EXPECT_EQ(files.folders, (std::set<std::string>{"C:\\a", "C:\\a\\b"}));
}
