#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How paths are written: what parts their levels, and how long a root is.
struct PathStyle {
  char separator;
  std::size_t rootLength;  ///< characters of a root such as "/" or "C:\"
  bool operator==(const PathStyle&) const = default;
};
inline constexpr PathStyle kPosix{'/', 1};
inline constexpr PathStyle kDrive{'\\', 3};
#ifdef _WIN32
inline constexpr PathStyle kNative = kDrive;
#else
inline constexpr PathStyle kNative = kPosix;
#endif

namespace mMain {

/// The last of two or more pieces of `sFullPath` between every `point`; else "".
std::string_view SplitingFolder(std::string_view sFullPath, std::string_view point);

/// `sBrowse` without one closing separator.
std::string_view GetPathWithNoSlash(std::string_view sBrowse, PathStyle style = kNative);

/// The last name of a folder path, with or without its closing separator; a root has "".
std::string_view LastFolderName(std::string_view path, PathStyle style = kNative);

/// Whether the path begins at a root.
bool IsAbsolutePath(std::string_view path, PathStyle style = kNative);

/// `path` with the user's folder `home` in place of a "~" that stands alone, which then has its
/// closing separator, or before a separator. Any other path as it is.
std::string WithHome(std::string_view path, std::string_view home, PathStyle style = kNative);

/// `path` with every occurrence of the text `from` replaced by `to`, letter case regarded. A drive
/// root can't stand inside a path, "/dev/" can: a `from` that begins at a POSIX root is replaced
/// at the start of `path` only. An empty `from` answers `path`.
std::string ReplacePathText(std::string_view path, std::string_view from, std::string_view to,
                            PathStyle style = kNative);

}  // namespace mMain

namespace mCommon {

/// "." and the last of two or more pieces of `sFullPath` between every `point`; else "".
std::string Spliting(std::string_view sFullPath, std::string_view point);

}  // namespace mCommon

namespace mScanCD {

/// `sPath` with one closing separator; an empty text stays empty.
std::string NormalizePath(std::string_view sPath, PathStyle style = kNative);

}  // namespace mScanCD
