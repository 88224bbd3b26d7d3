#include "look/skin_around.h"

#include <QHeaderView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTableView>

#include "look/skin_parts.h"

namespace skin {

namespace {

/// The ground of a part of a header; a table's header is rounded above, as the table is.
void DrawHead(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
  const auto* header = qobject_cast<const QHeaderView*>(widget);
  const bool rounded = header != nullptr && header->orientation() == Qt::Horizontal &&
                       qobject_cast<const QTableView*>(header->parentWidget()) != nullptr;
  if (!rounded) return painter.fillRect(option.rect, Of(Role::kHead));
  constexpr int kHeadRadius = 5;
  painter.save();
  painter.setClipRect(option.rect, Qt::IntersectClip);
  Paint(painter, header->viewport()->rect().adjusted(0, 0, 0, kHeadRadius),
        {.fill = Of(Role::kHead), .radius = kHeadRadius});
  painter.restore();
}

void DrawHeading(const QStyleOptionHeader& option, QPainter& painter, const QWidget* widget) {
  DrawHead(option, painter, widget);
  const QRect& section = option.rect;
  const bool last = option.position == QStyleOptionHeader::End ||
                    option.position == QStyleOptionHeader::OnlyOneSection;
  const QRect below(section.left(), section.bottom(), section.width(), kEdge);
  painter.fillRect(below, Of(Role::kLine));
  if (last) return;
  painter.fillRect(QRect(section.right(), section.top(), kEdge, section.height()), Of(Role::kLine));
}

void DrawHeadingLabel(const QStyleOptionHeader& option, QPainter& painter, const QStyle& style) {
  QPalette palette = option.palette;
  palette.setColor(QPalette::ButtonText, Of(Hovered(option) ? Role::kText : Role::kMuted));
  const QString text =
      option.fontMetrics.elidedText(option.text, Qt::ElideRight, option.rect.width());
  style.drawItemText(&painter, option.rect, static_cast<int>(option.textAlignment), palette,
                     Enabled(option), text, QPalette::ButtonText);
}

void DrawHeader(const QStyleOptionHeader& option, QPainter& painter, const QWidget* widget,
                const QStyle& style) {
  style.drawControl(QStyle::CE_HeaderSection, &option, &painter, widget);
  QStyleOptionHeader part = option;
  part.rect = style.subElementRect(QStyle::SE_HeaderLabel, &option, widget);
  style.drawControl(QStyle::CE_HeaderLabel, &part, &painter, widget);
  if (option.sortIndicator == QStyleOptionHeader::None) return;
  part.rect = style.subElementRect(QStyle::SE_HeaderArrow, &option, widget);
  style.drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &part, &painter, widget);
}

void DrawProgress(const QStyleOptionProgressBar& option, QPainter& painter) {
  const qint64 range = qint64{option.maximum} - option.minimum;
  if (range <= 0 || option.progress <= option.minimum) return;
  QRect chunk = option.rect;
  chunk.setWidth(
      static_cast<int>(chunk.width() * (option.progress - qint64{option.minimum}) / range));
  Paint(painter, QStyle::visualRect(option.direction, option.rect, chunk),
        {.fill = Of(Role::kAccent)});
}

/// The tick or the picture before an entry's text, and the arrow behind it.
void DrawMenuMarks(const QStyleOptionMenuItem& option, QPainter& painter, const QStyle& style) {
  constexpr int kBefore = 6, kTick = 16, kAside = 2;
  const QRect& item = option.rect;
  const auto place = [&](int left, int width) {
    return QStyle::visualRect(option.direction, item,
                              QRect(item.left() + left, item.top(), width, item.height()));
  };
  const QRect mark = place(kBefore, MenuMarkRoom(option));
  if (option.checked) {
    DrawPicture(painter, Drawing::kTick, Role::kText, kTick, mark);
  } else if (!option.icon.isNull()) {
    option.icon.paint(&painter, mark, Qt::AlignCenter,
                      Enabled(option) ? QIcon::Normal : QIcon::Disabled);
  }
  if (option.menuItemType != QStyleOptionMenuItem::SubMenu) return;
  QStyleOption arrow = option;
  const int size = item.height() / 2 - 2;
  arrow.rect = place(item.width() - kAside - size, size);
  arrow.rect.adjust(0, (item.height() - size) / 2, 0, (size - item.height()) / 2);
  const bool mirrored = option.direction == Qt::RightToLeft;
  style.drawPrimitive(mirrored ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight,
                      &arrow, &painter, nullptr);
}

void DrawMenuItem(const QStyleOptionMenuItem& option, QPainter& painter, const QStyle& style) {
  const QRect& item = option.rect;
  if (option.menuItemType == QStyleOptionMenuItem::Separator) {
    constexpr int kAside = 6, kAbove = 4;
    painter.fillRect(item.adjusted(kAside, kAbove, -kAside, -kAbove), Of(Role::kLine));
    return;
  }
  if (Enabled(option) && Has(option, QStyle::State_Selected)) {
    Paint(painter, item, {.fill = Of(Role::kSel)});
  }
  constexpr int kRight = 20;
  const int left = 12 + MenuMarkRoom(option);
  const auto place = [&](int from, int to) {
    return QStyle::visualRect(option.direction, item, item.adjusted(from, 0, -to, 0));
  };
  const auto write = [&](const QRect& room, Qt::Alignment side, const QString& text) {
    const auto visual = QStyle::visualAlignment(option.direction, side | Qt::AlignVCenter);
    style.drawItemText(&painter, room,
                       static_cast<int>(visual) | Qt::TextShowMnemonic | Qt::TextSingleLine,
                       option.palette, Enabled(option), text, QPalette::ButtonText);
  };
  painter.save();
  painter.setFont(option.font);
  write(place(left, kRight), Qt::AlignLeft, option.text.section(u'\t', 0, 0));
  write(place(item.width() - kRight - 1 - option.reservedShortcutWidth, kRight), Qt::AlignLeft,
        option.text.section(u'\t', 1));
  painter.restore();
  DrawMenuMarks(option, painter, style);
}

/// A card, a rule, or what holds a list; others are left to the style below.
bool DrawFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
  Box box{.fill = Of(Role::kField), .edge = Of(Role::kLine), .radius = kLargeRadius};
  if (Asks(widget, "rule")) {
    painter.fillRect(option.rect, Of(Role::kLine));
    return true;
  }
  if (Asks(widget, "card")) {
    box.fill = Of(Role::kSurface);
  } else if (IsOffers(widget)) {
    box.edge = Of(Role::kEdge);
    box.radius = 0;
  } else if (qobject_cast<const QPlainTextEdit*>(widget) != nullptr) {
    box.edge = Of(Focused(option) ? Role::kFocus : Role::kEdge);
    box.edge_width = Focused(option) ? kFocusEdge : kEdge;
    box.radius = kRadius;
  } else if (!IsView(widget)) {
    return false;
  }
  Paint(painter, option.rect, box);
  return true;
}

}  // namespace

void DrawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget,
                   const QStyle& style) {
  const QRect slider =
      style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
  const bool flat = option.orientation == Qt::Horizontal;
  const bool in_use = (option.activeSubControls & QStyle::SC_ScrollBarSlider) &&
                      (Hovered(option) || Has(option, QStyle::State_Sunken));
  const Role role = !Enabled(option) ? Role::kLine : in_use ? Role::kMuted : Role::kEdge;
  constexpr int kHandleRadius = 3;
  Paint(painter, flat ? slider.adjusted(2, 3, -2, -2) : slider.adjusted(3, 2, -2, -2),
        {.fill = Of(role), .radius = kHandleRadius});
}

bool DrawViews(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
               const QWidget* widget, const QStyle& style) {
  const auto* heading = qstyleoption_cast<const QStyleOptionHeader*>(&option);
  switch (part) {
    case QStyle::CE_Header:
      DrawHeader(*heading, painter, widget, style);
      return true;
    case QStyle::CE_HeaderSection:
      DrawHeading(*heading, painter, widget);
      return true;
    case QStyle::CE_HeaderLabel:
      DrawHeadingLabel(*heading, painter, style);
      return true;
    case QStyle::CE_HeaderEmptyArea:
      DrawHead(option, painter, widget);
      return true;
    case QStyle::CE_ShapedFrame:
      return DrawFrame(option, painter, widget);
    default:
      return false;
  }
}

bool DrawAround(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
                const QWidget*, const QStyle& style) {
  switch (part) {
    case QStyle::CE_ProgressBarGroove:
      Paint(painter, option.rect, {.fill = Of(Role::kField), .edge = Of(Role::kEdge), .radius = 5});
      return true;
    case QStyle::CE_ProgressBarContents:
      DrawProgress(static_cast<const QStyleOptionProgressBar&>(option), painter);
      return true;
    case QStyle::CE_MenuItem:
      DrawMenuItem(static_cast<const QStyleOptionMenuItem&>(option), painter, style);
      return true;
    case QStyle::CE_MenuEmptyArea:
      return true;
    default:
      return false;
  }
}

}  // namespace skin
