#include "names/name_field.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include "common/name_chars.h"
#include "platform/text_qt.h"

NameField::NameField(Prompts& prompts, QWidget* parent) : QLineEdit(parent), prompts_(prompts) {}

bool NameField::Refuses(const QString& typed) {
  return mMain::HasBadFileNameChars(text::FromQt(typed), prompts_);
}

void NameField::keyPressEvent(QKeyEvent* event) {
  // With Ctrl a key is a command to the field, not a character.
  const bool is_command = event->modifiers().testFlag(Qt::ControlModifier) &&
                          !event->modifiers().testFlag(Qt::AltModifier);
  if (!is_command && Refuses(event->text())) return;
  QLineEdit::keyPressEvent(event);
}

void NameField::inputMethodEvent(QInputMethodEvent* event) {
  if (Refuses(event->commitString())) return;
  QLineEdit::inputMethodEvent(event);
}
