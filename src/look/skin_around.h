#pragma once

#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionSlider;
class QWidget;

/// How that looks which holds controls, shows lists and opens over them. The first three answer
/// whether they have drawn.
namespace skin {

bool DrawTabs(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
              const QWidget* widget, const QStyle& style);
bool DrawViews(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
               const QWidget* widget, const QStyle& style);
bool DrawAround(QStyle::ControlElement part, const QStyleOption& option, QPainter& painter,
                const QWidget* widget, const QStyle& style);
/// The pane of tabs.
void DrawPages(const QStyleOption& option, QPainter& painter, const QWidget* widget);
void DrawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QWidget* widget,
                   const QStyle& style);

}  // namespace skin
