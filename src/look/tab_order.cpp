#include "look/tab_order.h"

#include <QWidget>
#include <vector>

namespace {

std::vector<QWidget*> ControlsOf(const QWidget& part) {
  std::vector<QWidget*> controls;
  for (QWidget* next = part.nextInFocusChain(); part.isAncestorOf(next);
       next = next->nextInFocusChain()) {
    if (next->focusPolicy() != Qt::NoFocus) controls.push_back(next);
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
