#pragma once

#include <functional>

#include "filelist/row_commands.h"

class QPoint;
class QWidget;

/// Where a menu is asked for, which decides what it offers.
struct RowMenuPlace {
  bool has_boxes = false;  ///< the rows of the list have check boxes
  bool grouped = false;    ///< and stand in groups
  bool on_file = false;    ///< the row is a file row
};

/// Opens the menu with the commands that fit the place, in their order, `at` on the screen;
/// `execute` gets the id of the one that is chosen. Returns at once; the menu ends itself.
void PopUpRowMenu(QWidget* parent, const RowMenuPlace& place, const QPoint& at,
                  const std::function<void(int)>& execute);
