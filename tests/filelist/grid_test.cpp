#include "filelist/grid.h"

#include <gtest/gtest.h>

#include "filelist/row_paths.h"
#include "filelist/type_to_find.h"

struct GridTest : testing::Test {
  GridTest() {
    records.AddRecord("b", "/b/", "n2", FileDate(2024, 1, 2, 0, 0, 0), 10, "Text");
    records.AddRecord("b", "/b/", "N1", FileDate(2024, 1, 1, 0, 0, 0), 9, "Image");
    records.AddRecord("A", "/A/", "n3", FileDate(), 100, "text");
    records.AddRecord("b", "/b/", "n1", FileDate(2024, 1, 2, 0, 0, 0), 9, "Text");
    for (std::size_t i = 0; i < records.Count(); ++i) records[i].newFileName = "zyxw"[i];
  }

  /// The rows in words: "[group count] " and source names.
  std::string Shown(const GroupedRows& rows) const {
    std::string shown;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
      shown += rows.IsGroupRow(row) ? "[" + rows.GroupOf(row).text + " " +
                                          std::to_string(rows.GroupOf(row).file_count) + "] "
                                    : records[rows.RecordOf(row)].sourceFileName + " ";
    }
    return shown;
  }

  Records records;
  Grid grid{records};
};

TEST_F(GridTest, GroupsAndSorts) {
  const auto expect = [&](int sort_column, bool ascending, const char* shown) {
    grid.SetSortOrder(sort_column, ascending);
    grid.Populate();
    EXPECT_EQ(Shown(grid.List().Rows()), shown) << sort_column;
  };
  const std::pair<int, const char*> ungrouped[] = {{-1, "n2 N1 n3 n1 "},
                                                   {kColumnCheck, "n2 N1 n3 n1 "},
                                                   {kColumnNewName, "n1 n3 N1 n2 "},
                                                   {kColumnSize, "N1 n1 n2 n3 "},
                                                   {kColumnDate, "n3 N1 n2 n1 "},
                                                   {kColumnPath, "n3 n2 N1 n1 "},
                                                   {kColumnSourceName, "N1 n1 n2 n3 "},
                                                   {kColumnType, "N1 n2 n1 n3 "}};
  grid.SetGroupsOrder(GroupBy::kNone);
  for (const auto& [column, shown] : ungrouped) expect(column, true, shown);
  expect(kColumnSize, false, "n3 n2 N1 n1 ");
  grid.SetGroupsOrder(GroupBy::kPath);
  expect(-1, true, "[/A/ 1] n3 [/b/ 3] n2 N1 n1 ");
  expect(kColumnSize, true, "[/A/ 1] n3 [/b/ 3] N1 n1 n2 ");
  expect(kColumnSourceName, false, "[/A/ 1] n3 [/b/ 3] n2 n1 N1 ");
  grid.SetGroupsOrder(GroupBy::kType);
  expect(-1, true, "[Image 1] N1 [Text 2] n2 n1 [text 1] n3 ");
}

TEST_F(GridTest, KnowsTheGroupOfARowAndShowsNewRecordsOnlyWhenPopulated) {
  grid.Populate();
  const GroupedRows& rows = grid.List().Rows();
  for (std::size_t row = 0; row < 6; ++row) EXPECT_EQ(rows.GroupOf(row).row, row < 2 ? 0u : 2u);
  records.AddRecord("c", "/c/", "n9", FileDate(), 1, "");
  for (const std::size_t count : {6u, 8u}) {
    EXPECT_EQ(grid.RowCount(), count);
    grid.Populate();
  }
}

TEST_F(GridTest, IsFoundInByTheBeginningOfAName) {
  records.AddRecord("b", "/b/", "\u00C9t\u00E9", FileDate(), 1, "");
  grid.Populate();  // 0 "/A/", 1 n3, 2 "/b/", 3 n2, 4 N1, 5 n1, 6 Ete with accents
  TypeToFind find;
  std::int64_t now = 5000;
  const std::tuple<const char*, int, int, int> table[] = {
      // how long after, current, found or -1
      {"n", 2000, -1, 1},     {"1", 1000, 1, 4}, {"N", 1001, 4, 5},    {"n", 10, 5, 1},
      {"\u00E9", 2000, 0, 6}, {"T", 500, 6, 6},  {"/", 2000, 0, -1},   {"n", 900, 0, -1},
      {"n", 2000, 3, 4},      {"2", 10, 4, 3},   {"\xFF", 2000, 3, -1}};
  for (const auto& [typed, after, current, expected] : table) {
    const auto found = find.Type(typed, now += after, grid.List(), current);
    EXPECT_EQ(found ? static_cast<int>(*found) : -1, expected) << typed << now;
  }
}

TEST_F(GridTest, ARowSharesItsTextsAndStandsForItsFileWhereTheLastRunLeftIt) {
  EXPECT_EQ(records[0].folder, records[3].folder);
  EXPECT_EQ(records[0].type, records[3].type);
  EXPECT_EQ(records[2].date.Text(), "");
  FileRow& row = records[0];
  row.newFileName = "new";
  records.SetNewPath(row, "/out/");
  EXPECT_EQ(PathOfRow(records, row), "/b/n2");
  row.RowTag = 1;
  EXPECT_EQ(PathOfRow(records, row), "/out/new");
  records.SetNewPath(row, "");
  EXPECT_EQ(PathOfRow(records, row), "/b/new");
}
