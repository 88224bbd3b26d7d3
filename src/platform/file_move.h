#pragma once

#include "platform/file_copy.h"
#include "platform/folder_handles.h"
#include "platform/rename_no_replace.h"

/// Moves one entry to another name, folder or file system, and never onto an existing one.
class FileMove {
 public:
  FileMove(const Syscalls& calls, RenameNoReplace& rename, FileCopy& copy)
      : calls_(calls), rename_(rename), copy_(copy) {}

  /// 0 or errno; then the entry is where it was. Onto itself, and to the same directory entry
  /// under another letter case or Unicode form, is done. To another file system go regular files
  /// and symbolic links only.
  int Move(const Place& from, const Place& to, const GoOn& go_on);

  /// Whether two names in one folder are one directory entry.
  bool IsSameEntry(const Place& from, const Place& to);

 private:
  bool KeptItsName(const Place& from, const Place& to);
  int InTwoSteps(const Place& from, const Place& to);
  int ToOtherDevice(const Place& from, const Place& to, const GoOn& go_on);
  int FileToOtherDevice(const Place& from, const Place& to, const GoOn& go_on);
  int LinkToOtherDevice(const Place& from, const Place& to, const struct stat& source);
  int RemoveSource(const Place& from, const FileIdentity& source);

  const Syscalls& calls_;
  RenameNoReplace& rename_;
  FileCopy& copy_;
};
