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

  std::string buttons = "-----";  ///< list, preview, rename, undo, cancel; "-" is left alone
};

}  // namespace

TEST(RunModes, KeepRenameOffAfterAnUndoWhenThePreviewIsStale) {
  for (const int mode : {ModeUndoFinished, ModeUndoCancelled}) {
    RunState state;
    FakeWindow window;
    EXPECT_TRUE(MarkStale(state, window));
    EXPECT_FALSE(MarkStale(state, window)) << "nothing to paint at each letter that is typed";
    EXPECT_EQ(window.buttons, "--0--");
    EnableDisable(mode, 0, state, window);
    EXPECT_EQ(window.buttons[2], '0');
  }
}
