#pragma once

#include <QWidget>
#include <array>

#include "core/run_modes.h"

class QPushButton;

/// The row of the five command buttons. The rightmost enabled one of the first three is the next
/// command and stands out; during a pass, while "Cancel" is on, none does.
class CommandButtons : public QWidget {
  Q_OBJECT

 public:
  explicit CommandButtons(QWidget* parent = nullptr);

  void EnableButton(CommandButton button, bool enable);
  QPushButton* Button(CommandButton button) const;

  /// Gives the focus to the button that stands out, if there is one.
  void FocusPrimary();

  void FocusCancel();
  /// Takes the focus away from the buttons, to where no key starts a command.
  void FocusAfterCancel();

 signals:
  /// A button was pressed, by mouse, letter or key. The receiver starts the command.
  void commandRequested(CommandButton button);

 private:
  void AddButton(CommandButton button);
  void MarkPrimary();

  std::array<QPushButton*, kCommandButtonCount> buttons_;
  QWidget* Command5;
};
