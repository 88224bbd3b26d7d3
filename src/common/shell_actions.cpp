#include "common/shell_actions.h"

#include "common/drives.h"
#include "common/language.h"
#include "common/path_text.h"
#include "platform/build_facts.h"
#include "trace/err_trace.h"

namespace mMain {

namespace {

/// A late answer comes to no other handler, so it is one itself.
ShellAnswer TellRefusal(Prompts& prompts) {
  return [&prompts](ShellResult result) {
    if (result >= kShellDone) return;
    ErrTrace::top("Shell.Answer", [&] { ShellErrorMessage(prompts, result); });
  };
}

/// The folder that a file or folder is in, with its closing separator.
std::string_view Above(std::string_view path) {
  return path.substr(0, GetPathWithNoSlash(path).rfind(kNative.separator) + 1);
}

}  // namespace

void OpenInExplorerList(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath) {
  ErrTrace::inner("mMain.OpenInExplorerList(frm,pPath)", ErrTrace::args(nullptr, pPath), [&] {
    if (FileManager(files, prompts, pPath)) shell.ShowInFolder(pPath, TellRefusal(prompts));
  });
}

void ExecuteFile(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view pPath) {
  const bool NoMsgBox = false;
  ErrTrace::inner("mMain.ExecuteFile(frm,pPath,NoMsgBox)", ErrTrace::args(nullptr, pPath, NoMsgBox),
                  [&] {
                    if (!FileManager(files, prompts, pPath)) return;
                    shell.OpenFile(pPath, TellRefusal(prompts));
                  });
}

void OpenManual(FileSystem& files, Prompts& prompts, Shell& shell, std::string_view program) {
  ExecuteFile(files, prompts, shell, std::string(Above(Above(program))) + build_facts::kManual);
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

namespace mFileProperties {

void ShowFileProperties(Prompts& prompts, Shell& shell, std::string_view aFile) {
  ErrTrace::inner("mFileProperties.ShowFileProperties(aFile)", ErrTrace::args(aFile), [&] {
    if (aFile.empty()) return;
    shell.ShowProperties(aFile, mMain::TellRefusal(prompts));
  });
}

}  // namespace mFileProperties
