#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/records.h"

/// The columns of the list; the number is the index of the row's item.
enum Column : int {
  kColumnPath = 0,
  kColumnSize = 1,
  kColumnType = 2,
  kColumnDate = 3,
  kColumnCheck = 4,
  kColumnSourceName = 5,
  kColumnMark = 6,
  kColumnNewName = 7,
};
inline constexpr int kColumnCount = 8;

/// What the rows are grouped by: the positions in `cmbGroupBy`.
enum class GroupBy : int { kNone = 0, kPath = 1, kType = 2 };

/// The displayed list: the records grouped and sorted, group rows among the file rows. Holds
/// numbers of records only, never copies of rows.
class Grid {
 public:
  explicit Grid(Records& records) : records_(records) {}

  Records& AllRecords() { return records_; }
  const Records& AllRecords() const { return records_; }

  /// Takes effect at the next `Populate`.
  void SetGroupsOrder(GroupBy group_by) { group_by_ = group_by; }
  GroupBy GroupsOrder() const { return group_by_; }

  /// Takes effect at the next `Populate`; a negative column is scan order. The check column and
  /// the mark are not sorted by.
  void SetSortOrder(int column, bool ascending);
  int SortColumn() const { return sort_column_; }
  bool SortAscending() const { return sort_ascending_; }

  /// Makes the rows anew from the records. Groups stand in ascending order of their lower-case
  /// text by code point, equal ones in scan order; the sort is stable and works within groups.
  void Populate();
  /// No rows, whatever the records hold.
  void Clear();

  std::size_t RowCount() const { return rows_.size(); }
  bool IsGroupRow(std::size_t row) const { return rows_[row] < 0; }
  /// The number of the record of a file row.
  std::size_t RecordOf(std::size_t row) const { return static_cast<std::size_t>(rows_[row]); }

  struct Group {
    std::string text;     ///< the whole path or type
    std::size_t row = 0;  ///< of its heading
    std::size_t file_count = 0;
  };
  std::size_t GroupCount() const { return groups_.size(); }
  /// The group of a group row, or of a file row in a grouped list.
  const Group& GroupOf(std::size_t row) const;

 private:
  Records& records_;
  GroupBy group_by_ = GroupBy::kPath;
  int sort_column_ = -1;
  bool sort_ascending_ = true;
  std::vector<std::uint32_t> SortedRecords() const;
  std::uint32_t GroupNumber(std::uint32_t record) const;

  std::vector<std::int32_t> rows_;  ///< a record's number, or -1 less a group's
  std::vector<Group> groups_;
};
