#include "filelist/mask_field.h"

#include <QAction>
#include <QIcon>
#include <QLineEdit>

#include "filelist/masks.h"
#include "look/card.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"

namespace {

constexpr int kSignSize = 16;

QAction* AddSign(QLineEdit* field) {
  const QPixmap picture = Look::Current().Picture(Drawing::kWarning, Role::kWarn, kSignSize,
                                                  field->devicePixelRatioF());
  QAction* sign = field->addAction(QIcon(picture), QLineEdit::TrailingPosition);
  sign->setObjectName(field->objectName() + QStringLiteral("Warning"));
  sign->setText(QLineEdit::tr("A “[” in the mask has no “]”"));
  return sign;
}

}  // namespace

void WatchMasks(QLineEdit* field) {
  const auto show = [field, own_words = field->toolTip()] {
    const bool faulty = MaskList(text::FromQt(field->text())).IsFaulty();
    const QString name = field->objectName() + QStringLiteral("Warning");
    auto* sign = field->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
    if (faulty == (sign != nullptr)) return;
    delete sign;
    Explain(field, faulty ? AddSign(field)->text() : own_words);
  };
  QObject::connect(field, &QLineEdit::textChanged, field, show);
  show();
}
