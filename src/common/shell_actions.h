#pragma once

#include <string_view>

#include "platform/files.h"
#include "platform/services.h"

namespace mMain {

/// Shows the file in the file manager. What can't be reached, and what the desktop refuses, is
/// told to the user, also when its answer comes late.
void OpenInExplorerList(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath);

/// Opens the file with the program that is registered for its kind; tells as above.
void ExecuteFile(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath);

/// Opens the manual that was installed with the program, whose file is `program`; tells as above.
void OpenManual(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view program);

/// Tells the user what a result of the desktop means; nothing for results without words.
void ShellErrorMessage(Prompts& prompts, ShellResult lngReturn);

}  // namespace mMain

namespace mFileProperties {

/// Shows the desktop's sheet of the file's properties; what it refuses is told to the user. Whether
/// the file can be reached is not looked at first; without a path nothing happens.
void ShowFileProperties(Prompts& prompts, Shell& shell, std::string_view aFile);

}  // namespace mFileProperties
