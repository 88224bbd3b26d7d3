#pragma once

#include <cstdint>
#include <vector>

#include "platform/folder_handles.h"

/// File systems, by device number, found to lack something; forgotten with the process.
class DeviceSet {
 public:
  bool Has(std::uint64_t device) const;
  void Add(std::uint64_t device);

 private:
  std::vector<std::uint64_t> devices_;  ///< few; searched from the front
};

/// True when `place` now holds the entry with the inode of `facts`.
bool HoldsInode(const Syscalls& calls, const Place& place, const struct stat& facts);

/// Unlinks `place` if it still holds the inode of `facts`: for taking back what we made.
void TakeBack(const Syscalls& calls, const Place& place, const struct stat& facts);

/// Renames and never replaces, on file systems without that call too.
class RenameNoReplace {
 public:
  explicit RenameNoReplace(const Syscalls& calls) : calls_(calls) {}

  /// Gives the entry at `from` the name `to`. 0, EEXIST when anything stands at `to`, or another
  /// errno; then both are as they were. Ended from outside between two steps of a fallback, the
  /// entry is under both names, or under its old one beside an empty file under the new.
  int operator()(const Place& from, const Place& to);

 private:
  int WithoutTheFlag(const Place& from, const Place& to);
  int ByHardLink(const Place& from, const Place& to, const struct stat& source);
  int OverPlaceholder(const Place& from, const Place& to, const struct stat& source);
  int FileOverPlaceholder(const Place& from, const Place& to);
  int FolderOverPlaceholder(const Place& from, const Place& to);

  const Syscalls& calls_;
  DeviceSet without_flag_;
};
