#include "rename/forecast_folders.h"

#include <algorithm>

#include "common/path_text.h"
#include "platform/name_pattern.h"
#include "platform/text.h"

namespace {

constexpr char kSeparator = kNative.separator;

std::string_view LastName(std::string_view path) {
  return path.substr(path.rfind(kSeparator) + 1);
}

std::string OtherCase(std::string_view name) {
  std::string other = text::ToUpper(name);
  return other != name ? other : text::ToLower(name);
}

}  // namespace

int ForecastFolders::Of(std::string_view path) {
  const int on_disk = OnDisk(path);
  return on_disk != kNone ? on_disk : Below(path);
}

int ForecastFolders::OnDisk(std::string_view path) {
  const auto identity = files_.IdentifyFolder(path);
  if (!identity) return kNone;
  const auto number = static_cast<int>(folders_.size());
  const auto [known, added] = by_inode_.try_emplace({identity->device, identity->inode}, number);
  if (added) {
    std::string whole(path);
    if (!whole.ends_with(kSeparator)) whole += kSeparator;
    folders_.push_back({files_.ResolveFolder(whole), kNone, true, {}});
  }
  return known->second;
}

/// What is not on the disk is looked for level by level.
int ForecastFolders::Below(std::string_view path) {
  const std::string_view bare = mMain::GetPathWithNoSlash(path);
  const std::size_t at = bare.rfind(kSeparator);
  if (at == bare.npos || at + 1 == path.size()) return kNone;
  const int parent = Of(bare.substr(0, at + 1));
  const std::string_view name = bare.substr(at + 1);
  if (parent == kNone || name.empty() || name == ".") return parent;
  if (name != "..") return Made(parent, name);
  const Folder& folder = folders_[static_cast<std::size_t>(parent)];
  return folder.on_disk ? kNone : folder.parent;
}

void ForecastFolders::Make(int parent, std::string_view name) {
  made_.emplace(parent, std::pair(std::string(name), static_cast<int>(folders_.size())));
  folders_.push_back({{}, parent, false, {}});
}

int ForecastFolders::Made(int parent, std::string_view name) {
  const auto [begin, end] = made_.equal_range(parent);
  for (auto one = begin; one != end; ++one) {
    if (AreOne(parent, one->second.first, name)) return one->second.second;
  }
  return kNone;
}

bool ForecastFolders::MadeFits(int parent, std::string_view pattern) const {
  const auto [begin, end] = made_.equal_range(parent);
  return std::any_of(begin, end,
                     [&](const auto& one) { return FitsPattern(one.second.first, pattern); });
}

std::string ForecastFolders::DiskPath(int folder, std::string_view name) const {
  const Folder& its = folders_[static_cast<std::size_t>(folder)];
  return its.on_disk ? its.path + std::string(name) : std::string();
}

bool ForecastFolders::AreOne(int folder, std::string_view a, std::string_view b) {
  if (a == b) return true;
  const bool may_be = text::IsAscii(a) && text::IsAscii(b) ? text::EqualIgnoringCase(a, b)
                                                           : text::NameKey(a) == text::NameKey(b);
  if (!may_be) return false;
  const std::string first = DiskPath(folder, a), second = DiskPath(folder, b);
  if (!first.empty()) {
    if (files_.IsSameEntry(first, second)) return true;
    if (files_.Look(first) || files_.Look(second)) return false;
  }
  // What takes letter cases for one needn't take two ways to write an accent for one.
  return text::EqualIgnoringCase(a, b) && IsCaseBlind(folder);
}

/// By an entry that is there; where there is none, as the folder above.
bool ForecastFolders::IsCaseBlind(int folder) {
  if (folder == kNone) return false;
  Folder& its = folders_[static_cast<std::size_t>(folder)];
  if (its.case_blind) return *its.case_blind;
  if (its.on_disk) its.case_blind = SeenCaseBlind(its.path);
  if (!its.case_blind) {
    const std::string_view bare = mMain::GetPathWithNoSlash(its.path);
    const bool above = its.on_disk && bare.size() > kNative.rootLength;
    const bool answer =
        IsCaseBlind(above ? OnDisk(bare.substr(0, bare.rfind(kSeparator) + 1)) : its.parent);
    folders_[static_cast<std::size_t>(folder)].case_blind = answer;
    return answer;
  }
  return *its.case_blind;
}

std::optional<bool> ForecastFolders::SeenCaseBlind(const std::string& path) {
  FolderEntries found;
  files_.List(
      path, [] { return false; }, found);  // the first few do
  for (const FolderEntries::Entry& entry : found.entries) {
    const std::string other = OtherCase(entry.name);
    if (other == entry.name || LastName(other) != other) continue;
    return files_.IsSameEntry(path + std::string(entry.name), path + other);
  }
  return std::nullopt;
}
