#include "look/elided_label.h"

#include <QPainter>

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
  painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, fitting);
}
