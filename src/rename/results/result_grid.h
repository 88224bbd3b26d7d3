#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "rename/results/result_kinds.h"

/// The displayed rows of a result window: its records grouped by folder and sorted, group rows
/// among them. Holds numbers of records only, so it has to be cleared before they go.
class ResultGrid {
 public:
  /// `reports` outlive the grid.
  ResultGrid(const ResultKind& kind, const RunReports& reports) : kind_(kind), reports_(reports) {}

  const ResultKind& Kind() const { return kind_; }

  /// Takes effect at the next `Populate`; a column that isn't one of names gives the order of the
  /// run.
  void SetSortOrder(int column, bool ascending);
  int SortColumn() const { return sort_column_; }
  bool SortAscending() const { return sort_ascending_; }

  /// Makes the rows anew from the records. Groups stand in ascending order of their lower-case
  /// path, equal ones in the order of the run; the sort is stable and works within groups.
  void Populate();
  /// No rows, whatever the records hold.
  void Clear();

  std::size_t RowCount() const { return rows_.size(); }
  bool IsGroupRow(std::size_t row) const { return rows_[row] < 0; }
  /// The number of the record of a file row.
  std::size_t RecordOf(std::size_t row) const { return static_cast<std::size_t>(rows_[row]); }
  /// An item of a file row.
  std::string_view Item(std::size_t row, int item) const {
    return kind_.item(reports_, RecordOf(row), item);
  }
  /// Why the file of a file row failed.
  std::string Reason(std::size_t row) const { return kind_.reason(reports_, RecordOf(row)); }
  /// The path of the file of a file row.
  std::string File(std::size_t row) const { return kind_.file(reports_, RecordOf(row)); }

  struct Group {
    std::string path;
    std::size_t file_count = 0;
  };
  /// The group of a group row.
  const Group& GroupOf(std::size_t row) const {
    return groups_[static_cast<std::size_t>(-1 - rows_[row])];
  }

 private:
  std::vector<std::uint32_t> SortedRecords() const;
  std::vector<std::uint32_t> CollectGroups();

  const ResultKind& kind_;
  const RunReports& reports_;
  int sort_column_ = -1;
  bool sort_ascending_ = true;
  std::vector<std::int32_t> rows_;  ///< a record's number, or -1 less a group's
  std::vector<Group> groups_;       ///< in the order of the run
};
