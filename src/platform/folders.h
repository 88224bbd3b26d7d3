#pragma once

#include <string>

/// Where the user's folders are. Paths without a closing separator.
class Folders {
 public:
  virtual ~Folders() = default;

  /// The folder for documents, which needn't exist.
  virtual std::string Documents() = 0;
};
