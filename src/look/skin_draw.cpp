#include "look/skin_draw.h"

#include <QPainter>

#include "look/look.h"
#include "look/skin_around.h"
#include "look/skin_parts.h"

namespace skin {

namespace {

Box ButtonBox(const QStyleOption& option, const QWidget* widget) {
  const bool link = FormOf(widget) == ButtonForm::kLink;
  const bool focused = Focused(option);
  const bool pressed =
      Enabled(option) && (Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On));
  Box box{.fill = Of(Role::kSurface), .edge = Of(Role::kEdge)};
  if (IsPrimary(option, widget)) {
    box.fill = box.edge = Of(Hovered(option) || pressed ? Role::kAccentHover : Role::kAccent);
  } else if (link) {
    box = {.fill = Hovered(option) ? Of(Role::kHover) : QColor(Qt::transparent)};
  } else if (!Enabled(option)) {
    box = {.fill = Of(Role::kDisabledFill), .edge = Of(Role::kLine)};
  } else if (pressed) {
    box.fill = Of(Role::kPress);
  } else if (Hovered(option)) {
    box.fill = Of(Role::kHover);
  }
  if (focused) {
    box.edge = Of(IsPrimary(option, widget) ? Role::kText : Role::kFocus);
    box.edge_width = kFocusEdge;
  }
  return box;
}

void DrawButton(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
  if (FormOf(widget) == ButtonForm::kInField) return;
  Paint(painter, option.rect, ButtonBox(option, widget));
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  if (button == nullptr || !(button->features & QStyleOptionButton::HasMenu)) return;
  constexpr int kSize = 12, kAside = 3;
  const int edge = Focused(option) ? kFocusEdge : kEdge;
  const QRect& box = option.rect;
  const QRect arrow(box.right() + 1 - edge - kAside - kSize, box.top(), kSize, box.height());
  DrawPicture(painter, Drawing::kDown, Enabled(option) ? Role::kText : Role::kDisabled, kSize,
              QStyle::visualRect(option.direction, box, arrow));
}

/// With the colour and the type of its form, which the style below goes by.
void DrawButtonLabel(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                     const QStyle& style) {
  QStyleOptionButton label = option;
  QFont font = painter.font();
  if (IsPrimary(option, widget)) {
    label.palette.setColor(QPalette::ButtonText, Of(Role::kAccentText));
    font.setWeight(QFont::DemiBold);
  } else if (FormOf(widget) == ButtonForm::kLink) {
    label.palette.setColor(QPalette::ButtonText, Of(Role::kLink));
    font.setUnderline(Hovered(option));
  }
  painter.save();
  painter.setFont(font);
  QRect room = label.rect;
  constexpr int kMenuArrow = 12;
  if (label.features & QStyleOptionButton::HasMenu) room.setWidth(room.width() - kMenuArrow);
  style.drawItemText(&painter, QStyle::visualRect(option.direction, option.rect, room),
                     Qt::AlignCenter | Qt::TextShowMnemonic, label.palette, Enabled(option),
                     option.text, QPalette::ButtonText);
  painter.restore();
}

void DrawPushButton(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                    const QStyle& style) {
  style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, widget);
  QStyleOptionButton label = option;
  label.rect = style.subElementRect(QStyle::SE_PushButtonContents, &option, widget);
  style.drawControl(QStyle::CE_PushButtonLabel, &label, &painter, widget);
}

void DrawField(const QStyleOption& option, QPainter& painter) {
  const bool on = Enabled(option);
  Box box{.fill = Of(on ? Role::kField : Role::kDisabledFill),
          .edge = Of(on ? Role::kEdge : Role::kLine)};
  if (Focused(option)) {
    box.edge = Of(Role::kFocus);
    box.edge_width = kFocusEdge;
  }
  Paint(painter, option.rect, box);
}

void DrawCombo(const QStyleOptionComboBox& option, QPainter& painter, const QStyle& style,
               const QWidget* widget) {
  const bool on = Enabled(option);
  Box box{.fill = Of(on ? Role::kField : Role::kDisabledFill),
          .edge = Of(on ? Role::kEdge : Role::kLine)};
  if (on && Has(option, QStyle::State_On)) {
    box.fill = Of(Role::kPress);
  } else if (Hovered(option)) {
    box.fill = Of(Role::kHover);
  }
  if (Focused(option)) {
    box.edge = Of(Role::kFocus);
    box.edge_width = kFocusEdge;
  }
  Paint(painter, option.rect, box);
  DrawPicture(painter, Drawing::kDown, on ? Role::kText : Role::kDisabled, SignSize(),
              style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget));
}

void DrawComboLabel(const QStyleOptionComboBox& option, QPainter& painter, const QStyle& style,
                    const QWidget* widget) {
  if (option.editable) return;
  const QRect room =
      style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, widget);
  const auto side = QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
  painter.save();
  painter.setClipRect(room, Qt::IntersectClip);
  style.drawItemText(&painter, room, static_cast<int>(side), option.palette, Enabled(option),
                     option.currentText, QPalette::ButtonText);
  painter.restore();
}

