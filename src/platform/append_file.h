#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_handle.h"

/// A file that is written at its end only and held by a lock meanwhile, so that the texts of two
/// programs don't mix.
class AppendFile {
 public:
  /// Opens the file at `path`, or makes it. Only a regular file of the user's own, with no second
  /// name, in a folder of the user's own, and neither may be a link: what stands there by
  /// another's hand isn't written to. The folders above are the user's choice, links included.
  ///
  /// Nothing when that fails; errno says why, EWOULDBLOCK that another program holds the file's
  /// lock (flock(2)). Where a file system knows no locks, none is needed. Never waits.
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
