#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/services.h"

/// The type texts of files, by extension; each extension is asked for once.
class FileTypes {
 public:
  explicit FileTypes(TypeNames& names) : names_(names) {}

  /// The desktop's type name for the extension of `ElementName`; where it has none, the extension
  /// in upper case and "File", or "File" alone. The answer lives as long as this object.
  const std::string& GetFileType(std::string_view ElementName);

 private:
  TypeNames& names_;
  using Known = std::unordered_map<std::string, std::string>;
  Known by_extension_;
  const Known::value_type* last_ = nullptr;  ///< neighbours mostly share theirs
};
