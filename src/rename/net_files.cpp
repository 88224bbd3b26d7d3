#include "rename/net_files.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "common/path_text.h"

// What the journal tells; net_files_found.cpp has what is found.

namespace {

constexpr std::size_t kMostEarlier = 64;  ///< places of one file that are looked at

std::size_t KeyOf(const journal::Place& place) {
  return place.folder * 0x9E3779B97F4A7C15u + std::hash<std::string>()(place.name);
}

}  // namespace

bool NetFiles::File::IsElsewhere() const {
  return twin != nullptr || former != present;
}

void NetFiles::Begin(const journal::PassFacts& pass) {
  if (under_way_) Apply(false, {});
  if (pass.work == journal::Work::kRun) {
    const auto elsewhere = std::ranges::count_if(files, &File::IsElsewhere);
    wanted = static_cast<std::size_t>(elsewhere) + pass.wanted;
  }
  passes.push_back(pass);
  ended = false;
}

std::uint32_t NetFiles::Folder(const std::string& path, const FolderIdentity& identity) {
  const auto number = static_cast<std::uint32_t>(numbers_.size());
  const auto next = static_cast<std::uint32_t>(folders.size());
  const auto [known, added] = by_path_.try_emplace(path, next);
  if (added) {
    folders.push_back({path, identity});
    told_as_.push_back(number);
  }
  folders[known->second].identity = identity;  // it may have been made anew
  told_as_[known->second] = number;
  numbers_.push_back(known->second);
  return number;
}

journal::Place NetFiles::Known(journal::Place told) const {
  told.folder = numbers_[told.folder];
  return told;
}

journal::Place NetFiles::Told(journal::Place known) const {
  known.folder = told_as_[known.folder];
  return known;
}

void NetFiles::Before(const journal::Operation& operation) {
  if (under_way_) Apply(false, {});
  under_way_ = operation;
  under_way_->from = Known(operation.from);
  if (journal::HasTarget(operation.action)) under_way_->to = Known(operation.to);
  whole_.reset();
}

void NetFiles::After(journal::Outcome outcome, const FileIdentity& made) {
  if (under_way_ && outcome == journal::Outcome::kDone) Apply(true, made);
  under_way_.reset();
}

void NetFiles::Index(const journal::Place& place, std::size_t file) {
  by_place_.emplace(KeyOf(place), static_cast<std::uint32_t>(file));
}

NetFiles::Hit NetFiles::At(const journal::Place& place, Fingerprint sought) const {
  const auto [begin, end] = by_place_.equal_range(KeyOf(place));
  for (auto entry = begin; entry != end; ++entry) {
    const File& file = files[entry->second];
    if (file.present == place && file.fingerprint == sought) return {entry->second};
    const bool twin = file.twin && file.twin->place == place;
    if (twin && FingerprintOf(file.twin->both.made) == sought) return {entry->second, true};
  }
  return {};
}

std::size_t NetFiles::FileAt(const journal::Place& place, Fingerprint file) {
  const Hit hit = At(place, file);
  if (hit.file != kNone) return hit.file;
  files.emplace_back();
  files.back().former = files.back().present = place;
  files.back().fingerprint = file;
  Index(place, files.size() - 1);
  return files.size() - 1;
}

void NetFiles::Apply(bool sure, const FileIdentity& made) {
  const journal::Operation& operation = *under_way_;
  switch (operation.action) {
    case journal::Action::kMove:
      Move(sure);
      break;
    case journal::Action::kCopy:
      if (whole_) AddTwin(FileAt(operation.from, operation.file), false, sure);
      break;
    case journal::Action::kDelete:
      Delete(sure);
      break;
    case journal::Action::kMakeFolder:
      std::erase_if(made_folders, [&](const auto& f) { return f.place == operation.from; });
      made_folders.push_back({operation.from, {made.device, made.inode, made.born_ns}});
      ExpectNoMore(operation.from);
      break;
    case journal::Action::kRemoveFolder:
      if (sure) {
        std::erase_if(made_folders, [&](const auto& f) { return f.place == operation.from; });
        ExpectNoMore(operation.from);
      }
      break;
  }
  under_way_.reset();
}

/// Another folder may stand there than before.
void NetFiles::ExpectNoMore(const journal::Place& place) {
  const auto known = by_path_.find(PathOf(place) + kNative.separator);
  if (known != by_path_.end()) folders[known->second].identity = {};
}

void NetFiles::Move(bool sure) {
  const Hit hit = At(under_way_->from, under_way_->file);
  const std::size_t number =
      hit.file != kNone ? hit.file : FileAt(under_way_->from, under_way_->file);
  File& file = files[number];
  last_file_ = number;
  Index(under_way_->to, number);
  if (hit.twin && !file.twin->moves) {
    file.twin->before = std::exchange(file.twin->place, under_way_->to);
    return;
  }
  if (hit.twin) TakeTwinsPlace(file);
  if (whole_) return AddTwin(number, true, sure);
  const auto is_known = [&](const journal::Place& place) { return place == file.present; };
  if (!is_known(file.former) && std::ranges::none_of(file.earlier, is_known)) {
    file.earlier.push_back(file.present);
    if (file.earlier.size() > kMostEarlier) file.earlier.erase(file.earlier.begin());
  }
  file.present = under_way_->to;
}

void NetFiles::AddTwin(std::size_t file, bool moves, bool sure) {
  files[file].twin = std::make_unique<Twin>(Twin{under_way_->to, {}, *whole_, moves, sure});
  Index(under_way_->to, file);
  last_file_ = file;
}

/// The file is what was made of it on another device.
void NetFiles::TakeTwinsPlace(File& file) {
  file.present = file.twin->place;
  file.fingerprint = FingerprintOf(file.twin->both.made);
  file.twin.reset();
}

/// Of a file and what was made of it, one is left. Whether it was deleted shows when it is looked
/// for.
void NetFiles::Delete(bool sure) {
  const Hit hit = At(under_way_->from, under_way_->file);
  if (hit.file == kNone) return;
  last_file_ = hit.file;
  File& file = files[hit.file];
  if (!sure || file.twin == nullptr) return;
  if (hit.twin) {
    file.twin.reset();
  } else if (file.twin->moves) {
    TakeTwinsPlace(file);
  }
}
