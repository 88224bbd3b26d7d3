#pragma once

#include <sys/stat.h>

#include <array>
#include <cstdint>

#include "platform/files.h"
#include "platform/posix/syscalls.h"

struct Folder;
struct Place;

/// What is known of devices by their numbers: a medium that is gone may leave its number to another.
void ForgetNumberFacts();

std::uint64_t DeviceOf(const struct statx& facts);
FileIdentity IdentityOf(const struct statx& facts);
FolderIdentity FolderIdentityOf(const struct statx& facts);

/// The fingerprint of a regular file, else 0.
Fingerprint FingerprintOf(const struct statx& facts);

/// The times of the last reading and writing, as utimensat(2) takes them.
using FileTimes = std::array<struct timespec, 2>;
FileTimes TimesOf(const struct statx& facts);

/// Whether both are one file, written to in between or not.
bool IsSameFile(const FileIdentity& a, const FileIdentity& b);

/// Asks for the facts of the entry itself at `place`, or, with `follow`, of what a link there
/// points to. 0 or errno.
int LookAt(const Syscalls& calls, const Place& place, struct statx& facts, bool follow = false);

/// Asks for the facts of what is open as `handle`. 0 or errno.
int LookInto(const Syscalls& calls, int handle, struct statx& facts);

/// Whether an open folder is the one that was seen before. Where inode numbers don't stay, its time
/// of birth tells.
bool IsExpectedFolder(const Syscalls& calls, const Folder& folder, const FolderIdentity& expected);

/// Whether the file system of an open folder is this machine's own, which says of an entry that it
/// isn't there only where it isn't. One behind a server, or in user space, may rename, lose its
/// answer, try again, and find nothing left to rename.
bool AnswersOnce(const Syscalls& calls, const Folder& folder);

/// What stands under a name, seen from one file.
enum class Standing : std::uint8_t { kNothing, kThatFile, kAnother, kUnknown };
Standing StandingAt(const Syscalls& calls, const Place& place, const FileIdentity& file);

/// Two names of one folder, seen from the directory entries behind them.
enum class NamePair : std::uint8_t {
  kUnknown,
  kTwoEntries,     ///< or fewer; two hard links are two
  kOneAsInFirst,   ///< one entry, listed under the first name or under a third form of it
  kOneAsInSecond,  ///< one entry, listed under the second name
};

/// Whether the two names of one folder, which differ, lead to one entry. A file that has no second
/// link needs no look into the folder for that.
bool AreOneEntry(const Syscalls& calls, const Place& first, const Place& second);

/// Both names are in `first.folder`, and differ. Lists the folder if they lead to one file.
NamePair CompareEntries(const Syscalls& calls, const Place& first, const Place& second);
