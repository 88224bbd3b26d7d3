#include "names/name_text.h"

#include <gtest/gtest.h>

TEST(NameText, PartsANameAtItsLastDotAndCleansTheEndOfANewOne) {
  const struct {
    const char *name, *stem, *extension, *cleaned;
  } table[] = {{"a.b.c", "a.b", "c", "a.b.c"},
               {"noext", "noext", "", "noext"},
               {"trail.", "trail", "", "trail"},
               {".hidden", "", "hidden", ".hidden"},
               {"two..dots ", "two.", "dots ", "two..dots"},
               {"name. . ", "name. ", " ", "name"},
               {"  a. .b", "  a. ", "b", "  a. .b"},
               {"\xFF.\t. ", "\xFF.\t", " ", "\xFF.\t"},
               {" ...", " ..", "", ""},
               {"", "", "", ""}};
  for (const auto& row : table) {
    EXPECT_EQ(mMain::GetFileName(row.name), row.stem);
    EXPECT_EQ(mMain::GetFileExt(row.name, "."), row.extension);
    EXPECT_EQ(mMain::NormalizeExt(row.name), row.cleaned);
  }
}
