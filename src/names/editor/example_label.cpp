#include "names/editor/example_label.h"

#include <QPainter>
#include <algorithm>

namespace {

const QString kArrow = QStringLiteral(" \u2192 ");
// Around a name that may run from right to left (Unicode Annex 9, isolates), so that the arrow
// leads from the old one to the new one also where they are one text.
constexpr QChar kIsolate(0x2068), kEndOfIsolate(0x2069);

QString Isolated(const QString& name) {
  return kIsolate + name + kEndOfIsolate;
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
  setText(both ? Isolated(old_name) + kArrow + Isolated(new_name) : old_name);
  setToolTip(both ? Isolated(old_name) + QStringLiteral("\n\u2192 ") + Isolated(new_name)
                  : old_name);
}

void ExampleLabel::paintEvent(QPaintEvent* event) {
  if (new_name_.isEmpty()) return ElidedLabel::paintEvent(event);
  const QFontMetrics metrics = fontMetrics();
  const QRect room = contentsRect();
  const int arrow = metrics.horizontalAdvance(kArrow);
  const int names = std::max(room.width() - arrow, 0);
  const int wanted_by_new = metrics.horizontalAdvance(new_name_);
  // Where not both fit, the new one gets what the old one leaves, but half of the room at least.
  const int for_old = std::max(names / 2, names - wanted_by_new);
  const QString before = metrics.elidedText(old_name_, Qt::ElideMiddle, for_old);
  const QString after = metrics.elidedText(new_name_, Qt::ElideMiddle,
                                           names - metrics.horizontalAdvance(before));
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  int left = room.left();
  for (const QString& part : {before, kArrow, after}) {
    painter.drawText(room.adjusted(left - room.left(), 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, part);
    left += metrics.horizontalAdvance(part);
  }
}
