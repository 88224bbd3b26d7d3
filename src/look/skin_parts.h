#pragma once

#include <QStyleOption>

#include "look/look.h"

class QPainter;
class QWidget;

/// What the parts of the skin's style share: which of its forms a control has, and how boxes are
/// painted.
namespace skin {

/// A height as it is with a usual font; a larger one adds the same to all. A line of text has room
/// in each.
int Tall(int height);

/// How wide and high what is drawn beside a text is: a box, its tick, an arrow.
int SignSize();

/// Whether `widget` asks for a form by a property of that name.
bool Asks(const QWidget* widget, const char* property);

enum class ButtonForm { kPlain, kNarrow, kCommand, kDialog, kTool, kScroll, kInField, kLink };
struct ButtonMeasures {
  int height;  ///< between its edges, with a usual font
  int padding;
};
constexpr int kEdge = 1;
constexpr int kFocusEdge = 2;
constexpr int kRadius = 4;       ///< of controls
constexpr int kLargeRadius = 6;  ///< of what holds controls

ButtonForm FormOf(const QWidget* button);
ButtonMeasures MeasuresOf(ButtonForm form);
/// The next command, or the button that Enter presses in a dialog.
bool IsPrimary(const QStyleOption& button, const QWidget* widget);

enum class TabsForm { kOther, kFolders, kOptions };
/// Of a tab bar or of what it belongs to; kOther: a bar alone.
TabsForm TabsFormOf(const QWidget* widget);

/// Whether it is a list or a table; its headers are none.
bool IsView(const QWidget* widget);
/// Whether the view is the list that a combo box or a field opens.
bool IsOffers(const QWidget* view);
/// Whether `field` is a part of a combo box or a number box, which paint the box around it.
bool IsInBox(const QWidget* field);

/// What the marks of a menu's entries take at the side of their texts.
int MenuMarkRoom(const QStyleOptionMenuItem& item);

struct Box {
  QColor fill = Qt::transparent;
  QColor edge = Qt::transparent;
  qreal edge_width = kEdge;
  qreal radius = kRadius;
};
void Paint(QPainter& painter, const QRectF& place, const Box& box);
/// The colour of a role in the look in force.
QColor Of(Role role);
/// In the middle of `place`.
void DrawPicture(QPainter& painter, Drawing drawing, Role role, int size, const QRect& place);

inline bool Has(const QStyleOption& option, QStyle::StateFlag flag) {
  return option.state & flag;
}
inline bool Enabled(const QStyleOption& option) {
  return Has(option, QStyle::State_Enabled);
}
inline bool Focused(const QStyleOption& option) {
  return Enabled(option) && Has(option, QStyle::State_HasFocus);
}
inline bool Hovered(const QStyleOption& option) {
  return Enabled(option) && Has(option, QStyle::State_MouseOver);
}

}  // namespace skin
