#include "core/run_modes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// A window that is nothing but what a mode does to it.
class FakeWindow : public ModeView {
 public:
  void EnableElements(bool pEnable) override { elements = pEnable; }
  void SetWaitPointer(bool wait) override { pointer = wait ? 'w' : 'n'; }
  void EnableButton(CommandButton button, bool enable) override {
    buttons[static_cast<std::size_t>(button)] = enable ? '1' : '0';
  }
  void ShowPanes() override { ++shown; }

  bool elements = false;
  char pointer = '-';
  std::string buttons = "-----";
  int shown = 0;
};

}  // namespace

TEST(RunModes, SetButtonsPointerAndPanes) {
  const struct {
    int mode;
    bool elements;
    char pointer;
    const char* buttons;  ///< list, preview, rename, undo, cancel; "-" is left alone
    const char* status;
    std::int64_t value;
  } table[] = {
      {0, true, '-', "0000-", "", 0},          {1, true, '-', "1000-", "", 0},
      {2, false, 'w', "00001", "", 0},         {3, true, 'n', "11000", "", 0},
      {4, true, 'n', "10000", "", 0},          {5, true, 'n', "11100", "", 0},
      {6, false, 'w', "00001", "before ", 7},  {7, false, 'w', "00001", "Renaming ", 7},
      {8, true, 'n', "1--10", "", 7},          {9, true, 'n', "10110", "before ", 7},
      {10, true, 'n', "11100", "", 0},         {11, true, 'n', "10110", "before ", 7},
      {12, false, '-', "-----", "before ", 7}, {-1, false, '-', "-----", "before ", 7},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.mode);
    RunState state;
    state.panes.paneStatus = "before ";
    state.panes.progressValue = 7;
    FakeWindow window;
    EnableDisable(row.mode, 3, state, window);
    EXPECT_EQ(window.elements, row.elements);
    EXPECT_EQ(window.pointer, row.pointer);
    EXPECT_EQ(window.buttons, row.buttons);
    EXPECT_EQ(state.panes.paneStatus, row.status);
    EXPECT_EQ(state.panes.progressValue, row.value);
    EXPECT_EQ(state.gRowCounted.size(), row.mode == ModePreviewReady ? 3u : 0u);
  }
}

TEST(RunModes, KeepRenameOffAfterAnUndoWhenThePreviewIsStale) {
  for (const int mode : {ModeUndoFinished, ModeUndoCancelled}) {
    RunState state;
    FakeWindow window;
    MarkStale(state, window);
    EXPECT_EQ(window.buttons, "--0--");
    EnableDisable(mode, 0, state, window);
    EXPECT_EQ(window.buttons[2], '0');
  }
}
