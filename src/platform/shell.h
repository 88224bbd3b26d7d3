#pragma once

#include <string_view>

/// What became of a request to the desktop. The numbers are those that messages are kept under.
enum ShellResult : int {
  kShellNoResources = 0,
  kShellFileNotFound = 2,
  kShellPathNotFound = 3,
  kShellDenied = 5,
  kShellNoMemory = 8,
  kShellBadProgram = 11,
  kShellSharing = 26,
  kShellAssociationIncomplete = 27,
  kShellNoAssociation = 31,
  kShellDone = 33,  ///< this and all above: the desktop took it over
};

/// What the desktop does with files and links. Nothing here waits for the program that it starts.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens a file manager on the folder of `path`, with the entry selected where it can.
  virtual ShellResult ShowInFolder(std::string_view path) = 0;

  /// Opens the file or folder with the program that is registered for its kind.
  virtual ShellResult OpenFile(std::string_view path) = 0;

  /// Opens a link of any scheme, written as it stands in `link`.
  virtual ShellResult OpenLink(std::string_view link) = 0;
};
