#include "rename/output_folders.h"

#include <algorithm>

#include "common/drives.h"
#include "common/path_text.h"
#include "rename/folder_path.h"

namespace {

/// What a path holds up to its last separator.
std::string_view FolderPart(std::string_view path) {
  return path.substr(0, path.rfind(kNative.separator) + 1);
}

}  // namespace

void ExpectKnownFolders(Pass& pass) {
  constexpr std::size_t kFoldersBetweenEvents = 1024;
  std::size_t count = 0;
  for (const auto* known : {&pass.records.used_folders, &pass.records.scanned_folders}) {
    for (const auto& [path, identity] : *known) {
      if (++count % kFoldersBetweenEvents == 0 && !pass.GoOn()) return;  // the run ends at once
      pass.services.files.ExpectFolder(path, identity);
    }
  }
}

std::string OutputText(const Records& records, const FileRow& row, const RunOutput& output) {
  const OutputOptions& chosen = output.chosen;
  if (!AsksForFolder(chosen.cmbDestination)) return records.Path(row);
  if (!chosen.chDestinationSubfolders) return chosen.fdDestination;
  return mMain::ReplacePathText(records.Path(row), output.fdSourceFolder, chosen.fdDestination);
}

const OutputFolders::Folder& OutputFolders::Of(const FileRow& row) {
  if (!AsksForFolder(output_.chosen.cmbDestination)) {
    latest_.path = records_.Path(row);
    return latest_;
  }
  const std::string text = OutputText(records_, row, output_);
  const auto found = prepared_.find(text);
  if (found != prepared_.end() && LeadsThere(text, found->second)) return found->second;
  latest_ = Prepare(text);
  const bool made =
      latest_.problem == 0 && files_.IdentifyFolder(mMain::GetPathWithNoSlash(text)).has_value();
  return made ? prepared_[text] = latest_ : latest_;  // what is missing is tried again
}

/// Where the way there leads over a link that is itself in the list, the run may have moved it.
bool OutputFolders::LeadsThere(const std::string& text, const Folder& folder) {
  return text == folder.path || files_.IdentifyFolder(FolderPart(text)) == folder.identity;
}

/// A relative folder would lead to wherever the program happens to have been started.
OutputFolders::Folder OutputFolders::Prepare(const std::string& text) {
  if (!mMain::IsAbsolutePath(text)) return {text, kFolderNotAbsolute, {}, 0};
  in_the_way_ = false;
  not_made_ = 0;
  const std::string_view bare = mMain::GetPathWithNoSlash(text);
  if (!mScanCD::FolderExist(files_, bare)) {
    CreateFolderPath(files_, bare, [this](const std::string& level) { return Make(level); });
  }
  // All that the run puts below the folder that was chosen belongs into that very one.
  if (text.starts_with(output_.chosen.fdDestination))
    Know(files_.ResolveFolder(output_.chosen.fdDestination));
  Folder folder{files_.ResolveFolder(text), in_the_way_ ? kFolderInTheWay : 0, {}, not_made_};
  folder.identity = files_.IdentifyFolder(FolderPart(folder.path));
  Know(folder.path);
  return folder;
}

/// Makes no folder where undo needs the name: where a row had the file that undo brings back. A
/// file system may take two names for one, which shows only once the folder is there.
bool OutputFolders::Make(const std::string& level) {
  const bool known = former_ || MakeIndex();
  in_the_way_ = !known || StandsInTheWay(level, true);
  if (in_the_way_) return false;
  if (!files_.CreateDirectory(level)) {
    if (not_made_ == 0) not_made_ = files_.Problem();  // of those below it none can be made either
    return true;
  }
  const std::string path = files_.ResolveFolder(level);
  const auto identity = files_.IdentifyFolder(path);
  if (!identity) return true;
  in_the_way_ = StandsInTheWay(level, false);
  if (in_the_way_ && files_.DeleteMadeFolder(path, *identity)) return false;
  records_.made_folders.push_back({path, *identity});
  // A folder that was there before, listed or used, is gone.
  records_.used_folders.erase(path + kNative.separator);
  records_.scanned_folders.erase(path + kNative.separator);
  Know(path + kNative.separator);
  return !in_the_way_;
}

bool OutputFolders::StandsInTheWay(const std::string& level, bool by_exact_name) {
  const std::string_view folder = FolderPart(level);
  const RowPlace wanted{folder, std::string_view(level).substr(folder.size())};
  const std::vector<std::size_t> candidates = former_->Under(keys_(wanted));
  return std::any_of(candidates.begin(), candidates.end(), [&](std::size_t record) {
    const RowPlace former = FormerPlace(records_, records_[record]);
    return !former.name.empty() && keys_.AreOne(former, wanted, by_exact_name);
  });
}

/// False when the pass is to end.
bool OutputFolders::MakeIndex() {
  former_.emplace(records_.Count());
  for (std::size_t i = 0; i < records_.Count(); ++i) {
    if (records_[i].TakesPartInUndo()) RowChanged(i);
    if (pass_.GoOn()) continue;
    former_.reset();
    return false;
  }
  return true;
}

void OutputFolders::RowChanged(std::size_t record) {
  if (former_) former_->Add(keys_(FormerPlace(records_, records_[record])), record);
}

void OutputFolders::Know(std::string_view path) {
  const std::string folder(FolderPart(path));
  if (records_.scanned_folders.contains(folder) || records_.used_folders.contains(folder)) return;
  const auto identity = files_.IdentifyFolder(folder);
  if (!identity) return;
  records_.used_folders[folder] = *identity;
  files_.ExpectFolder(folder, *identity);
}
