#include "look/form_font.h"

#include <QApplication>
#include <QLabel>

namespace {

/// The label, if it has a font to give.
const QLabel* FontContainer() {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() != QLatin1String("Form1")) continue;
    const auto* label = window->findChild<QLabel*>(QStringLiteral("lblFontContainer"));
    if (label != nullptr && label->testAttribute(Qt::WA_SetFont)) return label;
  }
  return nullptr;
}

}  // namespace

void ApplyFormFont(QWidget& frm) {
  const QLabel* label = FontContainer();
  if (label != nullptr) frm.setFont(label->font());
}
