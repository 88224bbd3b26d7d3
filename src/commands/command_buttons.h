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

  void Enable(CommandButton button, bool enable);
  /// Presses a button; nothing happens when it is off.
  void Click(CommandButton button);

  /// The next command; null when none stands out.
  QPushButton* Primary() const;
  void FocusPrimary();
  /// Takes the focus away from the buttons, to where no key starts a command.
  void FocusCommand5();

 signals:
  /// A button was pressed. The receiver starts the command.
  void loadFileListClicked();
  void previewClicked();
  void renameClicked();
  void undoClicked();
  void cancelClicked();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QPushButton* Button(CommandButton button) const;
  void AddButton(CommandButton button);
  void MarkPrimary();
  void FitWidths();

  std::array<QPushButton*, kCommandButtonCount> buttons_;
  QWidget* Command5;
};
