#pragma once

#include <functional>

class QMenu;

/// The commands of the rows of a list, by their ids. 103 and 104 have none.
enum RowCommand : int {
  kInvertSelection = 101,
  kCheckAll = 102,
  kUnCheckAll = 105,
  kOpenInExplorer = 106,
  kExecute = 107,
  kProperties = 108,
  kCheckAllInGroup = 109,
  kInvertSelectionInGroup = 110,
  kUnCheckAllInGroup = 111,
  kCheckByMask = 112,
  kUnCheckByMask = 113,
  kCheckByMaskInGroup = 114,
  kUnCheckByMaskInGroup = 115,
};

/// Where a menu is asked for, which decides what it offers.
struct RowMenuPlace {
  bool has_boxes = false;  ///< the rows of the list have check boxes
  bool grouped = false;    ///< and stand in groups
  bool on_file = false;    ///< the row is a file row
};

/// Adds the commands that fit the place, in the order of the menu; `execute` gets the id of the one
/// that is chosen.
void FillRowMenu(QMenu& menu, const RowMenuPlace& place, const std::function<void(int)>& execute);
