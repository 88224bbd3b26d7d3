#include "common/shell_actions.h"

#include "common/drives.h"
#include "common/language.h"
#include "trace/err_trace.h"

namespace mMain {

void OpenInExplorerList(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath) {
  ErrTrace::inner("mMain.OpenInExplorerList(frm,pPath)", ErrTrace::args(nullptr, pPath), [&] {
    if (!FileManager(files, prompts, pPath)) return;
    const ShellResult result = shell.ShowInFolder(pPath);
    if (result < kShellDone) ShellErrorMessage(prompts, result);
  });
}

void ShellErrorMessage(Prompts& prompts, ShellResult lngReturn) {
  ErrTrace::inner("mMain.ShellErrorMessage(lngReturn)", ErrTrace::args(lngReturn), [&] {
    static constexpr struct {
      ShellResult result;
      std::string_view message;
    } kMessages[] = {
        {kShellNoResources, "The operating system is out of memory or resources."},
        {kShellFileNotFound, mLanguageGobals::kFileNotFound},
        {kShellPathNotFound, "The specified path was not found."},
        {kShellDenied, "The operating system denied access to the specified file."},
        {kShellNoMemory, "There was not enough memory to complete the operation."},
        {kShellBadProgram, "The .exe file is invalid (non-Win32 .exe or error in .exe image)."},
        {kShellSharing, "A sharing violation occurred."},
        {kShellAssociationIncomplete, "The file name association is incomplete or invalid."},
        {kShellNoAssociation,
         "There is no application associated with the given file name extension. This error will "
         "also be returned if you attempt to print a file that is not printable."},
    };
    for (const auto& row : kMessages) {
      if (row.result == lngReturn) prompts.Tell(row.message, PromptIcon::kExclamation);
    }
  });
}

}  // namespace mMain
