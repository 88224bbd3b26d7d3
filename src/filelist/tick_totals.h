#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "core/grouped_rows.h"
#include "core/records.h"

/// How many ticked files stand above a row of the list, which is what a counter has come to there.
/// Counts only as far as it is asked, and then a block of rows once; what makes the rows anew it
/// sees by itself.
class TickTotals {
 public:
  /// Both outlive the totals.
  TickTotals(const Records& records, const GroupedRows& rows) : records_(records), rows_(rows) {}

  /// The ticks of the displayed rows `first` to `last` may have changed.
  void TicksChanged(std::size_t first, std::size_t last);

  struct Above {
    std::size_t all = 0;
    std::size_t in_group = 0;  ///< of those in the row's own group; all in a list without groups
  };
  Above AboveRow(std::size_t row);

  /// The first ticked file row.
  std::optional<std::size_t> FirstTicked();

 private:
  /// A row and the ticked files above it; none stand above the first one.
  struct Place {
    std::size_t row = 0;
    std::size_t ticked = 0;
  };

  bool IsTicked(std::size_t row) const;
  void SeeNewRows();
  std::uint32_t InBlock(std::size_t block);
  std::size_t CountAbove(std::size_t row, Place& last);

  const Records& records_;
  const GroupedRows& rows_;
  std::uint64_t version_ = 0;          ///< of the rows that were counted
  std::vector<std::uint32_t> blocks_;  ///< ticked files of each, where they are counted
  Place last_;                         ///< asked about; the next one is mostly near
  Place last_group_;
};
