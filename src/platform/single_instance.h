#pragma once

#include <string>

#include "platform/file_handle.h"

/// Keeps a second copy of the program from starting for the same user.
///
/// The mark is a lock on a file (flock(2)), which the kernel takes away when the process ends in
/// whatever way; the file itself stays and means nothing. Programs that this one starts don't
/// inherit the lock.
class SingleInstance {
 public:
  /// Tries for the lock on "quorvane.lock" in `folder`, for as long as this object lives.
  explicit SingleInstance(const std::string& folder);

  /// True when another process holds the lock. False when this one does, and also when the lock
  /// can't be made (no folder, a read-only or full disk): two copies are better than none.
  bool AnotherRuns() const { return another_runs_; }

 private:
  FileHandle file_;
  bool another_runs_ = false;
};

/// The folder for the lock: XDG_RUNTIME_DIR when that is an absolute path, else a folder of this
/// user alone in TMPDIR or /tmp, which is made here. "" when that one can't be made, or isn't the
/// user's own.
std::string InstanceFolder();
