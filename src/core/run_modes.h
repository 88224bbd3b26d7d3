#pragma once

#include <cstddef>
#include <cstdint>

#include "core/run_state.h"

/// What the program is doing, which decides what the user can do.
enum RunMode : std::int16_t {
  ModeNoFolder = 0,
  ModeFolderChosen = 1,
  ModeScanning = 2,
  ModeListReady = 3,
  ModeListEmpty = 4,
  ModePreviewReady = 5,
  ModeRunStarting = 6,
  ModeRunning = 7,
  ModeRunFinished = 8,
  ModeRunCancelled = 9,
  ModeUndoFinished = 10,
  ModeUndoCancelled = 11,
};

/// The five command buttons in the order in which a mode sets them.
enum class CommandButton : std::uint8_t {
  bnLoadFileList,
  bnPreview,
  bnRename,
  bnUndo,
  bnCancel,
};
inline constexpr std::size_t kCommandButtonCount = 5;

/// What a mode acts on: the main window.
class ModeView {
 public:
  virtual ~ModeView() = default;

  /// Enables or disables all option controls and the list.
  virtual void EnableElements(bool pEnable) = 0;
  virtual void SetWaitPointer(bool wait) = 0;
  virtual void EnableButton(CommandButton button, bool enable) = 0;
  /// `RunState::panes` has changed and is to be shown.
  virtual void ShowPanes() = 0;
};

/// Applies the row of `mode`; any number outside the table does nothing. `record_count` is the
/// number of rows that the progress bar counts.
void EnableDisable(int mode, std::size_t record_count, RunState& state, ModeView& view);

/// The stale rule: new names no longer fit what the user asked for, so "Rename" is off. Sets
/// `gPreviewStale`; answers whether they fitted until now.
bool MarkStale(RunState& state, ModeView& view);
