#include "commands/command_buttons.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <string>

namespace {

std::string PrimaryOf(const CommandButtons& buttons) {
  std::string names;
  for (const QPushButton* button : buttons.findChildren<QPushButton*>()) {
    if (button->property("primary").toBool()) names += button->objectName().toStdString();
  }
  return names;
}

}  // namespace

TEST(CommandButtons, TheRightmostOfTheFirstThreeStandsOut) {
  const struct {
    const char* enabled;  ///< a letter a button, in their order
    const char* primary;
  } table[] = {
      {"-----", ""},          {"x----", "bnLoadFileList"},
      {"xx---", "bnPreview"}, {"xxx--", "bnRename"},
      {"x-x--", "bnRename"},  {"x--x-", "bnLoadFileList"},
      {"xxx-x", ""},          {"----x", ""},
      {"xx---", "bnPreview"},
  };
  CommandButtons buttons;
  const int width = buttons.minimumSizeHint().width();
  for (const auto& row : table) {
    SCOPED_TRACE(row.enabled);
    for (std::size_t i = 0; i < kCommandButtonCount; ++i) {
      buttons.EnableButton(static_cast<CommandButton>(i), row.enabled[i] == 'x');
    }
    EXPECT_EQ(PrimaryOf(buttons), row.primary);
    EXPECT_EQ(buttons.minimumSizeHint().width(), width);
  }
}

TEST(CommandButtons, OnlyAButtonThatIsOnAsksForItsCommand) {
  CommandButtons buttons;
  int previews = 0;
  QObject::connect(&buttons, &CommandButtons::commandRequested, [&](CommandButton asked) {
    EXPECT_EQ(asked, CommandButton::bnPreview);
    ++previews;
  });
  for (const bool on : {false, true}) {
    buttons.EnableButton(CommandButton::bnPreview, on);
    buttons.Button(CommandButton::bnPreview)->click();
    EXPECT_EQ(previews, on ? 1 : 0);
  }
}
