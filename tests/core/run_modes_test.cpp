#include "core/run_modes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class FakeWindow : public ModeView {
 public:
  void EnableElements(bool pEnable) override { elements = pEnable; }
  void SetWaitPointer(bool wait) override { pointer = wait ? 'w' : 'n'; }
  void EnableButton(CommandButton button, bool enable) override {
    buttons[static_cast<std::size_t>(button)] = enable ? '1' : '0';
  }
  void ShowPanes() override {}

  bool elements = false;
  char pointer = '-';
  std::string buttons = "-----";  ///< list, preview, rename, undo, cancel; "-" is left alone
};

}  // namespace

TEST(RunModes, SetButtonsPointerAndPanes) {
  const std::string table[] = {
      "on  - 0000-  0",        "on  - 1000-  0",          "off w 00001  0",
      "on  n 11000  0",        "on  n 10000  0",          "on  n 11100  0",
      "off w 00001 before  7", "off w 00001 Renaming  7", "on  n 1--10  7",
      "on  n 10110 before  7", "on  n 11100  0",          "on  n 10110 before  7",
      "off - ----- before  7"};
  for (int mode = 0; mode <= 12; ++mode) {
    RunState state;
    state.panes.paneStatus = "before ";
    state.panes.progressValue = 7;
    FakeWindow window;
    EnableDisable(mode, 3, state, window);
    EXPECT_EQ((window.elements ? "on  " : "off ") + std::string(1, window.pointer) + " " +
                  window.buttons + " " + state.panes.paneStatus + " " +
                  std::to_string(state.panes.progressValue),
              table[mode]);
    EXPECT_EQ(state.gRowCounted.size(), mode == ModePreviewReady ? 3u : 0u);
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
