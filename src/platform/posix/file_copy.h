#pragma once

#include "platform/posix/entry_names.h"
#include "platform/posix/file_data.h"
#include "platform/posix/folder_handles.h"

/// Makes whole copies of regular files: written where nobody sees them, then given their name by
/// an operation that can't replace. The final name is never opened for writing.
class FileCopy {
 public:
  enum class Purpose : std::uint8_t {
    kCopy,  ///< follows a link, belongs to the user
    kMove,  ///< takes what is there itself, keeps the owner, is on the disk when done
  };

  FileCopy(const Syscalls& calls, EntryNames& names) : calls_(calls), names_(names), data_(calls) {}

  /// 0; EEXIST when anything stands at `to`; ECANCELED when `go_on` asked to stop; kSourceChanged;
  /// or another errno. But for 0 nothing is left of it.
  int Copy(const Place& from, const Place& to, Purpose purpose, const GoOn& go_on,
           CopyIdentities& copied);

  CopyWatch watch;  ///< see FileSystem::WatchCopies

 private:
  /// A file being written has no name at all, so that nothing can be left of it; or, where that
  /// can't be, a temporary one.
  enum class Way : std::uint8_t { kNameless, kNamed };
  struct Target {
    FileHandle file;
    Place temporary;  ///< no place when nameless
  };

  int OpenSource(const Place& from, Purpose purpose, FileHandle& file, struct statx& facts);
  int CopyOpened(int from, const struct statx& source, const Place& to, Purpose purpose,
                 const GoOn& go_on, FileIdentity& made);
  int CopyBy(Way way, int from, const struct statx& source, const Place& to, Purpose purpose,
             const GoOn& go_on, FileIdentity& made);
  int OpenTarget(Way way, const struct statx& source, const Place& to, Target& target);
  int OpenNamed(const Place& to, Target& target);
  void Drop(const Target& target);
  int CopyAndSync(int from, const struct statx& source, int to, const GoOn& go_on);
  int Fill(int from, const struct statx& source, int to, Purpose purpose, const GoOn& go_on,
           struct statx& made);
  int Finish(int file, Purpose purpose);
  int GiveName(const Target& target, const struct statx& facts, const Place& to);
  int Link(int file, const Place& to);
  int SyncFolder(const Place& to, int file);

  const Syscalls& calls_;
  EntryNames& names_;
  FileData data_;
  DeviceSet without_nameless_;
  bool links_by_handle_ = true;
};
