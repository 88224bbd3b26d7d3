#pragma once

#include <cstdint>
#include <string>

enum class FolderUse : std::uint8_t { kRead, kWrite };

/// What would keep a path from being used as a folder.
enum class FolderState : std::uint8_t {
  kUsable,
  kMissing,  ///< nothing stands there; to write, it can be made
  kIsFile,
  kBehindFile,  ///< nothing can stand there, since a file does on the way
  kClosed,      ///< the right is lacking, to write also that to make it
  kUnknown,
};

/// The state of the folder `path`, which is absolute, links followed. Any thread may call it, and
/// wait there for a disk that doesn't answer.
FolderState StateOfFolder(const std::string& path, FolderUse use);
