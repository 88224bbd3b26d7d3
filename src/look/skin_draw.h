#pragma once

#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionComplex;
class QWidget;

/// How the controls look under the skin. Each answers whether it has drawn; if not, the style below
/// does.
namespace skin {

bool Draw(QStyle::PrimitiveElement part, const QStyleOption& option, QPainter& painter,
          const QWidget* widget);
bool Draw(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
          const QWidget* widget, const QStyle& style);
bool Draw(QStyle::ComplexControl control, const QStyleOptionComplex& option, QPainter& painter,
          const QWidget* widget, const QStyle& style);

}  // namespace skin
