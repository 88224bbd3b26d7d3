#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/syscalls.h"

/// A file that is written at its end only and held by a lock meanwhile, so that the texts of two
/// programs don't mix.
class AppendFile {
 public:
  /// Opens the file at `path`, or makes it. Nothing when that fails and when another program holds
  /// the file's lock (flock(2)); where a file system knows no locks, none is needed. Never waits.
  static std::optional<AppendFile> Open(const std::string& path);

  /// Whether the file was there before.
  bool Existed() const { return existed_; }

  /// Writes `text` behind what is there; false when not all of it could be written.
  bool Append(std::string_view text);

 private:
  AppendFile(FileHandle handle, bool existed) : handle_(std::move(handle)), existed_(existed) {}

  FileHandle handle_;
  bool existed_;
};
