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
  if (label == nullptr) return;
  frm.setFont(label->font());
  // One by one: under a style sheet, a control that was seen before doesn't ask its window.
  for (QWidget* control : frm.findChildren<QWidget*>()) {
    if (control == label || control->window() != &frm) continue;
    QFont font = label->font();
    if (control->testAttribute(Qt::WA_SetFont)) font.setWeight(control->font().weight());
    control->setFont(font);
  }
}
