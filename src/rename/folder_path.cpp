#include "rename/folder_path.h"

#include <vector>

#include "common/drives.h"
#include "platform/text.h"
#include "trace/err_trace.h"

std::string_view CreateFolderPath(FileSystem& files, std::string_view path, const MakeFolder& make,
                                  PathStyle style) {
  return ErrTrace::inner(
      "mScanCD.CreateFolderPath(path)", ErrTrace::args(path), [&]() -> std::string_view {
        std::string level;
        for (const std::string_view part : text::Split(path, {&style.separator, 1})) {
          const bool is_root = level.empty();
          if (!is_root && !level.ends_with(style.separator)) level += style.separator;
          level += part;
          if (is_root) level += style.separator;
          const std::string_view refusal = mDrive::FileManager3(files, path, false, false, style);
          if (!refusal.empty()) return refusal;
          if (!mScanCD::FolderExist(files, level, style) && !make(level)) return "";
        }
        return "";
      });
}
