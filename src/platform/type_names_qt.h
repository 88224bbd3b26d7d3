#pragma once

#include <QMimeDatabase>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/type_names.h"

/// Type names from the desktop's MIME database, in the user's language. An extension is looked up
/// once; letter case matters only where the database says so (".C" and ".c").
class QtTypeNames : public TypeNames {
 public:
  std::string TypeName(std::string_view extension) override;

 private:
  QMimeDatabase database_;
  std::unordered_map<std::string, std::string> names_;  ///< by extension as given
};
