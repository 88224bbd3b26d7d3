#include "platform/posix/entry_facts.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <forward_list>
#include <iterator>

#include "platform/posix/folder_handles.h"
#include "platform/posix/folder_listing.h"

namespace {

constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME;

std::int64_t Nanoseconds(const struct statx_timestamp& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

/// What the numbers of a file system, and its answers, are worth.
struct NumberFacts {
  std::uint64_t device = 0;
  bool births_stay = true;
  bool inodes_stay = true;
  bool answers_once = false;
};

/// The usual ones of disks and memory (linux/magic.h and each's own header): ext2 to ext4, XFS,
/// Btrfs, tmpfs, F2FS, bcachefs, overlayfs, the FAT family.
bool IsThisMachines(long type) {
  constexpr long kTypes[] = {0xef53,     0x58465342, 0x9123683e, 0x01021994, 0xf2f52010,
                             0xca451a4e, 0x794c7630, 0x4d44,     0x2011bab0};
  return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

/// overlayfs tells the birth of the file behind, which the first change of it replaces by a copy
/// (Documentation/filesystems/overlayfs.rst). The FAT family has no inode numbers on disk: a folder
/// gets a new one whenever the kernel had forgotten it (fs/fat/inode.c, iunique).
NumberFacts AskForNumberFacts(const Syscalls& calls, std::uint64_t device, int handle) {
  constexpr long kOverlay = 0x794c7630, kFat = 0x4d44, kExfat = 0x2011bab0;  // linux/magic.h
  struct statfs facts;
  if (ErrorOf([&] { return calls.fstatfs(handle, &facts); }) != 0) return {device, false, true};
  const long type = facts.f_type;
  return {device, type != kOverlay, type != kFat && type != kExfat, IsThisMachines(type)};
}

std::forward_list<NumberFacts> known_devices;  // few

/// `handle` is open on that device. Asked once a device and pass.
const NumberFacts& NumberFactsOf(const Syscalls& calls, std::uint64_t device, int handle) {
  for (const NumberFacts& facts : known_devices) {
    if (facts.device == device) return facts;
  }
  return known_devices.emplace_front(AskForNumberFacts(calls, device, handle));
}

void DropUnsureBirth(const Syscalls& calls, std::uint64_t open_device, int handle,
                     struct statx& facts) {
  const bool sure =
      DeviceOf(facts) == open_device && NumberFactsOf(calls, open_device, handle).births_stay;
  if (!sure) facts.stx_mask &= ~static_cast<unsigned>(STATX_BTIME);
}

/// Where the file system keeps no time of birth, the mask says so (statx(2)).
std::int64_t BornOf(const struct statx& facts) {
  return (facts.stx_mask & STATX_BTIME) != 0 ? Nanoseconds(facts.stx_btime) : 0;
}

}  // namespace

void ForgetNumberFacts() {
  known_devices.clear();
}

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

Fingerprint FingerprintOf(const struct statx& facts) {
  return S_ISREG(facts.stx_mode) ? FingerprintOf(IdentityOf(facts)) : 0;
}

FileTimes TimesOf(const struct statx& facts) {
  return {{{facts.stx_atime.tv_sec, facts.stx_atime.tv_nsec},
           {facts.stx_mtime.tv_sec, facts.stx_mtime.tv_nsec}}};
}

bool IsSameFile(const FileIdentity& a, const FileIdentity& b) {
  return a.device == b.device && a.inode == b.inode && FitsBirth(a.born_ns, b.born_ns);
}

/// AT_NO_AUTOMOUNT: a look must not mount anything (statx(2)).
int LookAt(const Syscalls& calls, const Place& place, struct statx& facts, bool follow) {
  const int how = AT_NO_AUTOMOUNT | (follow ? 0 : AT_SYMLINK_NOFOLLOW);
  const int error =
      ErrorOf([&] { return calls.statx(place.at(), place.c_name(), how, kWanted, &facts); });
  if (error == 0) DropUnsureBirth(calls, place.folder->identity.device, place.at(), facts);
  return error;
}

int LookInto(const Syscalls& calls, int handle, struct statx& facts) {
  const int error =
      ErrorOf([&] { return calls.statx(handle, "", AT_EMPTY_PATH, kWanted, &facts); });
  if (error == 0) DropUnsureBirth(calls, DeviceOf(facts), handle, facts);
  return error;
}

bool IsExpectedFolder(const Syscalls& calls, const Folder& folder, const FolderIdentity& expected) {
  const FolderIdentity& seen = folder.identity;
  if (seen == expected) return true;
  return seen.device == expected.device && seen.born_ns == expected.born_ns && seen.born_ns != 0 &&
         !NumberFactsOf(calls, seen.device, folder.handle.get()).inodes_stay;
}

bool AnswersOnce(const Syscalls& calls, const Folder& folder) {
  return NumberFactsOf(calls, folder.identity.device, folder.handle.get()).answers_once;
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

bool AreOneEntry(const Syscalls& calls, const Place& first, const Place& second) {
  struct statx facts;
  if (LookAt(calls, first, facts) != 0) return false;
  if (StandingAt(calls, second, IdentityOf(facts)) != Standing::kThatFile) return false;
  if (!S_ISDIR(facts.stx_mode) && facts.stx_nlink == 1) return true;
  const NamePair names = CompareEntries(calls, first, second);
  return names == NamePair::kOneAsInFirst || names == NamePair::kOneAsInSecond;
}
