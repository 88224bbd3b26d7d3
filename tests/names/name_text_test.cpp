#include "names/name_text.h"

#include <gtest/gtest.h>

TEST(NameText, PartsANameAtItsLastDot) {
  const char* const table[][3] = {{"report.txt", "report", "txt"},
                                  {"a.b.c", "a.b", "c"},
                                  {"noext", "noext", ""},
                                  {"trail.", "trail", ""},
                                  {".hidden", "", "hidden"},
                                  {"two..dots", "two.", "dots"},
                                  {"", "", ""},
                                  {"\xFF.\xFE", "\xFF", "\xFE"}};
  for (const auto& [name, stem, extension] : table) {
    EXPECT_EQ(mMain::GetFileName(name), stem);
    EXPECT_EQ(mMain::GetFileExt(name, "."), extension);
  }
}

TEST(NameText, CleansTheEndOfANewName) {
  const char* const table[][2] = {{"name.txt", "name.txt"},
                                  {"name.", "name"},
                                  {"name. . ", "name"},
                                  {"name .", "name"},
                                  {"name.txt  ", "name.txt"},
                                  {"a. .b", "a. .b"},
                                  {"  a.", "  a"},
                                  {"...", ""},
                                  {"   ", ""},
                                  {"", ""},
                                  {"a.\t. ", "a.\t"}};
  for (const auto& [name, cleaned] : table) EXPECT_EQ(mMain::NormalizeExt(name), cleaned) << name;
}
