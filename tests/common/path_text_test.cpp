#include "common/path_text.h"

#include <gtest/gtest.h>

TEST(PathText, EndsOfFolderPathsInBothStyles) {
  const struct {
    PathStyle style;
    const char* input;
    const char* without;
    const char* normal;
    const char* last;
  } table[] = {
      {kDrive, "C:\\Photos\\2007\\", "C:\\Photos\\2007", "C:\\Photos\\2007\\", "2007"},
      {kDrive, "C:\\Photos\\2007", "C:\\Photos\\2007", "C:\\Photos\\2007\\", "2007"},
      {kDrive, "C:\\", "C:", "C:\\", ""},
      {kDrive, "C:", "C:", "C:\\", ""},
      {kDrive, "\\", "", "\\", ""},
      {kDrive, "", "", "", ""},
      {kPosix, "/home/me/", "/home/me", "/home/me/", "me"},
      {kPosix, "/home/me", "/home/me", "/home/me/", "me"},
      {kPosix, "/", "", "/", ""},
      {kPosix, "C:\\Photos", "C:\\Photos", "C:\\Photos/", ""},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.input);
    EXPECT_EQ(mMain::GetPathWithNoSlash(row.input, row.style), row.without);
    EXPECT_EQ(mScanCD::NormalizePath(row.input, row.style), row.normal);
    EXPECT_EQ(mMain::LastFolderName(row.input, row.style), row.last);
  }
}

TEST(PathText, SplitsAnExtensionWithItsDot) {
  const struct {
    const char* name;
    const char* extension;
  } table[] = {{"report.txt", ".txt"}, {"a.b.c", ".c"},        {"noext", ""},
               {"trail.", "."},        {".hidden", ".hidden"}, {"", ""}};
  for (const auto& row : table) EXPECT_EQ(mCommon::Spliting(row.name, "."), row.extension);
}

TEST(PathText, ReplacesTheSourceFolderByTheOutputFolder) {
  const struct {
    PathStyle style;
    const char* path;
    const char* from;
    const char* to;
    const char* result;
  } table[] = {
      {kPosix, "/in/a/", "/in/", "/out/", "/out/a/"},
      {kPosix, "/in/a/in/b/", "/in/", "/out/", "/out/a/in/b/"},
      {kPosix, "/home/me/dev/", "/dev/", "/out/", "/home/me/dev/"},
      {kPosix, "/home/me/", "/", "/out/", "/out/home/me/"},
      {kPosix, "/in/a/", "", "/out/", "/in/a/"},
      {kPosix, "/IN/a/", "/in/", "/out/", "/IN/a/"},
      {kDrive, "C:\\in\\a\\C:\\in\\", "C:\\in\\", "D:\\", "D:\\a\\D:\\"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(mMain::ReplacePathText(row.path, row.from, row.to, row.style), row.result);
  }
}

TEST(PathText, KnowsAbsolutePaths) {
  EXPECT_TRUE(mMain::IsAbsolutePath("/", kPosix));
  EXPECT_TRUE(mMain::IsAbsolutePath("C:\\x", kDrive));
  for (const char* relative : {"", "x/y", "./"}) {
    EXPECT_FALSE(mMain::IsAbsolutePath(relative, kPosix)) << relative;
  }
  EXPECT_FALSE(mMain::IsAbsolutePath("\\\\host\\share", kDrive));
}
