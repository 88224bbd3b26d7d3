#pragma once

#include <cstddef>
#include <string>

/// What Qt neither looks at nor tells of the file that holds the settings. Paths are raw bytes;
/// links are followed. Errors are errno values, 0 is none.
namespace settings_file {

/// What stands at a path.
struct Place {
  enum Kind { kFree, kFile, kOther, kUnreachable } kind;
  int error = 0;  ///< what keeps a file from being opened there; 0 where a device could be
};

/// Only looks: opening a fifo can wait for ever, and opening a device can do anything. Free is a
/// place where a file can be made, and so no link into a folder that isn't there.
Place Look(const std::string& path);

/// Whether something other than a file has that very name, be it a link.
bool IsBlocked(const std::string& path);

/// Qt tells only that a write beside `path` failed. Why: the error of the same steps, done once
/// more with `size` bytes; 0 if they succeed now.
int ErrorOfWriting(const std::string& path, std::size_t size);

/// Has the names in the folder of `path` on disk; a new name is only then (fsync(2), Notes).
void SyncFolderOf(const std::string& path);

}  // namespace settings_file
