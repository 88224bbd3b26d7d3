#pragma once

#include <string>
#include <string_view>

#include "common/path_text.h"
#include "platform/files.h"

/// Makes each missing level of `path`, which is absolute and has no closing separator. Answers why
/// its drive can't be reached, or "". Whether a level could be made is not told.
std::string_view CreateFolderPath(FileSystem& files, std::string_view path,
                                  PathStyle style = kNative);
