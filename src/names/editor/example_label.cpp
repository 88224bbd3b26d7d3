#include "names/editor/example_label.h"

#include <QPainter>
#include <algorithm>

namespace {

QString Arrow() {
  return QStringLiteral(" \u2192 ");
}

/// One that runs from right to left turns nothing beside it (Unicode Annex 9, isolates).
QString Isolated(const QString& name) {
  return QChar(0x2068) + name + QChar(0x2069);
}

}  // namespace

ExampleLabel::ExampleLabel(QWidget* parent) : ElidedLabel("lbExample", Qt::ElideMiddle, parent) {
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setAccessibleDescription(tr("A file’s old and new name"));
}

void ExampleLabel::ShowNames(const QString& old_name, const QString& new_name) {
  if (old_name == old_name_ && new_name == new_name_) return;
  old_name_ = old_name;
  new_name_ = new_name;
  const bool both = !new_name.isEmpty();
  setText(both ? old_name + Arrow() + new_name : old_name);
  setToolTip(both ? Isolated(old_name) + u'\n' + Arrow() + Isolated(new_name) : old_name);
}

void ExampleLabel::paintEvent(QPaintEvent* event) {
  if (new_name_.isEmpty()) return ElidedLabel::paintEvent(event);
  const QFontMetrics metrics = fontMetrics();
  const QRect room = contentsRect();
  const int arrow = metrics.horizontalAdvance(Arrow());
  const int names = std::max(room.width() - arrow, 0);
  const int wanted_by_new = metrics.horizontalAdvance(new_name_);
  // Where not both fit, the new one gets what the old one leaves, but half of the room at least.
  const int for_old = std::max(names / 2, names - wanted_by_new);
  const QString before = metrics.elidedText(old_name_, Qt::ElideMiddle, for_old);
  const QString after =
      metrics.elidedText(new_name_, Qt::ElideMiddle, names - metrics.horizontalAdvance(before));
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  int left = room.left();
  for (const QString& part : {before, Arrow(), after}) {
    painter.drawText(room.adjusted(left - room.left(), 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine,
                     part);
    left += metrics.horizontalAdvance(part);
  }
}
