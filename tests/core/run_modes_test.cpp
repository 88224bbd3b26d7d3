#include "core/run_modes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class FakeWindow : public ModeView {
 public:
  void EnableButton(CommandButton button, bool enable) override {
    buttons[static_cast<std::size_t>(button)] = enable ? '1' : '0';
  }
  void EnableElements(bool) override {}
  void SetWaitPointer(bool) override {}
  void ShowPanes() override {}
  void RepaintRows() override { ++repaints; }

  std::string buttons = "-----";  ///< list, preview, rename, undo, cancel; "-" is left alone
  int repaints = 0;
};

}  // namespace

TEST(RunModes, KeepRenameOffAfterAnUndoWhenThePreviewIsStale) {
  for (const int mode : {ModeUndoFinished, ModeUndoCancelled}) {
    RunState state;
    FakeWindow window;
    for (int i = 0; i < 2; ++i) MarkStale(state, window);
    EXPECT_EQ(window.buttons, "--0--");
    EXPECT_EQ(window.repaints, 1) << "not at each letter that is typed";
    EnableDisable(mode, 0, state, window);
    EXPECT_EQ(window.buttons[2], '0');
  }
}
