#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/run_modes.h"
#include "settings/options.h"

/// What the commands need of the main window beside its list.
class CommandView : public ModeView {
 public:
  /// The options as they stand when a command starts; all option controls are off during a pass.
  virtual Options ReadOptions() const = 0;
  virtual void SetSourceFolder(const std::string& folder) = 0;

  /// Whether the user lists a folder that touches the system's own `folders`, one a line.
  virtual bool AskAboutSystemFolders(const std::string& folders) = 0;

  /// Asks for a mask, with `mask` to begin with; none when the user cancels.
  virtual std::optional<std::string> AskForMask(std::string_view caption,
                                                std::string_view mask) = 0;
  /// Gives the focus to `Command5`, where a press of Enter can't start a command again.
  virtual void FocusAfterCancel() = 0;

  /// Calls `Commands::WorkInPause` in the pauses of the event loop until that answers false.
  virtual void WorkInPauses() = 0;

  /// Shows what the run could not do, or did under another name; returns when the user has closed
  /// the window.
  virtual void ShowFailureReport() = 0;
  virtual void ShowConflictReport() = 0;
};
