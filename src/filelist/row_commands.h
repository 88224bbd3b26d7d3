#pragma once

#include <string_view>

#include "platform/services.h"

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

/// A command on the file of a row.
struct FileCommand {
  RowCommand id;
  std::string_view caption;
  bool begin_group;  ///< stands apart from the one before it
};

/// All of them as the menu of the rows offers them.
inline constexpr FileCommand kFileCommands[] = {
    {kOpenInExplorer, "Open in Explorer", true},
    {kExecute, "Execute", false},
    {kProperties, "Properties", true},
};

/// Shows, opens, or shows the properties of the file at `path`, as the command says; any other
/// command does nothing. The user is told what can't be done.
void ExecuteOnFile(int id, const Services& services, std::string_view path);
