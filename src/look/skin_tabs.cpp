#include "look/skin_around.h"

#include <QPainter>
#include <QPainterPath>

#include "look/skin_parts.h"

namespace skin {

namespace {

/// A box that is rounded above only, and open below.
QPainterPath FolderTab(const QRectF& place, qreal radius) {
  QPainterPath path(place.bottomLeft());
  path.lineTo(place.left(), place.top() + radius);
  path.arcTo(QRectF(place.left(), place.top(), 2 * radius, 2 * radius), 180, -90);
  path.lineTo(place.right() - radius, place.top());
  path.arcTo(QRectF(place.right() - 2 * radius, place.top(), 2 * radius, 2 * radius), 90, -90);
  path.lineTo(place.bottomRight());
  return path;
}

void DrawFolderTab(const QStyleOption& option, QPainter& painter) {
  constexpr int kGap = 3;
  const bool selected = Has(option, QStyle::State_Selected);
  const bool focused = selected && Focused(option);
  if (!selected && !Hovered(option)) return;
  const QRectF tab = option.rect.adjusted(0, 0, -kGap, 0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal half = (focused ? kFocusEdge : kEdge) / 2.0;
  painter.setBrush(Of(selected ? Role::kSurface : Role::kHover));
  painter.setPen(selected ? QPen(Of(focused ? Role::kFocus : Role::kLine), 2 * half)
                          : QPen(Qt::NoPen));
  const qreal below = focused ? -half : 0;
  QPainterPath path = FolderTab(tab.adjusted(half, half, -half, below), kLargeRadius - half);
  if (focused) path.closeSubpath();
  painter.drawPath(path);
  painter.restore();
}

void DrawOptionTab(const QStyleOption& option, QPainter& painter) {
  constexpr int kGap = 4;
  const QRect tab = option.rect.adjusted(0, 0, -kGap, 0);
  if (!Has(option, QStyle::State_Selected)) {
    if (Hovered(option)) painter.fillRect(tab, Of(Role::kHover));
  } else if (Focused(option)) {
    Paint(painter, tab, {.edge = Of(Role::kFocus), .edge_width = kFocusEdge});
  } else {
    const QRect line(tab.left(), tab.bottom() + 1 - kFocusEdge, tab.width(), kFocusEdge);
    painter.fillRect(line, Of(Enabled(option) ? Role::kFocus : Role::kLine));
  }
}

void DrawTabLabel(const QStyleOptionTab& option, QPainter& painter, const QWidget* widget,
                  const QStyle& style) {
  const bool options = TabsFormOf(widget) == TabsForm::kOptions;
  const bool selected = Has(option, QStyle::State_Selected);
  Role role = Hovered(option) ? Role::kText : Role::kMuted;
  if (selected) role = options ? Role::kGroupText : Role::kText;
  if (!Enabled(option)) role = Role::kDisabled;
  QRect text = style.subElementRect(QStyle::SE_TabBarTabText, &option, widget);
  if (!option.icon.isNull()) {
    constexpr int kGap = 4;
    const QSize size = option.iconSize;
    const QRect icon(QPoint(text.left(), text.center().y() - size.height() / 2), size);
    option.icon.paint(&painter, QStyle::visualRect(option.direction, text, icon));
    const QRect rest = text.adjusted(size.width() + kGap, 0, 0, 0);
    text = QStyle::visualRect(option.direction, text, rest);
  }
  QPalette palette = option.palette;
  palette.setColor(QPalette::WindowText, Of(role));
  style.drawItemText(&painter, text, Qt::AlignCenter | Qt::TextShowMnemonic, palette,
                     Enabled(option), option.text, QPalette::WindowText);
}

}  // namespace

void DrawPages(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
  const QRect& pane = option.rect;
  if (TabsFormOf(widget) == TabsForm::kOptions) {
    painter.fillRect(QRect(pane.left(), pane.top(), pane.width(), kEdge), Of(Role::kLine));
    return;
  }
  // Square where the first tab stands.
  const bool mirrored = option.direction == Qt::RightToLeft;
  const qreal half = kEdge / 2.0, radius = kLargeRadius - half;
  const QRectF box = QRectF(pane).adjusted(half, half, -half, -half);
  QPainterPath path;
  path.addRoundedRect(box, radius, radius);
  QPainterPath corner;
  corner.addRect(QRectF(mirrored ? box.right() - radius : box.left(), box.top(), radius, radius));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Of(Role::kSurface));
  painter.setPen(QPen(Of(Role::kLine), kEdge));
  painter.drawPath(path.united(corner));
  painter.restore();
}

bool DrawTabs(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
              const QWidget* widget, const QStyle& style) {
  const TabsForm form = TabsFormOf(widget);
  if (form == TabsForm::kOther) return false;
  if (part == QStyle::CE_TabBarTabShape) {
    if (form == TabsForm::kFolders) DrawFolderTab(option, painter);
    if (form == TabsForm::kOptions) DrawOptionTab(option, painter);
    return true;
  }
  if (part != QStyle::CE_TabBarTabLabel) return false;
  DrawTabLabel(static_cast<const QStyleOptionTab&>(option), painter, widget, style);
  return true;
}

}  // namespace skin
