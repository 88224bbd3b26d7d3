#include "core/file_row.h"

#include <gtest/gtest.h>

#include "core/records.h"

TEST(FileDate, WritesAllNineteenCharactersOrNone) {
  EXPECT_EQ(FileDate(2024, 3, 9, 7, 5, 2).Text(), "2024.03.09 07:05:02");
  EXPECT_EQ(FileDate().Text(), "");
}

TEST(Records, ShareFolderAndTypeTexts) {
  Records records;
  records.AddRecord("Lisbon", "/p/Lisbon/", "a.jpg", FileDate(), 1, "JPEG image");
  records.AddRecord("Alfama", "/p/Lisbon/Alfama/", "b.jpg", FileDate(), 2, "JPEG image");
  records.AddRecord("Lisbon", "/p/Lisbon/", "c.png", FileDate(), 3, "PNG image");
  EXPECT_EQ(records.Path(records[2]), "/p/Lisbon/");
  EXPECT_EQ(records.ParentName(records[1]), "Alfama");
  EXPECT_EQ(records[0].folder, records[2].folder);
  EXPECT_EQ(records[0].type, records[1].type);
  EXPECT_EQ(records.Type(records[2]), "PNG image");
  records.DeleteAll();
  EXPECT_EQ(records.Count(), 0u);
}
