#pragma once

#include "platform/posix/entry_names.h"
#include "platform/posix/file_copy.h"
#include "platform/posix/folder_handles.h"

/// Nothing was done, and no errno tells why: it must be looked at first.
inline constexpr int kNotAtOnce = -1000;

/// Moves one entry to another name, folder or file system, and never onto an existing one.
class FileMove {
 public:
  FileMove(const Syscalls& calls, EntryNames& names, FileCopy& copy)
      : calls_(calls), names_(names), copy_(copy) {}

  /// 0, kSourceChanged or errno; then the entry is where it was. Onto itself, and to the same
  /// directory entry under another letter case or Unicode form, is done. To another file system go
  /// regular files and symbolic links only. If somebody replaces the source in the midst of that,
  /// it is not done, and the copy stays beside what is there now: it may be the last.
  int Move(const Place& from, const Place& to, const GoOn& go_on, Fingerprint& moved);

  /// A file whose fingerprint is `known` takes another name by one call, and only when that fails,
  /// or the file system may take both names for one, it is looked what stands where. 0, an errno
  /// that `Move` would answer too, or kNotAtOnce; then the file is where it was.
  int AtOnce(const Place& from, const Place& to, Fingerprint known);

 private:
  int Settle(const Place& from, const Place& to);
  bool Stands(const Place& place, Fingerprint known);
  int InTwoSteps(const Place& from, const Place& to, const struct statx& source);
  int ToOtherDevice(const Place& from, const Place& to, const struct statx& source,
                    const GoOn& go_on);
  int MakeLink(const Place& from, const struct statx& source, const Place& to, struct statx& made);
  int RemoveSource(const Place& from, const Place& to, const CopyIdentities& copied);

  const Syscalls& calls_;
  EntryNames& names_;
  FileCopy& copy_;
};
