#pragma once

#include <string>

#include "settings/options.h"

/// The output choice as it stands when a run starts.
struct RunOutput {
  OutputOptions chosen;
  std::string fdSourceFolder;  ///< replaced by the output folder in a row's path for subfolders
  bool operator==(const RunOutput&) const = default;
};