/// Boxes in a list have one look, whether the pointer is on them or the list is off.
void DrawIndicator(const QStyleOption& option, QPainter& painter, bool in_list) {
  const bool on = in_list || Enabled(option);
  const bool hovered = !in_list && Hovered(option);
  if (Has(option, QStyle::State_On)) {
    const Role fill = !on ? Role::kLine : hovered ? Role::kAccentHover : Role::kAccent;
    Paint(painter, option.rect, {.fill = Of(fill)});
    DrawPicture(painter, Drawing::kTick, on ? Role::kAccentText : Role::kDisabled, SignSize(),
                option.rect);
    return;
  }
  const Role fill = !on ? Role::kDisabledFill : hovered ? Role::kHover : Role::kField;
  const Role edge = !on ? Role::kLine : hovered ? Role::kFocus : Role::kEdge;
  Paint(painter, option.rect, {.fill = Of(fill), .edge = Of(edge)});
}

void DrawCheckBox(const QStyleOptionButton& option, QPainter& painter, const QWidget* widget,
                  const QStyle& style) {
  if (Focused(option)) {
    Paint(painter, option.rect, {.edge = Of(Role::kFocus), .edge_width = kFocusEdge});
  }
  QStyleOptionButton part = option;
  part.rect = style.subElementRect(QStyle::SE_CheckBoxIndicator, &option, widget);
  style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &part, &painter, widget);
  part.rect = style.subElementRect(QStyle::SE_CheckBoxContents, &option, widget);
  style.drawControl(QStyle::CE_CheckBoxLabel, &part, &painter, widget);
}

}  // namespace

bool Draw(QStyle::PrimitiveElement part, const QStyleOption& option, QPainter& painter,
          const QWidget* widget) {
  switch (part) {
    case QStyle::PE_PanelLineEdit:
      if (!IsInBox(widget)) DrawField(option, painter);
      return true;
    case QStyle::PE_IndicatorCheckBox:
      DrawIndicator(option, painter, false);
      return true;
    case QStyle::PE_IndicatorItemViewItemCheck:
      DrawIndicator(option, painter, true);
      return true;
    case QStyle::PE_FrameTabWidget:
      DrawPages(option, painter, widget);
      return true;
    case QStyle::PE_PanelMenu:
    case QStyle::PE_PanelTipLabel:
      Paint(painter, option.rect,
            {.fill = Of(Role::kSurface), .edge = Of(Role::kEdge), .radius = 0});
      return true;
    case QStyle::PE_FrameMenu:
    case QStyle::PE_FrameFocusRect:
    case QStyle::PE_FrameStatusBarItem:
    case QStyle::PE_PanelStatusBar:
    case QStyle::PE_PanelScrollAreaCorner:
      return true;
    default:
      return false;
  }
}

bool Draw(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
          const QWidget* widget, const QStyle& style) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  switch (part) {
    case QStyle::CE_PushButton:
      DrawPushButton(*button, painter, widget, style);
      return true;
    case QStyle::CE_PushButtonBevel:
      DrawButton(option, painter, widget);
      return true;
    case QStyle::CE_PushButtonLabel:
      if (!button->icon.isNull()) return false;
      DrawButtonLabel(*button, painter, widget, style);
      return true;
    case QStyle::CE_CheckBox:
      DrawCheckBox(*button, painter, widget, style);
      return true;
    case QStyle::CE_ComboBoxLabel: {
      const auto& combo = static_cast<const QStyleOptionComboBox&>(option);
      if (!combo.currentIcon.isNull()) return false;
      DrawComboLabel(combo, painter, style, widget);
      return true;
    }
    default:
      return DrawTabs(part, option, painter, widget, style) ||
             DrawViews(part, option, painter, widget, style) ||
             DrawAround(part, option, painter, widget, style);
  }
}

bool Draw(QStyle::ComplexControl control, const QStyleOptionComplex& option, QPainter& painter,
          const QWidget* widget, const QStyle& style) {
  if (control == QStyle::CC_ComboBox) {
    DrawCombo(static_cast<const QStyleOptionComboBox&>(option), painter, style, widget);
    return true;
  }
  if (control == QStyle::CC_ScrollBar) {
    DrawScrollBar(static_cast<const QStyleOptionSlider&>(option), painter, widget, style);
    return true;
  }
  if (control != QStyle::CC_ToolButton) return false;
  const auto& button = static_cast<const QStyleOptionToolButton&>(option);
  DrawButton(option, painter, widget);
  if (button.arrowType == Qt::LeftArrow || button.arrowType == Qt::RightArrow) {
    constexpr int kSize = 16;
    DrawPicture(painter, button.arrowType == Qt::LeftArrow ? Drawing::kLeft : Drawing::kRight,
                Enabled(option) ? Role::kText : Role::kDisabled, kSize, option.rect);
  } else {
    style.drawControl(QStyle::CE_ToolButtonLabel, &option, &painter, widget);
  }
  return true;
}

}  // namespace skin
