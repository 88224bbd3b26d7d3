#include "look/field_sign.h"

#include <QAction>
#include <QEvent>
#include <QIcon>
#include <QLineEdit>

#include "look/card.h"
#include "look/look.h"

namespace {

constexpr int kSignSize = 16;

}  // namespace

FieldSign::FieldSign(QLineEdit* field)
    : QObject(field),
      field_(field),
      sign_(field->addAction(QIcon(), QLineEdit::TrailingPosition)),
      own_words_(field->toolTip()) {
  sign_->setObjectName(field->objectName() + QStringLiteral("Warning"));
  sign_->setVisible(false);
  MakePicture();
  field->installEventFilter(this);
}

void FieldSign::Warn(const QString& words) {
  sign_->setText(words);
  sign_->setVisible(!words.isEmpty());
  Note(words);
}

void FieldSign::Note(const QString& words) {
  const QString& said = words.isEmpty() ? own_words_ : words;
  if (field_->accessibleDescription() != said) Explain(field_, said);
}

bool FieldSign::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::PaletteChange || type == QEvent::StyleChange) MakePicture();
  return QObject::eventFilter(watched, event);
}

void FieldSign::MakePicture() {
  QIcon icon;
  for (const qreal scale : {1.0, 2.0}) {
    icon.addPixmap(Look::Current().Picture(Drawing::kWarning, Role::kWarn, kSignSize, scale));
  }
  sign_->setIcon(icon);
}
