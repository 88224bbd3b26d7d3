#include "filelist/system_folder.h"

#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

bool Contains(std::string_view path, std::string_view part, PathStyle style) {
  if (style == kPosix && part.starts_with(style.separator)) return path.starts_with(part);
  return path.find(part) != path.npos;
}

}  // namespace

std::string SystemFolder(std::string_view pSourcePath,
                         const std::vector<std::string>& system_folders, PathStyle style) {
  return ErrTrace::inner("Form1.SystemFolder(pSourcePath)", ErrTrace::args(pSourcePath), [&] {
    const std::string source = text::ToLower(pSourcePath);
    std::string above, below;
    for (const std::string& path : system_folders) {
      const std::string folder = mScanCD::NormalizePath(text::ToLower(path), style);
      if (source == folder) return path;
      if (Contains(source, folder, style)) above += path + "\n";
      if (Contains(folder, source, style)) below += path + "\n";
    }
    return above + below;
  });
}
