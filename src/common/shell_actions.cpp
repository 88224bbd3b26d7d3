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
        {kShellNoResources, mLanguageGobals::kNoResources},
        {kShellFileNotFound, mLanguageGobals::kFileNotFound},
        {kShellPathNotFound, mLanguageGobals::kPathNotFound},
        {kShellDenied, mLanguageGobals::kAccessDenied},
        {kShellNoMemory, mLanguageGobals::kNotEnoughMemory},
        {kShellBadProgram, mLanguageGobals::kBadProgram},
        {kShellSharing, mLanguageGobals::kSharingViolation},
        {kShellAssociationIncomplete, mLanguageGobals::kBadAssociation},
        {kShellNoAssociation, mLanguageGobals::kNoAssociation},
    };
    for (const auto& row : kMessages) {
      if (row.result == lngReturn) prompts.Tell(row.message, PromptIcon::kExclamation);
    }
  });
}

}  // namespace mMain
