#include "filelist/system_folder.h"

#include <gtest/gtest.h>

TEST(SystemFolder, TellsWhichFoldersOfTheSystemAListTouches) {
  const std::vector<std::string> posix = {"/usr", "/dev", "/lib", "/lib64"};
  const std::vector<std::string> drive = {"C:\\Programs", "C:\\Windows"};
  const std::tuple<PathStyle, const char*, const char*> table[] = {
      {kPosix, "/usr/", "/usr"},
      {kPosix, "/USR/", "/usr"},
      {kPosix, "/usr/share/", "/usr\n"},
      {kPosix, "/usr", "/usr\n"},
      {kPosix, "/lib", "/lib\n/lib64\n"},
      {kPosix, "/", "/usr\n/dev\n/lib\n/lib64\n"},
      {kPosix, "/home/me/dev/", ""},
      {kPosix, "/users/", ""},
      {kPosix, "sr/", "/usr\n"},
      {kDrive, "c:\\WINDOWS\\", "C:\\Windows"},
      {kDrive, "C:\\Windows\\System32\\", "C:\\Windows\n"},
      {kDrive, "C:\\", "C:\\Programs\nC:\\Windows\n"},
      {kDrive, "D:\\C:\\Windows\\", "C:\\Windows\n"},
      {kDrive, "D:\\", ""}};
  for (const auto& [style, source, touched] : table) {
    EXPECT_EQ(SystemFolder(source, style == kPosix ? posix : drive, style), touched) << source;
  }
}
