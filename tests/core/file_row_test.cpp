#include "core/file_row.h"

#include <gtest/gtest.h>

#include "core/records.h"

TEST(FileRow, KeepsTheNameItHadBeforeTheRunThroughAsideAndBack) {
  FileRow row;
  row.sourceFileName = "b";
  EXPECT_EQ(row.Rollback(), "");
  row.KeepRollback();
  row.MoveAside("b_{1}");
  EXPECT_EQ(row.sourceFileName, "b_{1}");
  EXPECT_EQ(row.Rollback(), "b");
  row.KeepRollback();
  EXPECT_EQ(row.Rollback(), "b") << "a kept name is not kept anew";
  row.ShowRollbackName();
  EXPECT_EQ(row.sourceFileName, "b");
  EXPECT_EQ(row.Rollback(), "b");
  row.ClearRollback();
  EXPECT_EQ(row.Rollback(), "");
  EXPECT_EQ(row.sourceFileName, "b");
  EXPECT_LE(sizeof row, 112u) << "a list may hold a million";
}

TEST(FileDate, WritesAllNineteenCharactersOrNone) {
  EXPECT_EQ(FileDate(2024, 3, 9, 7, 5, 2).Text(), "2024.03.09 07:05:02");
  EXPECT_EQ(FileDate().Text(), "");
  EXPECT_LT(FileDate(2024, 3, 9, 7, 5, 2), FileDate(2024, 3, 9, 7, 5, 3));
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
  EXPECT_TRUE(records[0].checked);
  EXPECT_EQ(records.NewPath(records[0]), "");
  records.DeleteAll();
  EXPECT_EQ(records.Count(), 0u);
  EXPECT_EQ(records.FolderCount(), 0u);
}
