#include "look/sample_label.h"

#include <QPainter>

#include "platform/qt/text_qt.h"

SampleLabel::SampleLabel(const char* name, QWidget* parent) : QLabel(parent) {
  setObjectName(QLatin1String(name));
  setTextFormat(Qt::PlainText);
  setProperty("muted", true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  ShowSample({});
}

void SampleLabel::ShowSample(std::string_view sample) {
  setText(tr("Example: ") + text::Shown(sample));
}

void SampleLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect room = contentsRect();
  const QString fitting = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
  painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, fitting);
}
