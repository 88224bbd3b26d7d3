#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/path_text.h"
#include "settings/reg_settings.h"

/// Whether it is asked before a list is made of the system's own folders; stored when the box in
/// that question changes.
inline constexpr mRegSettings::Setting kCheckForSystemFolders{"Settings", "CheckForSystemFolders",
                                                              "1"};

/// Which of `system_folders` (paths without a closing separator, in the order of the answer) a list
/// of `pSourcePath` would touch. That folder alone when it is one of them; else each that it lies
/// in, then each that lies in it, one a line, every line ended. Empty when it touches none.
///
/// Texts are compared, letter case aside: what begins like a system folder and lacks its closing
/// separator counts. A root can stand at the start of a path only, but for a drive's style.
std::string SystemFolder(std::string_view pSourcePath,
                         const std::vector<std::string>& system_folders, PathStyle style = kNative);
