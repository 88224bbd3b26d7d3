#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "filelist/grid.h"
#include "filelist/row_commands.h"
#include "look/keys.h"

/// What a check operation sets check boxes to.
enum class CheckTo : std::uint8_t { kOn, kOff, kOpposite };

/// An operation on the check boxes of many rows. None sets a row that it doesn't choose.
struct CheckOperation {
  RowCommand id;
  std::string_view procedure;  ///< in a report
  std::string_view caption;    ///< in the menu, and of the dialog that asks for the mask
  CheckTo to;
  bool in_group = false;  ///< works on the groups of the selected rows; else on all rows
  bool by_mask = false;   ///< works on rows that match a mask, for which the user is asked
  Keys keys = Keys::kNone;
};

/// All of them as the menu of the rows offers them.
inline constexpr CheckOperation kCheckOperations[] = {
    {kCheckAll, "Form1.CheckAll", "Check all", CheckTo::kOn, false, false, Keys::kCheckAll},
    {kCheckByMask, "Form1.CheckByMask", "Check by mask", CheckTo::kOn, false, true,
     Keys::kCheckByMask},
    {kUnCheckAll, "Form1.UnCheckAll", "Uncheck all", CheckTo::kOff, false, false,
     Keys::kUnCheckAll},
    {kUnCheckByMask, "Form1.UnCheckByMask", "Uncheck by mask", CheckTo::kOff, false, true,
     Keys::kUnCheckByMask},
    {kInvertSelection, "Form1.InvertSelection", "Invert selection", CheckTo::kOpposite, false,
     false, Keys::kInvertSelection},
    {kCheckAllInGroup, "Form1.CheckAllInGroup", "Check all in group", CheckTo::kOn, true},
    {kCheckByMaskInGroup, "Form1.CheckByMaskInGroup", "Check by mask in group", CheckTo::kOn, true,
     true},
    {kUnCheckAllInGroup, "Form1.UnCheckAllInGroup", "Uncheck all in group", CheckTo::kOff, true},
    {kUnCheckByMaskInGroup, "Form1.UnCheckByMaskInGroup", "Uncheck by mask in group", CheckTo::kOff,
     true, true},
    {kInvertSelectionInGroup, "Form1.InvertSelectionInGroup", "Invert selection in group",
     CheckTo::kOpposite, true},
};

/// The operation of a command; null for a command that is none.
const CheckOperation* FindCheckOperation(int id);

/// Sets the check boxes that `operation` chooses, and nothing else of a row. `selected` are rows of
/// the grid from the top: in a group each of them, its heading or a file, stands for all files of
/// its group, so two of them invert it twice. Masks go by the names as scanned. Where `mask` can't
/// be understood it raises kBadPattern and no box has changed.
void SetCheckBoxes(const CheckOperation& operation, Grid& grid, const std::vector<int>& selected,
                   std::string_view mask);
