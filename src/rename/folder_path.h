#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/files.h"

/// Makes one folder level; false ends the making of the path.
using MakeFolder = std::function<bool(const std::string& level)>;

/// Makes each missing level of `path`, which is absolute and has no closing separator, by `make`.
/// Answers why its drive can't be reached, or "". Whether a level could be made is not told.
std::string_view CreateFolderPath(FileSystem& files, std::string_view path, const MakeFolder& make,
                                  PathStyle style = kNative);
