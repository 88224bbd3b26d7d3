#include "names/name_field.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include "common/name_chars.h"
#include "platform/text_qt.h"
#include "trace/err_trace.h"

NameField::NameField(Prompts& prompts, QWidget* parent) : QLineEdit(parent), prompts_(prompts) {}

bool NameField::Refuses(const QString& typed) {
  bool refused = true;
  const std::string KeyAscii = text::FromQt(typed);
  ErrTrace::top<"NameField.KeyPress(KeyAscii)">(
      ErrTrace::args(KeyAscii), [&] { refused = mMain::HasBadFileNameChars(KeyAscii, prompts_); });
  return refused;
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
