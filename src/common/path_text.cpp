#include "common/path_text.h"

#include "trace/err_trace.h"

namespace mMain {

std::string_view SplitingFolder(std::string_view sFullPath, std::string_view point) {
  const std::size_t at = sFullPath.rfind(point);
  return at == sFullPath.npos ? "" : sFullPath.substr(at + point.size());
}

std::string_view GetPathWithNoSlash(std::string_view sBrowse, PathStyle style) {
  if (sBrowse.ends_with(style.separator)) sBrowse.remove_suffix(1);
  return sBrowse;
}

std::string_view LastFolderName(std::string_view path, PathStyle style) {
  return SplitingFolder(GetPathWithNoSlash(path, style), {&style.separator, 1});
}

bool IsAbsolutePath(std::string_view path, PathStyle style) {
  return path.size() >= style.rootLength && path[style.rootLength - 1] == style.separator &&
         (style == kPosix || path[1] == ':');
}

std::string WithHome(std::string_view path, std::string_view home, PathStyle style) {
  const bool at_home = path == "~" || (path.starts_with('~') && path[1] == style.separator);
  if (!at_home || home.empty()) return std::string(path);
  return mScanCD::NormalizePath(home, style).append(path.substr(path == "~" ? 1 : 2));
}

std::string ReplacePathText(std::string_view path, std::string_view from, std::string_view to,
                            PathStyle style) {
  if (from.empty()) return std::string(path);
  if (style == kPosix && from.front() == style.separator) {
    if (!path.starts_with(from)) return std::string(path);
    return std::string(to).append(path.substr(from.size()));
  }
  std::string result;
  for (std::size_t at = path.find(from); at != path.npos; at = path.find(from)) {
    result.append(path.substr(0, at)).append(to);
    path.remove_prefix(at + from.size());
  }
  return result.append(path);
}

}  // namespace mMain

namespace mCommon {

std::string Spliting(std::string_view sFullPath, std::string_view point) {
  return ErrTrace::inner("mCommon.Spliting(sFullPath,point)", ErrTrace::args(sFullPath, point),
                         [&]() -> std::string {
                           const std::size_t at = sFullPath.rfind(point);
                           if (at == sFullPath.npos) return {};
                           return std::string(".").append(sFullPath.substr(at + point.size()));
                         });
}

}  // namespace mCommon

namespace mScanCD {

std::string NormalizePath(std::string_view sPath, PathStyle style) {
  return ErrTrace::inner("mScanCD.NormalizePath(sPath)", ErrTrace::args(sPath), [&] {
    std::string path(sPath);
    if (!path.empty() && path.back() != style.separator) path += style.separator;
    return path;
  });
}

}  // namespace mScanCD
