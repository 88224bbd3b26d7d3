#include "commands/command_buttons.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <string>

TEST(CommandButtons, TheRightmostOfTheFirstThreeStandsOutAndOnlyThoseThatAreOnAsk) {
  // Which are on, a letter a button, as those that ask; and which stand out, as a list does.
  const std::pair<std::string, std::string> table[] = {
      {"-----", "-----"}, {"x----", "x----"}, {"xx---", "-x---"}, {"xxx--", "--x--"},
      {"x-x--", "--x--"}, {"x--x-", "x----"}, {"xxx-x", "-----"}, {"xx---", "-x---"}};
  CommandButtons buttons;
  std::string asked;
  QObject::connect(&buttons, &CommandButtons::commandRequested,
                   [&](CommandButton button) { asked[static_cast<std::size_t>(button)] = 'x'; });
  const int width = buttons.minimumSizeHint().width();
  for (const auto& [on, primary] : table) {
    for (std::size_t i = 0; i < on.size(); ++i) {
      buttons.EnableButton(static_cast<CommandButton>(i), on[i] == 'x');
    }
    std::string found = asked = "-----";
    for (std::size_t i = 0; i < on.size(); ++i) {
      QPushButton* button = buttons.Button(static_cast<CommandButton>(i));
      if (button->property("primary").toBool()) found[i] = 'x';
      button->click();
    }
    EXPECT_EQ(found, primary) << on;
    EXPECT_EQ(asked, on);
    EXPECT_EQ(buttons.minimumSizeHint().width(), width) << on;
  }
}
