#include "rename/results/result_grid.h"

#include <gtest/gtest.h>

namespace {

/// The rows from the top: group rows in brackets with their count, file rows by an item.
std::string Rows(const ResultGrid& grid, int item) {
  std::string rows;
  for (std::size_t row = 0; row < grid.RowCount(); ++row) {
    if (grid.IsGroupRow(row)) {
      const ResultGrid::Group& group = grid.GroupOf(row);
      rows += "[" + group.path + " " + std::to_string(group.file_count) + "]";
    } else {
      rows += std::string(grid.Item(row, item)) + " ";
    }
  }
  return rows;
}

}  // namespace

TEST(ResultGrid, GroupsByFolderAndSortsWithinGroups) {
  RunReports reports;
  reports.gFailureReport = {
      {"/b/", "one", "X"},  {"/A/", "Two", "y"},  {"/b/", "Eins", "z"},
      {"/B/", "drei", "x"}, {"/b/", "zwei", "x"},
  };
  ResultGrid grid(kRenamingFailure, reports);
  EXPECT_EQ(grid.RowCount(), 0u) << "shown when it is asked for";
  const struct {
    int column;
    bool ascending;
    const char* rows;
  } table[] = {
      {-1, true, "[/A/ 1]Two [/b/ 3]one Eins zwei [/B/ 1]drei "},
      {1, true, "[/A/ 1]Two [/b/ 3]Eins one zwei [/B/ 1]drei "},
      {1, false, "[/A/ 1]Two [/b/ 3]zwei one Eins [/B/ 1]drei "},
      {4, true, "[/A/ 1]Two [/b/ 3]one zwei Eins [/B/ 1]drei "},
      {4, false, "[/A/ 1]Two [/b/ 3]Eins one zwei [/B/ 1]drei "},
      {3, false, "[/A/ 1]Two [/b/ 3]one Eins zwei [/B/ 1]drei "},
      {0, false, "[/A/ 1]Two [/b/ 3]one Eins zwei [/B/ 1]drei "},
  };
  for (const auto& row : table) {
    grid.SetSortOrder(row.column, row.ascending);
    grid.Populate();
    EXPECT_EQ(Rows(grid, 1), row.rows) << row.column << row.ascending;
  }
}

TEST(ResultGrid, LeadsToTheFileAsTheRunLeftIt) {
  RunReports reports;
  reports.gFailureReport = {{"/in/", "a", "b"}};
  reports.gConflictReport = {{"/in/", "", "a", "b_{1}", "b"}, {"/in/", "/out/", "c", "d_{1}", "d"}};
  ResultGrid failures(kRenamingFailure, reports);
  failures.Populate();
  EXPECT_EQ(failures.File(1), "/in/a");
  ResultGrid conflicts(kResolvedConflicts, reports);
  conflicts.Populate();
  EXPECT_EQ(conflicts.File(1), "/in/b_{1}");
  EXPECT_EQ(conflicts.File(2), "/out/d_{1}") << "the copy, not its source";
}
