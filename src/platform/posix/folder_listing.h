#pragma once

#include <string_view>

#include "platform/files.h"
#include "platform/posix/folder_handles.h"

/// Reads all entries of `folder` into `entries`, emptied first, but for ".", ".." and what
/// a living process has in the making. 0, or the errno of what ended it; ECANCELED when `go_on`
/// did. What was read so far is in `entries` then. No handle stays open.
int ListFolder(const Syscalls& calls, const Folder& folder, const GoOn& go_on,
               FolderEntries& entries);

/// Whether an entry of exactly these bytes is listed, whatever the file system takes for equal
/// when a name is looked up. 0, ENOENT or another errno.
int IsListed(const Syscalls& calls, const Folder& folder, std::string_view name);

/// Whether nothing at all is listed but "." and "..". 0, ENOTEMPTY or another errno.
int IsEmptyFolder(const Syscalls& calls, const Folder& folder);
