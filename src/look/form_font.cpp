#include "look/form_font.h"

#include <QApplication>
#include <QLabel>

void ApplyFormFont(QWidget& frm) {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() != QLatin1String("Form1")) continue;
    const auto* label = window->findChild<QLabel*>(QStringLiteral("lblFontContainer"));
    if (label != nullptr && label->testAttribute(Qt::WA_SetFont)) frm.setFont(label->font());
  }
}
