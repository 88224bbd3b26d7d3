#pragma once

#include <string_view>

#include "platform/files.h"
#include "platform/services.h"

namespace mMain {

/// Shows the file in the file manager. What can't be reached, and what the desktop refuses, is
/// told to the user.
void OpenInExplorerList(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath);

/// Tells the user what a result of the desktop means; nothing for results without words.
void ShellErrorMessage(Prompts& prompts, ShellResult lngReturn);

}  // namespace mMain
