#include "platform/entry_facts.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

#include "platform/folder_handles.h"
#include "platform/folder_listing.h"

namespace {

constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME;

std::int64_t Nanoseconds(const struct statx_timestamp& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// Where the file system keeps no time of birth, the mask says so (statx(2)).
std::int64_t BornOf(const struct statx& facts) {
  return (facts.stx_mask & STATX_BTIME) != 0 ? Nanoseconds(facts.stx_btime) : 0;
}

}  // namespace

std::uint64_t DeviceOf(const struct statx& facts) {
  return makedev(facts.stx_dev_major, facts.stx_dev_minor);
}

FileIdentity IdentityOf(const struct statx& facts) {
  return {DeviceOf(facts), facts.stx_ino, facts.stx_size, Nanoseconds(facts.stx_mtime),
          BornOf(facts)};
}

FolderIdentity FolderIdentityOf(const struct statx& facts) {
  return {DeviceOf(facts), facts.stx_ino, BornOf(facts)};
}

FileTimes TimesOf(const struct statx& facts) {
  return {{{facts.stx_atime.tv_sec, facts.stx_atime.tv_nsec},
           {facts.stx_mtime.tv_sec, facts.stx_mtime.tv_nsec}}};
}

bool IsSameFile(const FileIdentity& a, const FileIdentity& b) {
  return a.device == b.device && a.inode == b.inode && a.born_ns == b.born_ns;
}

/// AT_NO_AUTOMOUNT: a look must not mount anything (statx(2)).
int LookAt(const Syscalls& calls, const Place& place, struct statx& facts, bool follow) {
  const int how = AT_NO_AUTOMOUNT | (follow ? 0 : AT_SYMLINK_NOFOLLOW);
  return ErrorOf([&] { return calls.statx(place.at(), place.c_name(), how, kWanted, &facts); });
}

int LookInto(const Syscalls& calls, int handle, struct statx& facts) {
  return ErrorOf([&] { return calls.statx(handle, "", AT_EMPTY_PATH, kWanted, &facts); });
}

Standing StandingAt(const Syscalls& calls, const Place& place, const FileIdentity& file) {
  struct statx facts;
  switch (LookAt(calls, place, facts)) {
    case 0:
      return IsSameFile(IdentityOf(facts), file) ? Standing::kThatFile : Standing::kAnother;
    case ENOENT:
      return Standing::kNothing;
    default:
      return Standing::kUnknown;
  }
}

/// Two names that lead to one file are one entry if only one of them is listed; if both are, they
/// are hard links and two files to the user.
NamePair CompareEntries(const Syscalls& calls, const Place& first, const Place& second) {
  struct statx facts;
  const int looked = LookAt(calls, first, facts);
  if (looked != 0) return looked == ENOENT ? NamePair::kTwoEntries : NamePair::kUnknown;
  const Standing standing = StandingAt(calls, second, IdentityOf(facts));
  if (standing == Standing::kUnknown) return NamePair::kUnknown;
  if (standing != Standing::kThatFile) return NamePair::kTwoEntries;

  const int second_listed = IsListed(calls, *second.folder, second.name);
  if (second_listed == ENOENT) return NamePair::kOneAsInFirst;
  const int first_listed = IsListed(calls, *first.folder, first.name);
  if (second_listed != 0 || (first_listed != 0 && first_listed != ENOENT))
    return NamePair::kUnknown;
  return first_listed == ENOENT ? NamePair::kOneAsInSecond : NamePair::kTwoEntries;
}
