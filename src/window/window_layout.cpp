#include "window/window_layout.h"

#include <QEvent>

#include "look/look.h"
#include "settings/window_placement.h"

namespace {

/// Of whole pixels, so rather more.
constexpr int Pixels(float twips) {
  const int whole = static_cast<int>(twips / kTwipsPerPixel);
  return static_cast<float>(whole) * kTwipsPerPixel < twips ? whole + 1 : whole;
}

constexpr QSize kLeast(Pixels(gMinFormWidth), Pixels(gMinFormHeight));
static_assert(kLeast == QSize(930, 484));

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
