#include "look/control_rules.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QToolTip>
#include <QWheelEvent>
#include <tuple>
#include <utility>

#include "support/keys.h"

namespace {

/// Whether the control itself takes a step of the wheel.
bool TakesTurn(QWidget& widget) {
  QWheelEvent turn({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &turn);
  return turn.isAccepted();
}

}  // namespace

TEST(ControlRules, TheWheelChangesOnlyWhatHasTheFocusAndNeverTabs) {
  QWidget window;
  QComboBox combo(&window);
  QSpinBox number(&window);
  QTabBar tabs(&window);
  combo.addItems({QStringLiteral("a"), QStringLiteral("b")});
  number.setValue(5);
  for (int i = 0; i < 2; ++i) tabs.addTab(QStringLiteral("t"));
  window.show();
  window.activateWindow();
  QCoreApplication::processEvents();
  for (QWidget* control : std::initializer_list<QWidget*>{&combo, &number, &tabs}) {
    EXPECT_NE(control->focusPolicy(), Qt::WheelFocus);
    window.setFocus();
    EXPECT_FALSE(TakesTurn(*control));
    control->setFocus();
    EXPECT_EQ(TakesTurn(*control), control != &tabs);
  }
  EXPECT_EQ(std::tuple(combo.currentIndex(), number.value(), tabs.currentIndex()),
            std::tuple(1, 4, 0));
}

TEST(ControlRules, EnterPressesTheFocusedButtonOutsideOfDialogsToo) {
  QPushButton button;
  int pressed = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++pressed; });
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) Press(&button, key);
  Press(&button, Qt::Key_Return, Qt::ControlModifier);
  button.setEnabled(false);
  Press(&button, Qt::Key_Return);
  EXPECT_EQ(pressed, 2);
}

TEST(ControlRules, MarkupInATextIsShownAsItStands) {
  const QString name = QStringLiteral("<b>x</b> &amp;.jpg");
  QWidget window;
  QLabel label(name, &window);
  window.show();
  QToolTip::showText({}, name, &window);
  const QLabel* tip = nullptr;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (top->inherits("QTipLabel")) tip = qobject_cast<QLabel*>(top);
  }
  ASSERT_NE(tip, nullptr);
  for (const QLabel* shown : {&std::as_const(label), tip}) {
    EXPECT_EQ(shown->text(), name);
    EXPECT_EQ(shown->textFormat(), Qt::PlainText);
  }
  QToolTip::hideText();
}
