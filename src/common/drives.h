#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/path_text.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/system_facts.h"

namespace mScanCD {

/// True when an entry of any kind, or one that the wildcards in the last name match, is there.
bool FileExist(FileSystem& files, std::string_view FilePath);

/// True when an entry of any kind is there; "*" and "?" are what they are. A text of a root's
/// length is there without asking. Pass the path without its closing separator, else it is never
/// found.
bool FolderExist(FileSystem& files, std::string_view folderPath, PathStyle style = kNative);

}  // namespace mScanCD

namespace DriveStuff {

/// The roots of all drives. In POSIX style there is one.
std::vector<std::string> GetDriveNames(FileSystem& files, PathStyle style = kNative);

/// Of the volume at `strDrive`, by `iType`: 1 its serial number, eight hexadecimal digits with "-"
/// in the middle; 2 its name, empty when it has none; 3 the name of its file system. Nothing for
/// any other type and when the drive can't be read. Only types 1 and 3 ask `facts`.
std::optional<std::string> GetDriveInfo(FileSystem& files, std::string_view strDrive, int iType,
                                        SystemFacts* facts = nullptr);

}  // namespace DriveStuff

namespace mDrive {

/// Why `pName` can't be reached, in the program's words; "" when it can. The path itself is looked
/// for only with `pCheckPath`.
std::string_view FileManager3(FileSystem& files, std::string_view pName, bool pIsFile,
                              bool pCheckPath, PathStyle style = kNative);

}  // namespace mDrive

namespace mMain {

/// The folder to list for `path`, absolute and with its closing separator: that at `path`, or the
/// one that holds the entry there. Nothing when there is no such entry. A relative path starts from
/// the working folder.
std::optional<std::string> FolderOf(FileSystem& files, std::string_view path,
                                    PathStyle style = kNative);

/// Whether `pName` can be reached; if not, tells the user why.
bool FileManager(FileSystem& files, Prompts& prompts, std::string_view pName,
                 PathStyle style = kNative);

}  // namespace mMain
