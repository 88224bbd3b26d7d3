#include "commands/command_buttons.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <string>

TEST(CommandButtons, TheRightmostOfTheFirstThreeStandsOut) {
  // Which are on, a letter a button; and which stand out, as a list does.
  const std::pair<std::string, std::string> table[] = {
      {"-----", "-----"}, {"x----", "x----"}, {"xx---", "-x---"}, {"xxx--", "--x--"},
      {"x-x--", "--x--"}, {"x--x-", "x----"}, {"xxx-x", "-----"}, {"xx---", "-x---"}};
  CommandButtons buttons;
  const int width = buttons.minimumSizeHint().width();
  for (const auto& [on, primary] : table) {
    std::string found;
    for (std::size_t i = 0; i < on.size(); ++i) {
      buttons.EnableButton(static_cast<CommandButton>(i), on[i] == 'x');
    }
    for (std::size_t i = 0; i < on.size(); ++i) {
      const QPushButton* button = buttons.Button(static_cast<CommandButton>(i));
      found += button->property("primary").toBool() ? 'x' : '-';
    }
    EXPECT_EQ(found, primary) << on;
    EXPECT_EQ(buttons.minimumSizeHint().width(), width) << on;
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
