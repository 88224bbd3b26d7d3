#include "names/name_text.h"

#include <gtest/gtest.h>

TEST(NameText, PartsANameAtItsLastDot) {
  struct Row {
    const char* name;
    const char* extension;
    const char* stem;
  };
  const Row table[] = {
      {"report.txt", "txt", "report"},
      {"a.b.c", "c", "a.b"},
      {"noext", "", "noext"},
      {"trail.", "", "trail"},
      {".hidden", "hidden", ""},
      {"two..dots", "dots", "two."},
      {"", "", ""},
      {"\xFF.\xFE", "\xFE", "\xFF"},
  };
  for (const Row& row : table) {
    EXPECT_EQ(mMain::GetFileExt(row.name, "."), row.extension) << row.name;
    EXPECT_EQ(mMain::GetFileName(row.name, "."), row.stem) << row.name;
    EXPECT_EQ(mMain::GetFileName(row.name), row.stem) << row.name;
  }
}

TEST(NameText, JoinsByADotWhateverThePointWas) {
  EXPECT_EQ(mMain::GetFileName("a--b---c", "--"), "a.b");
  EXPECT_EQ(mMain::GetFileExt("a--b---c", "--"), "-c");
  EXPECT_EQ(mMain::GetFileName("aXbxc", "x"), "aXb");
}

TEST(NameText, CleansTheEndOfANewName) {
  const char* const table[][2] = {
      {"name.txt", "name.txt"},
      {"name.", "name"},
      {"name...", "name"},
      {"name. . ", "name"},
      {"name .", "name"},
      {"name.txt  ", "name.txt"},
      {"a. .b", "a. .b"},
      {"  a.", "  a"},
      {"...", ""},
      {"   ", ""},
      {"", ""},
      {"a.\t. ", "a.\t"},
      {".a", ".a"},
  };
  for (const auto& [name, cleaned] : table) EXPECT_EQ(mMain::NormalizeExt(name), cleaned) << name;
}
