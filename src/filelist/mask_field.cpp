#include "filelist/mask_field.h"

#include <QLineEdit>

#include "filelist/masks.h"
#include "look/field_sign.h"
#include "platform/qt/text_qt.h"

void WatchMasks(QLineEdit* field) {
  const auto show = [field, sign = new FieldSign(field)] {
    const bool faulty = MaskList(text::FromQt(field->text())).IsFaulty();
    sign->Warn(faulty ? QLineEdit::tr("A “[” in the mask has no “]”") : QString());
  };
  QObject::connect(field, &QLineEdit::textChanged, field, show);
  show();
}
