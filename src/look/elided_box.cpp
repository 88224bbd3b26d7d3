#include "look/elided_box.h"

#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QToolTip>

QString ElidedBox::Elided(const QStyleOptionComboBox& box) const {
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, this);
  return fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width());
}

bool ElidedBox::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QComboBox::event(event);
  QStyleOptionComboBox box;
  initStyleOption(&box);
  QStringList lines;
  if (Elided(box) != currentText()) lines += currentText();
  if (!toolTip().isEmpty()) lines += toolTip();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), lines.join(u'\n'), this);
  return true;
}

void ElidedBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox box;
  initStyleOption(&box);
  painter.drawComplexControl(QStyle::CC_ComboBox, box);
  box.currentText = Elided(box);
  painter.drawControl(QStyle::CE_ComboBoxLabel, box);
}
