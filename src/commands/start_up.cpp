#include "commands/start_up.h"

#include "common/drives.h"
#include "common/language.h"

namespace mMain {

bool MayStart(SystemFacts& facts, Prompts& prompts, bool another_runs) {
  if (!facts.IsSupported()) {
    prompts.Tell(mLanguageGobals::kOtherSystem, PromptIcon::kExclamation);
    return false;
  }
  return !another_runs;
}

StartFlags LookForStartFiles(FileSystem& files) {
  return {mScanCD::FileExist(files, "./Quorvane.exe.manifest"),
          mScanCD::FileExist(files, "./libQt6Core.so.6")};
}

}  // namespace mMain
