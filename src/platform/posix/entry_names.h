#pragma once

#include <cstdint>

#include "platform/posix/device_set.h"
#include "platform/posix/entry_facts.h"
#include "platform/posix/folder_handles.h"

/// What a file must have in common with the one that is meant.
enum class Match : std::uint8_t {
  kSameFile,   ///< it may have been written to
  kUnwritten,  ///< its size and the time of its last write too
};

/// Gives names and takes them away, and never one that is somebody else's.
///
/// An answer is not the fact: a call may be carried out and still answer an error, as over a
/// network. So after every error it is looked what stands where, and that is what is told.
class EntryNames {
 public:
  explicit EntryNames(const Syscalls& calls) : calls_(calls) {}

  /// Gives the entry at `from`, which is `source`, the name `to`, on file systems that have no call
  /// for it too. 0, EEXIST when anything stands at `to`, or another errno; then both are as they
  /// were. Of two names that differ in letter case only, where that is ignored, the answer is the
  /// call's own. Ended from outside between two steps of a fallback, the entry is under both names,
  /// or under its old one beside an empty file under the new.
  int Rename(const Place& from, const Place& to, const struct statx& source);

  /// The one call of it, and nothing looked at: 0 or its errno, EINTR too, and ENOSYS where it is
  /// known to lack.
  int RenameUnseen(const Place& from, const Place& to);

  /// Whether that errno tells that there is no such call here.
  static bool LacksTheCall(int error);

  /// The same to a new temporary name in the same folder, which goes into `aside`.
  int RenameAside(const Place& from, const struct statx& source, Place& aside);

  /// Deletes the entry at `place`, an empty folder included, only if it is `wanted`. It is moved
  /// aside first and looked at there: whatever else got that name since the look keeps it, or keeps
  /// the temporary name if the other was taken again. Only where a full disk has no room for a
  /// second name it is deleted right after a look. 0; kSourceChanged when it isn't `wanted`; or
  /// errno. But for 0 the entry is where it was.
  int Remove(const Place& place, const FileIdentity& wanted, Match match);

  /// Deletes an empty file or folder at `place`, or a link under a temporary name, where nothing
  /// stood before we tried to make one of these and could not learn whether we did.
  void RemoveUncertain(const Place& place);

 private:
  /// By renaming alone nothing has to be deleted: so deleting can move aside, and back.
  enum class Ways : std::uint8_t { kAll, kRenaming };

  int RenameBy(Ways ways, const Place& from, const Place& to, const struct statx& source);
  int WithoutTheFlag(Ways ways, const Place& from, const Place& to, const struct statx& source);
  bool WasRenamed(const Place& from, const Place& to, const struct statx& source);
  int Link(const Place& from, const Place& to, const struct statx& source);
  int UnlinkOld(const Place& from, const Place& to, const struct statx& source);
  int OverPlaceholder(Ways ways, const Place& from, const Place& to, const struct statx& source);
  int MakePlaceholder(const Place& at, bool folder, FileIdentity& made);
  int MakeEmptyFile(const Place& at, FileHandle& file);
  int LookFor(const Place& place, const FileIdentity& wanted, Match match, struct statx& facts);
  int Unlink(const Place& place, const struct statx& facts);

  const Syscalls& calls_;
  DeviceSet without_flag_;
};
