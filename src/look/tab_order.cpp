#include "look/tab_order.h"

#include <QWidget>
#include <vector>

namespace {

/// All round, for what is no control of its own stays behind when they are moved.
std::vector<QWidget*> ControlsOf(const QWidget& part) {
  std::vector<QWidget*> controls;
  for (QWidget* next = part.nextInFocusChain(); next != &part; next = next->nextInFocusChain()) {
    const bool stops = next->focusPolicy() != Qt::NoFocus;
    if (stops && part.isAncestorOf(next)) controls.push_back(next);
  }
  return controls;
}

}  // namespace

QWidget* LastOnTab(QWidget& part) {
  const std::vector<QWidget*> controls = ControlsOf(part);
  return controls.empty() ? &part : controls.back();
}

void PutBehind(QWidget& before, QWidget& part) {
  QWidget* last = &before;
  for (QWidget* control : ControlsOf(part)) {
    QWidget::setTabOrder(last, control);
    last = control;
  }
}
