#pragma once

#include <cstddef>
#include <functional>

#include "core/records.h"
#include "core/run_state.h"
#include "filelist/record_list.h"
#include "filelist/tick_totals.h"

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

/// What the rows are grouped by: the positions in `cmbGroupBy`.
enum class GroupBy : int { kNone = 0, kPath = 1, kType = 2 };
/// The column of each; its caption is that of the column.
inline constexpr int kGroupColumns[] = {-1, kColumnPath, kColumnType};

/// The list of files: the records as they are displayed. Grouped by path until told otherwise.
class Grid {
 public:
  /// Both outlive the grid. `state` tells when new names are drafts; without it none are.
  explicit Grid(Records& records, const RunState* state = nullptr);
  Grid(const Grid&) = delete;
  Grid& operator=(const Grid&) = delete;

  Records& AllRecords() { return records_; }
  const Records& AllRecords() const { return records_; }
  RecordList& List() { return list_; }
  const GroupedRows& Rows() const { return list_.Rows(); }

  /// Whoever sets a check box tells them.
  TickTotals& Ticks() { return ticks_; }

  /// Takes effect at the next `Populate`, as does the order.
  void SetGroupsOrder(GroupBy group_by) {
    list_.SetGroupColumn(kGroupColumns[static_cast<int>(group_by)]);
  }
  void SetSortOrder(int column, bool ascending) { list_.SetSortOrder(column, ascending); }
  bool Populate(const std::function<bool()>& go_on = nullptr) { return list_.Populate(go_on); }
  void Clear() { list_.Clear(); }

  std::size_t RowCount() const { return list_.Rows().RowCount(); }
  bool IsGroupRow(std::size_t row) const { return list_.Rows().IsGroupRow(row); }
  /// The number of the record of a file row.
  std::size_t RecordOf(std::size_t row) const { return list_.Rows().RecordOf(row); }

 private:
  Records& records_;
  RecordList list_;
  TickTotals ticks_{records_, list_.Rows()};
};
