#include "filelist/grid.h"

#include <gtest/gtest.h>

namespace {

/// The rows in words: "[group count]" and source names.
std::string Shown(Grid& grid) {
  std::string shown;
  for (std::size_t row = 0; row < grid.RowCount(); ++row) {
    if (grid.IsGroupRow(row)) {
      const GroupedRows::Group& group = grid.List().Rows().GroupOf(row);
      shown += "[" + group.text + " " + std::to_string(group.file_count) + "] ";
    } else {
      shown += grid.AllRecords()[grid.RecordOf(row)].sourceFileName + " ";
    }
  }
  return shown;
}

class GridTest : public testing::Test {
 protected:
  void SetUp() override {
    records.AddRecord("b", "/b/", "n2", FileDate(2024, 1, 2, 0, 0, 0), 10, "Text");
    records.AddRecord("b", "/b/", "N1", FileDate(2024, 1, 1, 0, 0, 0), 9, "Image");
    records.AddRecord("A", "/A/", "n3", FileDate(), 100, "text");
    records.AddRecord("b", "/b/", "n1", FileDate(2024, 1, 2, 0, 0, 0), 9, "Text");
  }
  Records records;
  Grid grid{records};
};

}  // namespace

TEST_F(GridTest, GroupsAndSorts) {
  const struct {
    GroupBy group_by;
    int sort_column;
    bool ascending;
    const char* shown;
  } table[] = {{GroupBy::kNone, -1, true, "n2 N1 n3 n1 "},
               {GroupBy::kPath, -1, true, "[/A/ 1] n3 [/b/ 3] n2 N1 n1 "},
               {GroupBy::kType, -1, true, "[Image 1] N1 [Text 2] n2 n1 [text 1] n3 "},
               {GroupBy::kNone, kColumnSourceName, true, "N1 n1 n2 n3 "},
               {GroupBy::kNone, kColumnSourceName, false, "n3 n2 N1 n1 "},
               {GroupBy::kNone, kColumnSize, true, "N1 n1 n2 n3 "},
               {GroupBy::kNone, kColumnSize, false, "n3 n2 N1 n1 "},
               {GroupBy::kNone, kColumnDate, true, "n3 N1 n2 n1 "},
               {GroupBy::kNone, kColumnPath, true, "n3 n2 N1 n1 "},
               {GroupBy::kNone, kColumnType, true, "N1 n2 n3 n1 "},
               {GroupBy::kPath, kColumnSize, true, "[/A/ 1] n3 [/b/ 3] N1 n1 n2 "},
               {GroupBy::kPath, kColumnSourceName, false, "[/A/ 1] n3 [/b/ 3] n2 N1 n1 "},
               {GroupBy::kNone, kColumnCheck, true, "n2 N1 n3 n1 "}};
  for (const auto& row : table) {
    grid.SetGroupsOrder(row.group_by);
    grid.SetSortOrder(row.sort_column, row.ascending);
    grid.Populate();
    EXPECT_EQ(Shown(grid), row.shown) << static_cast<int>(row.group_by) << row.sort_column;
  }
}

TEST_F(GridTest, KnowsTheGroupOfEveryRowAndShowsNewRecordsOnlyWhenPopulated) {
  grid.Populate();
  EXPECT_EQ(grid.List().Rows().GroupOf(1).text, "/A/");
  EXPECT_EQ(grid.List().Rows().GroupOf(2).text, "/b/");
  EXPECT_EQ(grid.List().Rows().GroupOf(5).text, "/b/");
  records.AddRecord("c", "/c/", "n9", FileDate(), 1, "");
  EXPECT_EQ(grid.RowCount(), 6u);
  grid.Populate();
  EXPECT_EQ(grid.RowCount(), 8u);
  records.DeleteAll();
  grid.Populate();
  EXPECT_EQ(grid.RowCount(), 0u);
}
