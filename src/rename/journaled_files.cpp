#include "rename/journaled_files.h"

#include <cerrno>
#include <utility>

#include "common/path_text.h"

namespace {

std::string_view FolderPart(std::string_view path) {
  return path.substr(0, path.rfind(kNative.separator) + 1);
}

}  // namespace

JournaledFiles::JournaledFiles(FileSystem& files, journal::Sink& sink, MayMove may_move)
    : files_(files), sink_(sink), may_move_(std::move(may_move)) {
  files_.WatchCopies([this](const CopyIdentities& copied) {
    told_whole_ = true;
    sink_.CopyIsWhole(copied);
  });
}

template <class Change>
bool JournaledFiles::Do(journal::Action action, std::string_view from, std::string_view to,
                        Fingerprint file, const Change& change) {
  refused_ = 0;
  told_whole_ = false;
  made_ = {};
  const bool has_target = journal::HasTarget(action);
  const bool can_be_told =
      SetPlace(operation_.from, from) && (!has_target || SetPlace(operation_.to, to));
  if (!can_be_told) return change();
  const bool moves = action == journal::Action::kMove;
  if (moves && may_move_ && !may_move_(operation_.from, file)) {
    refused_ = kSourceChanged;
    return false;
  }
  operation_.action = action;
  operation_.file = file;
  sink_.Before(operation_);
  const bool done = change();
  sink_.After(done ? journal::Outcome::kDone : journal::Outcome::kNotDone, made_);
  if (done && moves) Forget(from);
  return done;
}

/// 0 where nothing stands.
Fingerprint JournaledFiles::FingerprintAt(std::string_view path) {
  const auto file = files_.Identify(path);
  return file ? FingerprintOf(*file) : 0;
}

bool JournaledFiles::MoveFile(std::string_view from, std::string_view to, const GoOn& go_on,
                              Fingerprint* moved) {
  const auto move = [&] { return files_.MoveFile(from, to, go_on, moved); };
  const Fingerprint file = from == to ? 0 : FingerprintAt(from);
  refused_ = 0;
  return file != 0 ? Do(journal::Action::kMove, from, to, file, move) : move();
}

/// The file is looked at only where its row doesn't know it, or where no other may be moved.
Attempt JournaledFiles::RenameKnown(std::string_view from, std::string_view to, Fingerprint known) {
  Attempt attempt = Attempt::kFailed;
  const auto rename = [&] {
    attempt = files_.RenameKnown(from, to, known);
    return attempt == Attempt::kDone;
  };
  refused_ = 0;
  const Fingerprint file = known == 0 || may_move_ ? FingerprintAt(from) : known;
  if (may_move_ && file == 0) {
    refused_ = ENOENT;
    return Attempt::kFailed;
  }
  if (file == 0 || from == to) return files_.RenameKnown(from, to, known);
  Do(journal::Action::kMove, from, to, file, rename);
  return attempt;
}

bool JournaledFiles::CopyFile(std::string_view from, std::string_view to, const GoOn& go_on,
                              CopyIdentities* copied) {
  CopyIdentities both;
  const auto copy = [&] {
    if (!files_.CopyFile(from, to, go_on, &both)) return false;
    if (!told_whole_) sink_.CopyIsWhole(both);
    if (copied != nullptr) *copied = both;
    return true;
  };
  return Do(journal::Action::kCopy, from, to, FingerprintAt(from), copy);
}

bool JournaledFiles::DeleteMadeFile(std::string_view path, const FileIdentity& made) {
  return Do(journal::Action::kDelete, path, {}, FingerprintOf(made),
            [&] { return files_.DeleteMadeFile(path, made); });
}

bool JournaledFiles::CreateDirectory(std::string_view path) {
  const auto make = [&] {
    if (!files_.CreateDirectory(path)) return false;
    const auto folder = files_.IdentifyFolder(path);
    if (folder) made_ = {folder->device, folder->inode, 0, 0, folder->born_ns};
    return true;
  };
  return Do(journal::Action::kMakeFolder, path, {}, 0, make);
}

bool JournaledFiles::DeleteMadeFolder(std::string_view path, const FolderIdentity& made) {
  const auto remove = [&] {
    const bool done = files_.DeleteMadeFolder(path, made);
    if (done) Forget(path);
    return done;
  };
  return Do(journal::Action::kRemoveFolder, path, {}, 0, remove);
}

bool JournaledFiles::SetPlace(journal::Place& place, std::string_view path) {
  const std::string_view folder = FolderPart(path), name = path.substr(folder.size());
  if (!journal::IsSoundName(name)) return false;
  const auto number = FolderNumber(folder);
  if (!number) return false;
  place.folder = *number;
  place.name = name;
  return true;
}

std::optional<std::uint32_t> JournaledFiles::FolderNumber(std::string_view folder) {
  if (last_folder_ != nullptr && last_folder_->first == folder) return last_folder_->second;
  auto known = folders_.find(folder);
  if (known == folders_.end()) {
    const std::string path = files_.ResolveFolder(folder);
    const auto identity = files_.IdentifyFolder(path);
    if (!identity || !journal::IsSoundFolder(path)) return std::nullopt;
    known = folders_.emplace(folder, sink_.Folder(path, *identity)).first;
  }
  last_folder_ = &*known;
  return known->second;
}

/// The entry at `path` may have been a link, or a folder, over which other folders were reached.
void JournaledFiles::Forget(std::string_view path) {
  if (folders_.size() < 2) return;
  last_folder_ = nullptr;
  const std::string below = std::string(path) + kNative.separator;
  for (auto at = folders_.lower_bound(below);
       at != folders_.end() && at->first.starts_with(below);) {
    at = folders_.erase(at);
  }
}

JournaledServices::JournaledServices(const Services& plain, journal::Sink& sink,
                                     std::function<void()> before_events,
                                     JournaledFiles::MayMove may_move)
    : files_(plain.files, sink, std::move(may_move)),
      pump_(plain.events, std::move(before_events)),
      services_{files_,           plain.clock,   plain.facts,   pump_,       plain.locale,
                plain.type_names, plain.folders, plain.prompts, plain.shell, plain.settings} {}
