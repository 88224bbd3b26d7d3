#pragma once

#include <QLineEdit>

#include "platform/services.h"

/// Lets `field` hold a blank wherever it shows one: a pasted line break or another control
/// character, which nobody would see, does not get into a name.
void HoldWhatIsShown(QLineEdit* field);

/// A field for a part of a file name: a typed character that no name can hold is refused with a
/// message. Pasted text passes, on one line.
class NameField : public QLineEdit {
  Q_OBJECT

 public:
  /// `prompts` must outlive the field.
  NameField(Prompts& prompts, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  bool Refuses(const QString& typed);

  Prompts& prompts_;
};
