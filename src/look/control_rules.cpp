#include "look/control_rules.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>

namespace {

bool IsChangedByWheel(const QWidget& control) {
  return qobject_cast<const QComboBox*>(&control) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&control) != nullptr;
}

bool IsWheelKeptFrom(const QWidget& control) {
  if (qobject_cast<const QTabBar*>(&control) != nullptr) return true;
  return IsChangedByWheel(control) && !control.hasFocus();
}

bool IsEnter(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  return modifiers == Qt::NoModifier && !event.isAutoRepeat() &&
         (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

/// Before a control is seen for the first time.
void Prepare(QWidget& control) {
  // Else the wheel would bring the focus along.
  if (IsChangedByWheel(control) && control.focusPolicy() == Qt::WheelFocus) {
    control.setFocusPolicy(Qt::StrongFocus);
  }
  auto* label = qobject_cast<QLabel*>(&control);
  if (label != nullptr && label->textFormat() == Qt::AutoText) {
    label->setTextFormat(Qt::PlainText);
  }
  // By itself, a label goes by its text, and would stand at the end of its room.
  const auto left = Qt::AlignLeft | Qt::AlignVCenter;
  if (label != nullptr && label->isRightToLeft() && label->alignment() == left) {
    label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
  }
}

class ControlRules : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!watched->isWidgetType()) return false;
    auto& control = static_cast<QWidget&>(*watched);
    switch (event->type()) {
      case QEvent::Polish:
        Prepare(control);
        return false;
      case QEvent::Wheel:
        if (!IsWheelKeptFrom(control)) return false;
        event->ignore();  // what it lies in gets it next
        return true;
      case QEvent::KeyPress: {
        auto* button = qobject_cast<QPushButton*>(watched);
        if (button == nullptr || !IsEnter(static_cast<QKeyEvent&>(*event))) return false;
        button->click();
        return true;
      }
      default:
        return false;
    }
  }
};

}  // namespace

void SetControlRules(QCoreApplication& application) {
  application.installEventFilter(new ControlRules(&application));
}
