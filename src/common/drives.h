#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/path_text.h"
#include "platform/files.h"
#include "platform/prompts.h"

namespace mScanCD {

/// True when an entry of any kind, or one that the wildcards in the last name match, is there.
bool FileExist(FileSystem& files, std::string_view FilePath);

/// As FileExist, but a text of a root's length is there without asking. Pass the path without its
/// closing separator, else it is never found.
bool FolderExist(FileSystem& files, std::string_view folderPath, PathStyle style = kNative);

}  // namespace mScanCD

namespace DriveStuff {

/// The roots of all drives. In POSIX style there is one.
std::vector<std::string> GetDriveNames(FileSystem& files, PathStyle style = kNative);

/// For `iType` 2 the volume's name; empty when it has none, nothing when the drive can't be read.
/// Nothing for any other type.
std::optional<std::string> GetDriveInfo(FileSystem& files, std::string_view strDrive, int iType);

}  // namespace DriveStuff

namespace mDrive {

/// Why `pName` can't be reached, in the program's words; "" when it can. The path itself is looked
/// for only with `pCheckPath`.
std::string_view FileManager3(FileSystem& files, std::string_view pName, bool pIsFile,
                              bool pCheckPath, PathStyle style = kNative);

}  // namespace mDrive

namespace mMain {

/// Whether `pName` can be reached; if not, tells the user why.
bool FileManager(FileSystem& files, Prompts& prompts, std::string_view pName,
                 PathStyle style = kNative);

}  // namespace mMain
