#include "names/name_text.h"

#include <gtest/gtest.h>

TEST(NameText, PartsANameAtItsLastPointAndJoinsByADot) {
  const struct {
    const char *name, *point, *extension, *stem;
  } table[] = {{"report.txt", ".", "txt", "report"},
               {"a.b.c", ".", "c", "a.b"},
               {"noext", ".", "", "noext"},
               {"trail.", ".", "", "trail"},
               {".hidden", ".", "hidden", ""},
               {"two..dots", ".", "dots", "two."},
               {"", ".", "", ""},
               {"\xFF.\xFE", ".", "\xFE", "\xFF"},
               {"a--b---c", "--", "-c", "a.b"},
               {"aXbxc", "x", "c", "aXb"},
               {"a--b", "--", "b", "a"}};
  for (const auto& row : table) {
    EXPECT_EQ(mMain::GetFileExt(row.name, row.point), row.extension) << row.name;
    EXPECT_EQ(mMain::GetFileName(row.name, row.point), row.stem) << row.name;
    if (row.point[0] == '.') {
      EXPECT_EQ(mMain::GetFileName(row.name), row.stem) << row.name;
    }
  }
}

TEST(NameText, CleansTheEndOfANewName) {
  const char* const table[][2] = {{"name.txt", "name.txt"},
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
                                  {".a", ".a"}};
  for (const auto& [name, cleaned] : table) EXPECT_EQ(mMain::NormalizeExt(name), cleaned) << name;
}
