#include "look/elided_label.h"

#include <QPainter>
#include <QStyle>

ElidedLabel::ElidedLabel(const char* name, Qt::TextElideMode elide, QWidget* parent)
    : QLabel(parent), elide_(elide) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setProperty("muted", true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect room = contentsRect();
  const QString fitting = fontMetrics().elidedText(text(), elide_, room.width());
  // Signs stand in the order of the text, which may be another than that of the window.
  painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  const Qt::Alignment place = QStyle::visualAlignment(layoutDirection(), alignment());
  painter.drawText(room, static_cast<int>(place) | Qt::TextSingleLine, fitting);
}
