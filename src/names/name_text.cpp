#include "names/name_text.h"

#include <vector>

#include "platform/text.h"

namespace mMain {

std::string_view GetFileExt(std::string_view sFullPath, std::string_view point) {
  if (point.size() == 1) {
    const std::size_t at = sFullPath.rfind(point);
    return at == sFullPath.npos ? std::string_view() : sFullPath.substr(at + 1);
  }
  const auto pieces = text::Split(sFullPath, point);
  return pieces.size() < 2 ? std::string_view() : pieces.back();
}

std::string_view GetFileName(std::string_view sFullPath) {
  return sFullPath.substr(0, sFullPath.rfind('.'));
}

std::string GetFileName(std::string_view sFullPath, std::string_view point) {
  const auto pieces = text::Split(sFullPath, point);
  if (pieces.size() < 2) return std::string(sFullPath);
  std::string name(pieces.front());
  for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
    name += '.';
    name += pieces[i];
  }
  return name;
}

std::string_view NormalizeExt(std::string_view sName) {
  // Dropping the blank pieces behind the last dots, then the blanks at the right end, leaves just
  // what ends in the last byte that is neither.
  return sName.substr(0, sName.find_last_not_of(" .") + 1);
}

}  // namespace mMain
