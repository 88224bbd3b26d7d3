#pragma once

#include <vector>

#include "filelist/empty_list.h"

/// What the commands do with the list of files that is shown.
class ListSurface {
 public:
  virtual ~ListSurface() = default;

  /// The rows of the grid were made anew; `reason` is what an empty list tells.
  virtual void ListRepopulated(EmptyList reason) = 0;
  /// Makes the rows of the grid anew from the records; what is selected and current stays so. A
  /// list without rows stays without, whatever a cancelled scan has left in the records.
  virtual void ShowAnew() = 0;
  /// Names, marks or check boxes of rows were written; their number and order stand.
  virtual void RowsChanged() = 0;
  /// The same while a pass works or new names become drafts: only rows in sight are looked at.
  virtual void RepaintRows() = 0;
  /// The selected rows of the grid from the top, group rows among them.
  virtual std::vector<int> SelectedRows() const = 0;
};
