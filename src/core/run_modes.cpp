#include "core/run_modes.h"

#include <utility>

#include "common/language.h"

namespace {

/// What a mode does to a button.
enum class Switch : std::uint8_t {
  kKeep,
  kOff,
  kOn,
  kStale,  ///< off when the preview is stale, else on
};
enum class Pointer : std::uint8_t { kKeep, kWait, kNormal };
enum class PaneStep : std::uint8_t {
  kKeep,
  kIdle,
  kIdleKeepingValue,
  kPreviewReady,  ///< Value 0, the counted rows made anew, then as kIdleKeepingValue
  kRunning,
};

struct ModeRow {
  RunMode mode;  ///< which is also its place in the table
  bool elements;
  Pointer pointer;
  Switch buttons[kCommandButtonCount];
  PaneStep panes;
};

constexpr Switch o = Switch::kOff, I = Switch::kOn, _ = Switch::kKeep, S = Switch::kStale;

constexpr ModeRow kModes[] = {
    {ModeNoFolder, true, Pointer::kKeep, {o, o, o, o, _}, PaneStep::kIdle},
    {ModeFolderChosen, true, Pointer::kKeep, {I, o, o, o, _}, PaneStep::kIdle},
    {ModeScanning, false, Pointer::kWait, {o, o, o, o, I}, PaneStep::kIdle},
    {ModeListReady, true, Pointer::kNormal, {I, I, o, o, o}, PaneStep::kIdle},
    {ModeListEmpty, true, Pointer::kNormal, {I, o, o, o, o}, PaneStep::kIdle},
    {ModePreviewReady, true, Pointer::kNormal, {I, I, I, o, o}, PaneStep::kPreviewReady},
    {ModeRunStarting, false, Pointer::kWait, {o, o, o, o, I}, PaneStep::kKeep},
    {ModeRunning, false, Pointer::kWait, {o, o, o, o, I}, PaneStep::kRunning},
    {ModeRunFinished, true, Pointer::kNormal, {I, _, _, I, o}, PaneStep::kIdleKeepingValue},
    {ModeRunCancelled, true, Pointer::kNormal, {I, o, I, I, o}, PaneStep::kKeep},
    {ModeUndoFinished, true, Pointer::kNormal, {I, I, S, o, o}, PaneStep::kIdle},
    {ModeUndoCancelled, true, Pointer::kNormal, {I, o, S, I, o}, PaneStep::kKeep},
};

void BeIdle(StatusPanes& panes) {
  panes.paneStatus.clear();
  panes.progressVisible = false;
  panes.totalStretched = true;
  panes.paneResult.clear();
}

void ApplyPanes(PaneStep step, std::size_t record_count, RunState& state) {
  switch (step) {
    case PaneStep::kKeep:
      break;
    case PaneStep::kIdle:
      BeIdle(state.panes);
      state.panes.progressValue = 0;
      break;
    case PaneStep::kIdleKeepingValue:
      BeIdle(state.panes);
      break;
    case PaneStep::kPreviewReady:
      state.panes.progressValue = 0;
      state.gRowCounted.assign(record_count, 0);
      BeIdle(state.panes);
      break;
    case PaneStep::kRunning:
      state.panes.paneStatus = mLanguageGobals::kRenaming;
      state.panes.progressVisible = true;
      state.panes.totalStretched = false;
      break;
  }
}

}  // namespace

void EnableDisable(int mode, std::size_t record_count, RunState& state, ModeView& view) {
  if (mode < 0 || mode >= static_cast<int>(std::size(kModes))) return;
  const ModeRow& row = kModes[mode];
  view.EnableElements(row.elements);
  if (row.pointer != Pointer::kKeep) view.SetWaitPointer(row.pointer == Pointer::kWait);
  for (std::size_t i = 0; i < kCommandButtonCount; ++i) {
    const Switch step = row.buttons[i];
    if (step == Switch::kKeep) continue;
    const bool on = step == Switch::kOn || (step == Switch::kStale && !state.gPreviewStale);
    view.EnableButton(static_cast<CommandButton>(i), on);
  }
  ApplyPanes(row.panes, record_count, state);
  view.ShowPanes();
}

bool MarkStale(RunState& state, ModeView& view) {
  view.EnableButton(CommandButton::bnRename, false);
  return !std::exchange(state.gPreviewStale, true);
}
