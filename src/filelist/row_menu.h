#pragma once

#include <functional>

#include "filelist/row_commands.h"

class QMenu;

/// Where a menu is asked for, which decides what it offers.
struct RowMenuPlace {
  bool has_boxes = false;  ///< the rows of the list have check boxes
  bool grouped = false;    ///< and stand in groups
  bool on_file = false;    ///< the row is a file row
};

/// Adds the commands that fit the place, in the order of the menu; `execute` gets the id of the one
/// that is chosen.
void FillRowMenu(QMenu& menu, const RowMenuPlace& place, const std::function<void(int)>& execute);
