#pragma once

#include <string>

/// The positions in `cmbDestination`: where a run puts the files.
enum OutputMode : int { kUseSourceFolder = 0, kCopyTo = 1, kMoveTo = 2 };

/// The output choice as it stands when a run starts.
struct OutputOptions {
  int cmbDestination = kUseSourceFolder;
  std::string fdDestination;  ///< used as it stands, so with its closing separator
  bool chDestinationSubfolders = true;
  std::string fdSourceFolder;  ///< replaced by `fdDestination` in a row's path for subfolders
};
