#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include "core/grouped_rows.h"

class QAbstractItemModel;
class QItemSelection;
class QItemSelectionModel;

/// Which files and groups of a list are selected and current, to be found again when its rows were
/// made anew: files by their records, groups by their texts.
class KeptRows {
 public:
  /// Keeps what `selection` has; `selected` are its rows from the top.
  KeptRows(const GroupedRows& rows, const QItemSelectionModel& selection,
           const std::vector<int>& selected);

  /// Rows that are selected without others beside them are a place each.
  static constexpr int kMostPlaces = 7'000;

  /// Selects again what is still there. Of a selection that has come to lie in more places than
  /// `kMostPlaces` the current row alone stays: Qt searches all of them for each cell that it
  /// paints, and for each selected row when a screen reader asks how many there are, which takes a
  /// second then.
  void Restore(const GroupedRows& rows, QItemSelectionModel& selection) const;

 private:
  /// Files and groups, whichever rows they have.
  struct Entries {
    std::vector<bool> records;  ///< by number
    std::unordered_set<std::string> groups;

    void Add(const GroupedRows& rows, std::size_t row);
    bool Hold(const GroupedRows& rows, std::size_t row) const;
  };
  QItemSelection SelectedIn(const GroupedRows& rows, const QAbstractItemModel& model) const;

  Entries selected_;
  Entries current_;
  int current_column_ = -1;
};
