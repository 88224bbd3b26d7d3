#pragma once

#include <string>
#include <string_view>

/// What the desktop calls a type of file, by its extension alone; no file is opened.
class TypeNames {
 public:
  virtual ~TypeNames() = default;

  /// The type name of files with `extension` (with its dot, or empty); empty when there is none.
  virtual std::string TypeName(std::string_view extension) = 0;
};
