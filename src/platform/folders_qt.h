#pragma once

#include "platform/folders.h"

/// The folders that the desktop names (xdg-user-dirs on Linux).
class QtFolders : public Folders {
 public:
  std::string Documents() override;
};
