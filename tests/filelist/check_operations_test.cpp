#include "filelist/check_operations.h"

#include <gtest/gtest.h>

#include <string>

/// Rows when grouped: 0 "/a/", 1 "a.txt", 2 "b.JPG", 3 "/b/", 4 "c.txt", 5 "README".
const struct {
  RowCommand id;
  std::vector<int> selected;
  const char* mask;
  const char* boxes;  ///< of the four files; before, they are "1010"
  GroupBy group_by = GroupBy::kPath;
} kTable[] = {{kCheckAll, {}, "", "1111"},
              {kUnCheckAll, {}, "", "0000"},
              {kInvertSelection, {}, "", "0101"},
              {kInvertSelection, {}, "", "0101", GroupBy::kNone},
              {kCheckByMask, {0}, "*.jpg", "1110"},
              {kUnCheckByMask, {0}, "*.", "1010"},
              {kUnCheckByMask, {}, "c* \"a.txt\"", "0000"},
              {kCheckAllInGroup, {4}, "", "1011"},
              {kUnCheckAllInGroup, {1, 2, 3}, "", "0000"},
              {kCheckByMaskInGroup, {2, 3}, "*.jpg", "1110"},
              {kUnCheckByMaskInGroup, {0, 5}, "a*", "0010"},
              {kInvertSelectionInGroup, {2}, "", "0110"},
              {kInvertSelectionInGroup, {1, 2}, "", "1010"},
              {kInvertSelectionInGroup, {0, 1, 2}, "", "0110"},
              {kInvertSelectionInGroup, {0, 1, 3, 4, 5}, "", "1001"},
              {kInvertSelectionInGroup, {0, 1}, "", "1010", GroupBy::kNone}};

TEST(CheckOperations, SetTheBoxesThatTheyChoose) {
  for (const auto& row : kTable) {
    SCOPED_TRACE(testing::Message() << row.id << " " << testing::PrintToString(row.selected));
    Records records;
    Grid grid(records);
    for (const char* name : {"a.txt", "b.JPG"}) records.AddRecord("", "/a/", name, {}, 0, "");
    for (const char* name : {"c.txt", "README"}) records.AddRecord("", "/b/", name, {}, 0, "");
    for (std::size_t i = 0; i < 4; ++i) records[i].checked = i % 2 == 0;
    grid.SetGroupsOrder(row.group_by);
    const CheckOperation* operation = FindCheckOperation(row.id);
    ASSERT_NE(operation, nullptr);
    SetCheckBoxes(*operation, grid, {}, row.mask);  // the list is empty yet: nothing
    grid.Populate();
    SetCheckBoxes(*operation, grid, row.selected, row.mask);
    std::string boxes;
    for (std::size_t i = 0; i < 4; ++i) boxes += records[i].checked ? '1' : '0';
    EXPECT_EQ(boxes, row.boxes);
  }
  for (const int id : {0, 100, 103, 104, 106, 116}) EXPECT_EQ(FindCheckOperation(id), nullptr);
}
