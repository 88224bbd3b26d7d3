#pragma once

#include <string>
#include <string_view>

#include "core/records.h"

/// The folder of a file that a run was done with: the output folder, or, where there was none, the
/// folder in which it was scanned.
inline std::string_view FolderAfterRun(std::string_view scanned, std::string_view output) {
  return output.empty() ? scanned : output;
}

/// The path of the file that a row stands for: as scanned, or as the run that was done with it has
/// left it.
std::string PathOfRow(const Records& records, const FileRow& row);
