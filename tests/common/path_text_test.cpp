#include "common/path_text.h"

#include <gtest/gtest.h>

TEST(PathText, EndsOfFolderPathsInBothStyles) {
  using Text = const char*;
  const std::tuple<PathStyle, Text, Text, Text, Text, bool> table[] = {
      {kDrive, "C:\\Photos\\07\\", "C:\\Photos\\07", "C:\\Photos\\07\\", "07", true},
      {kDrive, "C:\\", "C:", "C:\\", "", true},
      {kDrive, "C:", "C:", "C:\\", "", false},
      {kDrive, "\\", "", "\\", "", false},
      {kDrive, "\\\\host\\x", "\\\\host\\x", "\\\\host\\x\\", "x", false},
      {kPosix, "/home/me/", "/home/me", "/home/me/", "me", true},
      {kPosix, "/", "", "/", "", true},
      {kPosix, "C:\\Photos", "C:\\Photos", "C:\\Photos/", "", false}};
  for (const auto& [style, input, without, normal, last, absolute] : table) {
    EXPECT_EQ(mMain::GetPathWithNoSlash(input, style), without);
    EXPECT_EQ(mScanCD::NormalizePath(input, style), normal);
    EXPECT_EQ(mMain::LastFolderName(input, style), last);
    EXPECT_EQ(mMain::IsAbsolutePath(input, style), absolute) << input;
  }
}

TEST(PathText, TakesALoneTildeForTheHomeFolder) {
  const char* const table[][2] = {{"~", "/home/me/"},        {"~/", "/home/me/"},
                                  {"~/a/~", "/home/me/a/~"}, {"~anna/a", "~anna/a"},
                                  {"/~/a", "/~/a"},          {"", ""}};
  for (const auto& [path, whole] : table)
    EXPECT_EQ(mMain::WithHome(path, "/home/me", kPosix), whole);
  EXPECT_EQ(mMain::WithHome("~\\a", "C:\\me", kDrive), "C:\\me\\a");
}

TEST(PathText, SplitsAnExtensionWithItsDot) {
  const char* const table[][2] = {{"a.b.c", ".c"}, {"noext", ""}, {"trail.", "."}, {".a", ".a"}};
  for (const auto& [name, extension] : table) EXPECT_EQ(mCommon::Spliting(name, "."), extension);
}

TEST(PathText, ReplacesTheSourceFolderByTheOutputFolder) {
  using Text = const char*;
  const std::tuple<PathStyle, Text, Text, Text, Text> table[] = {
      {kPosix, "/in/a/", "/in/", "/out/", "/out/a/"},
      {kPosix, "/home/me/dev/", "/dev/", "/out/", "/home/me/dev/"},
      {kPosix, "/home/me/", "/", "/out/", "/out/home/me/"},
      {kPosix, "/in/a/", "", "/out/", "/in/a/"},
      {kPosix, "/IN/a/", "/in/", "/out/", "/IN/a/"},
      {kDrive, "C:\\in\\a\\C:\\in\\", "C:\\in\\", "D:\\", "D:\\a\\D:\\"}};
  for (const auto& [style, path, from, to, result] : table) {
    EXPECT_EQ(mMain::ReplacePathText(path, from, to, style), result);
  }
}
