#include "names/name_text.h"

namespace mMain {

std::string_view GetFileExt(std::string_view sFullPath, std::string_view point) {
  const std::size_t at = sFullPath.rfind(point);
  return at == sFullPath.npos ? std::string_view() : sFullPath.substr(at + point.size());
}

std::string_view GetFileName(std::string_view sFullPath) {
  return sFullPath.substr(0, sFullPath.rfind('.'));
}

std::string_view NormalizeExt(std::string_view sName) {
  // Dropping the blank pieces behind the last dots, then the blanks at the right end, leaves just
  // what ends in the last byte that is neither.
  return sName.substr(0, sName.find_last_not_of(" .") + 1);
}

}  // namespace mMain
