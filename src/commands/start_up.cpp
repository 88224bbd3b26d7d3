#include "commands/start_up.h"

#include <optional>

#include "common/drives.h"
#include "common/language.h"
#include "platform/build_facts.h"

namespace mMain {

bool MayStart(SystemFacts& facts, Prompts& prompts, bool another_runs) {
  if (!facts.IsSupported()) {
    prompts.Tell(mLanguageGobals::kOtherSystem, PromptIcon::kExclamation);
    return false;
  }
  return !another_runs;
}

namespace {

using namespace mLanguageGobals;

CommandLine Refuse(std::string_view reason, std::string_view word, std::string_view more) {
  return {{}, 2, std::string("quorvane: ").append(reason).append(word).append("\n").append(more)};
}

}  // namespace

CommandLine ReadCommandLine(FileSystem& files, const std::vector<std::string>& words) {
  std::vector<std::string> paths;
  bool options = true;
  for (const std::string& word : words) {
    if (!options || !word.starts_with('-')) {
      paths.push_back(word);
    } else if (word == "--help") {
      return {{}, 0, std::string(kUsage)};
    } else if (word == "--version") {
      return {{}, 0, std::string(build_facts::kTitle) + " " + build_facts::kVersion + "\n"};
    } else if (word != "--") {
      return Refuse(kUnknownOption, word, kUsage);
    }
    options = options && word != "--";
  }
  if (paths.empty()) return {};
  if (paths.size() > 1) return Refuse(kOneFolderOnly, "", kUsage);
  const std::optional<std::string> folder = FolderOf(files, paths[0]);
  if (!folder) return Refuse(paths[0] + ": ", kFileNotFound, "");
  return {.folder = *folder};
}

StartFlags LookForStartFiles(FileSystem& files) {
  return {mScanCD::FileExist(files, "./Quorvane.exe.manifest"),
          mScanCD::FileExist(files, "./libQt6Core.so.6")};
}

}  // namespace mMain
