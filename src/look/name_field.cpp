#include "look/name_field.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QValidator>
#include <algorithm>

#include "common/name_chars.h"
#include "look/handlers.h"
#include "platform/qt/text_qt.h"

namespace {

/// The characters that a line edit paints as a blank, other than the blank itself.
bool IsShownAsBlank(QChar sign) {
  return (sign < u' ' && sign != u'\t') || sign == QChar::LineSeparator ||
         sign == QChar::ParagraphSeparator;
}

class BlankMaker : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int&) const override {
    std::replace_if(text.begin(), text.end(), IsShownAsBlank, QChar(u' '));
    return Acceptable;
  }
};

}  // namespace

void HoldWhatIsShown(QLineEdit* field) {
  field->setValidator(new BlankMaker(field));
}

NameField::NameField(Prompts& prompts, QWidget* parent) : QLineEdit(parent), prompts_(prompts) {
  HoldWhatIsShown(this);
}

bool NameField::Refuses(const QString& typed) {
  bool refused = true;
  const std::string KeyAscii = text::FromQt(typed);
  const std::string handler = HandlerOf(text::FromQt(objectName()), "_KeyPress(KeyAscii)");
  ErrTrace::top(handler, ErrTrace::args(KeyAscii),
                [&] { refused = mMain::HasBadFileNameChars(KeyAscii, prompts_); });
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
