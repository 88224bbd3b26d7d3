#include <algorithm>
#include <cstdlib>
#include <utility>

#include "common/path_text.h"
#include "rename/net_files.h"

// Where the files of a journal are found to stand.

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kMadeWithin = 2 * kSecond;  ///< of the record that tells of it

}  // namespace

bool NetFiles::Find(FileSystem& system, const GoOn& go_on) {
  constexpr std::size_t kAsked = 100;
  last_ = under_way_;
  last_file_ = last_ ? last_file_ : kNone;
  if (!ExpectFolders(system, go_on)) return false;
  if (under_way_) {
    if (!whole_ && journal::HasTarget(under_way_->action)) FindBegun(system);
    Apply(false, {});
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (i % kAsked == 0 && !go_on()) return false;
    const bool stands = FindFile(system, i, i == last_file_);
    if (files[i].twin) FindTwin(system, i, i == last_file_, stands);
  }
  FindMadeFolders(system);
  return true;
}

void NetFiles::FindMoved(FileSystem& system) {
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!files[i].twin || !files[i].twin->moves) continue;
    FindTwin(system, i, false, FindFile(system, i, false));
  }
}

/// What was begun of a copy, or of a link that was to be made anew, and isn't whole. It bears the
/// number of the process that is gone.
void NetFiles::FindBegun(FileSystem& system) {
  const bool renames = under_way_->action == journal::Action::kMove;
  if (renames && under_way_->from.folder == under_way_->to.folder) return;  // copies nothing
  const auto source = LookAt(system, under_way_->from, under_way_->file);
  if (!source) return;
  const std::string maker = "-" + std::to_string(passes.back().mark.process) + "-";
  UnfinishedIn(system, under_way_->to.folder, [&](const FileIdentity& now, std::string_view name) {
    const bool is_old = now.born_ns != 0 && now.born_ns / kSecond < passes.back().began;
    const bool is_it =
        name.find(maker) != name.npos && !is_old && FingerprintOf(now) != under_way_->file;
    if (is_it) whole_ = {*source, now};
    return is_it;
  });
}

/// A device may have another number once the machine was started or the medium mounted anew; the
/// folder is then known by its path and the rest, and each file by itself.
bool NetFiles::ExpectFolders(FileSystem& system, const GoOn& go_on) {
  const auto bring_up_to_date = [&](const std::string& path, FolderIdentity& identity) {
    const auto now = system.IdentifyFolder(path);
    const bool fits =
        now && now->inode == identity.inode && FitsBirth(now->born_ns, identity.born_ns);
    if (fits) identity.device = now->device;
  };
  for (KnownFolder& folder : folders) {
    if (!go_on()) return false;
    bring_up_to_date(folder.path, folder.identity);
    if (folder.identity.inode != 0) system.ExpectFolder(folder.path, folder.identity);
  }
  for (MadeFolder& folder : made_folders) bring_up_to_date(PathOf(folder.place), folder.identity);
  return true;
}

/// Whether a folder that runs didn't make can't be reached, as on a medium that isn't there just
/// now: then nothing is known of what lies in it.
bool NetFiles::IsOut(FileSystem& system, std::uint32_t folder) {
  if (folders[folder].identity.inode == 0) return false;  // taken away, and empty by then
  const auto [known, is_new] = out_.try_emplace(folder, false);
  if (!is_new) return known->second;
  const auto made = std::ranges::find_if(made_folders, [&](const MadeFolder& one) {
    return PathOf(one.place) + kNative.separator == folders[folder].path;
  });
  bool out = !system.IdentifyFolder(folders[folder].path);
  if (out && made != made_folders.end()) out = IsOut(system, made->place.folder);
  return out_[folder] = out;
}

/// What stands there, if it is that file. On which device it is the folder tells.
std::optional<FileIdentity> NetFiles::LookAt(FileSystem& system, const journal::Place& place,
                                             Fingerprint file) const {
  auto now = system.Identify(PathOf(place));
  if (now && FingerprintOf(*now) != file) now.reset();
  return now;
}

bool NetFiles::FindFile(FileSystem& system, std::size_t number, bool last) {
  File& file = files[number];
  std::optional<journal::Place> found;
  const auto look = [&](const journal::Place& place) {
    const auto now = found ? std::nullopt : LookAt(system, place, file.fingerprint);
    if (!now) return;
    found = place;
    const bool tells_device =
        file.twin && FingerprintOf(file.twin->both.source) == file.fingerprint;
    if (tells_device) file.twin->both.source.device = now->device;
  };
  look(file.present);
  std::for_each(file.earlier.rbegin(), file.earlier.rend(), look);
  look(file.former);
  if (!found && last) found = Unfinished(system, file.fingerprint);
  if (!found) return false;
  if (*found != file.present) {
    found_.push_back({file.present, *found, file.fingerprint, {}});
    file.present = *found;
    Index(file.present, number);
  }
  return true;
}

