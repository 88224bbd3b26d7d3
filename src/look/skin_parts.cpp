#include "look/skin_parts.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QVariant>
#include <algorithm>

namespace skin {

int Tall(int height) {
  constexpr int kUsualLine = 16;
  return height + std::max(0, QFontMetrics(QApplication::font()).height() - kUsualLine);
}

int SignSize() {
  constexpr int kUsualSign = 16;
  return std::max(kUsualSign, QFontMetrics(QApplication::font()).ascent());
}

bool Asks(const QWidget* widget, const char* property) {
  return widget != nullptr && widget->property(property).toBool();
}

ButtonForm FormOf(const QWidget* button) {
  const bool tool = qobject_cast<const QToolButton*>(button) != nullptr;
  if (tool && qobject_cast<const QLineEdit*>(button->parent())) return ButtonForm::kInField;
  if (Asks(button, "link")) return ButtonForm::kLink;
  if (Asks(button, "narrow")) return ButtonForm::kNarrow;
  if (tool) return Asks(button, "scroll") ? ButtonForm::kScroll : ButtonForm::kTool;
  if (Asks(button, "command")) return ButtonForm::kCommand;
  const bool in_dialog = button != nullptr && qobject_cast<const QDialog*>(button->window());
  return in_dialog ? ButtonForm::kDialog : ButtonForm::kPlain;
}

ButtonMeasures MeasuresOf(ButtonForm form) {
  switch (form) {
    case ButtonForm::kPlain:
      return {24, 8};
    case ButtonForm::kNarrow:
    case ButtonForm::kTool:
      return {24, 5};
    case ButtonForm::kCommand:
      return {28, 11};
    case ButtonForm::kDialog:
      return {28, 10};
    case ButtonForm::kScroll:
      return {24, 0};
    case ButtonForm::kInField:
      return {0, 0};
    case ButtonForm::kLink:
      return {20, 7};
  }
  return {};
}

bool IsPrimary(const QStyleOption& button, const QWidget* widget) {
  if (!Enabled(button)) return false;
  if (Asks(widget, "primary")) return true;
  const auto* push = qstyleoption_cast<const QStyleOptionButton*>(&button);
  return push != nullptr && (push->features & QStyleOptionButton::DefaultButton) &&
         widget != nullptr && qobject_cast<const QDialog*>(widget->window()) != nullptr;
}

TabsForm TabsFormOf(const QWidget* widget) {
  const auto* pages = qobject_cast<const QTabWidget*>(widget);
  if (pages == nullptr && qobject_cast<const QTabBar*>(widget)) {
    pages = qobject_cast<const QTabWidget*>(widget->parent());
  }
  if (pages == nullptr) return TabsForm::kOther;
  return Asks(pages, "optionPages") ? TabsForm::kOptions : TabsForm::kFolders;
}

bool IsView(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) != nullptr &&
         qobject_cast<const QHeaderView*>(widget) == nullptr;
}

bool IsOffers(const QWidget* view) {
  if (!IsView(view)) return false;
  return Asks(view, "offers") || view->parentWidget()->inherits("QComboBoxPrivateContainer");
}

bool IsInBox(const QWidget* field) {
  const QObject* around = field == nullptr ? nullptr : field->parent();
  return qobject_cast<const QComboBox*>(around) || qobject_cast<const QAbstractSpinBox*>(around);
}

int MenuMarkRoom(const QStyleOptionMenuItem& item) {
  constexpr int kCheck = 14, kGap = 4;
  const int widest = std::max(item.menuHasCheckableItems ? kCheck : 0, item.maxIconWidth);
  return widest > 0 ? widest + kGap : 0;
}

void Paint(QPainter& painter, const QRectF& place, const Box& box) {
  const qreal half = box.edge.alpha() == 0 ? 0 : box.edge_width / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(half == 0 ? QPen(Qt::NoPen) : QPen(box.edge, box.edge_width));
  painter.setBrush(box.fill);
  const qreal radius = std::max(box.radius - half, 0.0);
  painter.drawRoundedRect(place.adjusted(half, half, -half, -half), radius, radius);
  painter.restore();
}

QColor Of(Role role) {
  return Look::Current().Colour(role);
}

void DrawPicture(QPainter& painter, Drawing drawing, Role role, int size, const QRect& place) {
  const QPointF corner(place.left() + (place.width() - size) / 2,
                       place.top() + (place.height() - size) / 2);
  Look::Current().Draw(painter, drawing, role, QRectF(corner, QSizeF(size, size)));
}

}  // namespace skin
