#include "names/name_text.h"

#include <gtest/gtest.h>

TEST(NameText, PartsANameAtItsLastDotAndCleansTheEndOfANewOne) {
  const char* const table[][4] = {{"a.b.c", "a.b", "c", "a.b.c"},
                                  {"noext", "noext", "", "noext"},
                                  {"trail.", "trail", "", "trail"},
                                  {".hidden", "", "hidden", ".hidden"},
                                  {"two..dots ", "two.", "dots ", "two..dots"},
                                  {"name. . ", "name. ", " ", "name"},
                                  {"  a. .b", "  a. ", "b", "  a. .b"},
                                  {"\xFF.\t. ", "\xFF.\t", " ", "\xFF.\t"},
                                  {" ...", " ..", "", ""},
                                  {"", "", "", ""}};
  for (const auto& [name, stem, extension, cleaned] : table) {
    EXPECT_EQ(mMain::GetFileName(name), stem);
    EXPECT_EQ(mMain::GetFileExt(name, "."), extension);
    EXPECT_EQ(mMain::NormalizeExt(name), cleaned);
  }
}