void NetFiles::FindTwin(FileSystem& system, std::size_t number, bool last, bool stands) {
  File& file = files[number];
  Twin& twin = *file.twin;
  const Fingerprint made = FingerprintOf(twin.both.made);
  std::optional<journal::Place> found;
  const auto look = [&](const journal::Place& place) {
    const auto now = found ? std::nullopt : LookAt(system, place, made);
    if (!now) return;
    found = place;
    twin.both.made.device = now->device;
  };
  look(twin.place);
  if (twin.before) look(*twin.before);
  if (!found && last) found = Unfinished(system, made);
  if (!found) {
    // Another file in the place of a copy is told; where nothing stands, nothing is left to do.
    const bool other = twin.sure && !(twin.moves && stands) && system.Look(PathOf(twin.place));
    if (!other && !IsOut(system, twin.place.folder)) {
      file.twin.reset();
      return;
    }
  } else if (*found != twin.place) {
    found_.push_back({file.present, *found, file.fingerprint, twin.both});
    twin.place = *found;
    Index(twin.place, number);
  }
  if (!twin.moves) return;
  if (!stands) return TakeTwinsPlace(file);
  twin.moves = false;
  if (twin.place != file.former) return;
  // It was on its way back: the one to go is that from which it came.
  std::swap(twin.place, file.present);
  std::swap(twin.both.made, twin.both.source);
  file.fingerprint = FingerprintOf(twin.both.source);
}

/// An operation that was cut off may have left it under a name of its own.
std::optional<journal::Place> NetFiles::Unfinished(FileSystem& system, Fingerprint file) {
  const std::uint32_t from = last_->from.folder;
  const std::uint32_t to = journal::HasTarget(last_->action) ? last_->to.folder : from;
  const auto fits = [&](const FileIdentity& now, std::string_view) {
    return FingerprintOf(now) == file;
  };
  std::optional<journal::Place> found = UnfinishedIn(system, from, fits);
  return found || from == to ? found : UnfinishedIn(system, to, fits);
}

std::optional<journal::Place> NetFiles::UnfinishedIn(FileSystem& system, std::uint32_t folder,
                                                     const Fits& fits) {
  FolderEntries all;
  system.List(
      folders[folder].path, [] { return true; }, all);
  for (const FolderEntries::Entry& entry : all.entries) {
    if (!IsUnfinishedName(entry.name)) continue;
    const journal::Place place{folder, std::string(entry.name)};
    const auto now = system.Identify(PathOf(place));
    if (now && fits(*now, entry.name)) return place;
  }
  return std::nullopt;
}

void NetFiles::FindMadeFolders(FileSystem& system) {
  for (MadeFolder& folder : made_folders) {
    const auto now = system.IdentifyFolder(PathOf(folder.place));
    // One that somebody made there since is his.
    if (now && folder.identity.inode == 0 && std::abs(now->born_ns - written_ns) < kMadeWithin) {
      folder.identity = *now;
      found_folders_.push_back(folder);
    }
    if (now == folder.identity || folder.identity.inode == 0) continue;
    const auto place = UnfinishedIn(system, folder.place.folder, [&](const auto& entry, auto) {
      return FolderIdentity{entry.device, entry.inode, entry.born_ns} == folder.identity;
    });
    if (place) folder.place = *place;
  }
}

void NetFiles::TellFound(journal::Sink& sink) {
  for (const Found& found : found_) {
    const auto action = found.copied ? journal::Action::kCopy : journal::Action::kMove;
    sink.Before({action, Told(found.from), Told(found.to), found.file});
    if (found.copied) sink.CopyIsWhole(*found.copied);
    sink.After(journal::Outcome::kDone, {});
  }
  for (const MadeFolder& folder : found_folders_) {
    const FolderIdentity& made = folder.identity;
    sink.Before({journal::Action::kMakeFolder, Told(folder.place), {}, 0});
    sink.After(journal::Outcome::kDone, {made.device, made.inode, 0, 0, made.born_ns});
  }
  found_.clear();
  found_folders_.clear();
}

bool NetFiles::Holds(const journal::Place& from, Fingerprint file) const {
  return At(Known(from), file).file != kNone;
}
