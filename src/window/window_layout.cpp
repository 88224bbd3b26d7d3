#include "window/window_layout.h"

#include <QEvent>

#include "look/look.h"

namespace {

// The told least size, 13940 by 7260 twips, at 15 twips to a logical pixel.
constexpr QSize kLeast(930, 484);

}  // namespace

WindowLayout::WindowLayout(QWidget* window) : QVBoxLayout(window) {
  window->installEventFilter(this);
}

QSize WindowLayout::minimumSize() const {
  return QVBoxLayout::minimumSize().expandedTo(kLeast);
}

bool WindowLayout::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    // Some parts hear of it after the window.
    QMetaObject::invokeMethod(this, &WindowLayout::AskAllAnew, Qt::QueuedConnection);
  }
  return false;
}

void WindowLayout::AskAllAnew() {
  for (QLayout* part : parentWidget()->findChildren<QLayout*>()) part->invalidate();
  activate();
}

LeftColumn::LeftColumn(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize LeftColumn::minimumSizeHint() const {
  return QWidget::minimumSizeHint().expandedTo({measure::kLeftColumn, 0});
}
