#pragma once

#include <string_view>

/// A file name parted at its last dot, and a new name cleaned. A name that begins with a dot has
/// no special treatment: ".hidden" has an empty stem.
namespace mMain {

/// What stands behind the last `point`; empty without one. Points into `sFullPath`.
std::string_view GetFileExt(std::string_view sFullPath, std::string_view point);

/// What stands before the last ".", or all of `sFullPath` without one. Points into `sFullPath`.
std::string_view GetFileName(std::string_view sFullPath);

/// `sName` without the dots and blanks at its right end. Points into `sName`.
std::string_view NormalizeExt(std::string_view sName);

}  // namespace mMain
