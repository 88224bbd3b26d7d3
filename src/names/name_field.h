#pragma once

#include <QLineEdit>

#include "platform/prompts.h"

/// A field for a part of a file name: a typed character that no name can hold is refused with a
/// message. Pasted text passes.
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
