#include <algorithm>
#include <charconv>
#include <functional>

#include "platform/name_pattern.h"
#include "platform/text.h"
#include "rename/forecast.h"
#include "rename/holders.h"

// What would stand on the disk by now, and which number is free there.

namespace {

constexpr std::size_t kMostDigits = 19;       // what std::uint64_t surely holds
constexpr std::size_t kMostUntried = 10'000;  // a memory for speed only

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t SeriesHash(int folder, std::string_view head, std::string_view tail) {
  const std::hash<std::string_view> hash;
  return (hash(head) * 31 + hash(tail)) * 31 + static_cast<std::size_t>(folder);
}

}  // namespace

bool Forecast::Exists(int folder, std::string_view name) {
  if (name.empty()) return false;
  if (name == "." || name == "..") return true;
  return ExistsExactly(folder, name) || (HasWildcards(name) && MatchExists(folder, name));
}

bool Forecast::ExistsExactly(int folder, std::string_view name) {
  if (IsTaken(folder, name) || folders_.Made(folder, name) != kNone) return true;
  const std::string path = folders_.DiskPath(folder, name);
  if (path.empty()) return false;
  const bool there = HasWildcards(name) ? files_.Look(path).has_value() : files_.Exists(path);
  return there && !IsGone(folder, name);
}

/// Rare, so everything is looked through.
bool Forecast::MatchExists(int folder, std::string_view pattern) {
  if (folders_.MadeFits(folder, pattern)) return true;
  for (std::size_t record = 0; record < records_.Count(); ++record) {
    const Place& place = targets_of_[records_[record].folder];
    if ((said_[record] & kDone) == 0 || place.folder != folder) continue;
    if (FitsPattern(place.prefix + TargetName(record), pattern)) return true;
  }
  for (const auto& [record, name] : aside_) {
    if (FolderOf(records_[record]) == folder && FitsPattern(name, pattern)) return true;
  }
  const std::string path = folders_.DiskPath(folder, pattern);
  if (path.empty() || !files_.Exists(path)) return false;
  FolderEntries found;
  files_.List(
      folders_.DiskPath(folder, ""), [] { return true; }, found);
  return std::any_of(found.entries.begin(), found.entries.end(), [&](const auto& entry) {
    return FitsPattern(entry.name, pattern) && !IsGone(folder, entry.name);
  });
}

/// Whether a row before has put its file there.
bool Forecast::IsTaken(int folder, std::string_view name) {
  const std::size_t key = HolderKey(static_cast<std::size_t>(folder), name);
  const bool taken = targets_.Any(key, [&](std::size_t record) {
    const Place& place = targets_of_[records_[record].folder];
    return place.folder == folder &&
           folders_.AreOne(folder, place.prefix + TargetName(record), name);
  });
  if (taken) return true;
  const auto [begin, end] = by_aside_.equal_range(key);
  return std::any_of(begin, end, [&](const auto& one) {
    return FolderOf(records_[one.second]) == folder &&
           folders_.AreOne(folder, SourceName(one.second), name);
  });
}

/// Whether what the disk has there is a file that has left by then.
bool Forecast::IsGone(int folder, std::string_view name) {
  if (!any_left_ || !HaveSources()) return false;
  return sources_.Any(HolderKey(static_cast<std::size_t>(folder), name), [&](std::size_t record) {
    const FileRow& row = records_[record];
    const bool left = (!keeps_source_ && (said_[record] & kDone) != 0) || aside_.contains(record);
    return left && FolderOf(row) == folder &&
           (row.sourceFileName == name ||
            files_.IsSameEntry(folders_.DiskPath(folder, name),
                               folders_.DiskPath(folder, row.sourceFileName)));
  });
}

std::string_view Forecast::SourceName(std::size_t record) const {
  const auto aside = aside_.find(record);
  return aside == aside_.end() ? std::string_view(records_[record].sourceFileName) : aside->second;
}

std::string Forecast::TargetName(std::size_t record) const {
  const std::string& planned = records_[record].newFileName;
  const auto found = std::lower_bound(numbers_.begin(), numbers_.end(), std::pair(record, 0ul));
  if (found == numbers_.end() || found->first != record) return planned;
  const NumberedNames names = ConflictNames(planned, Texts());
  return names.head + std::to_string(found->second) + names.tail;
}

/// The first number that gives a free name; 0 when there is none. Where texts hold a separator any
/// number will do, since no such name can be.
std::uint64_t Forecast::FreeNumber(const Place& place, const NumberedNames& names) {
  const std::string head = place.prefix + names.head;
  if (!StaysInItsFolder(head + names.tail)) return names.first;
  // Any file that goes may free a candidate with wildcards.
  const bool matches_many = HasWildcards(head + names.tail);
  const std::size_t exact = SeriesHash(place.folder, head, names.tail) + names.first;
  if (untried_.size() > kMostUntried) untried_.clear();
  Untried& untried =
      untried_[SeriesHash(place.folder, text::ToLower(head), text::ToLower(names.tail))];
  if (untried.exact != exact || matches_many || untried.number < names.first) {
    untried = {exact, names.first};
  }
  for (std::uint64_t& number = untried.number; number <= names.last;) {
    const bool taken = Exists(place.folder, head + std::to_string(number) + names.tail);
    if (again_) return 0;
    if (!taken) return number;
    ++number;
    if (!matches_many && !(*goes_on_)()) {
      again_ = true;
      return 0;
    }
  }
  return 0;
}

/// Any digits of the name may be its number.
void Forecast::Freed(int folder, std::string_view name) {
  if (untried_.empty()) return;
  const std::string lower = text::ToLower(name);
  const std::string_view whole = lower;
  for (std::size_t begin = 0; begin < lower.size(); ++begin) {
    if (!IsDigit(lower[begin]) || lower[begin] == '0') continue;
    for (std::size_t end = begin + 1; end - begin <= kMostDigits; ++end) {
      const auto found =
          untried_.find(SeriesHash(folder, whole.substr(0, begin), whole.substr(end)));
      std::uint64_t number = 0;
      std::from_chars(lower.data() + begin, lower.data() + end, number);
      if (found != untried_.end()) found->second.number = std::min(found->second.number, number);
      if (end >= lower.size() || !IsDigit(lower[end])) break;
    }
  }
}
