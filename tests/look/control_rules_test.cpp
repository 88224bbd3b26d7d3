#include "look/control_rules.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QToolTip>
#include <QWheelEvent>

#include "support/keys.h"

TEST(ControlRules, TheWheelChangesOnlyABoxWithTheFocusAndNeverTabs) {
  QWidget window;
  QComboBox box(&window);
  QTabBar tabs(&window);
  for (const char* text : {"a", "b"}) {
    box.addItem(QLatin1String(text));
    tabs.addTab(QLatin1String(text));
  }
  window.show();
  window.activateWindow();
  QCoreApplication::processEvents();
  EXPECT_NE(box.focusPolicy(), Qt::WheelFocus);
  for (QWidget* control : std::initializer_list<QWidget*>{&window, &box, &tabs}) {
    control->setFocus();
    for (QWidget* under : std::initializer_list<QWidget*>{&box, &tabs}) {
      QWheelEvent turn({5, 5}, under->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                       Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(under, &turn);
      EXPECT_EQ(turn.isAccepted(), control == &box && under == &box) << "else it scrolls";
    }
  }
  EXPECT_EQ(box.currentIndex() - tabs.currentIndex(), 1);
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
  int tips = 0;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    auto* tip = top->inherits("QTipLabel") ? qobject_cast<QLabel*>(top) : nullptr;
    tips += tip && tip->text() == name && tip->textFormat() == Qt::PlainText;
  }
  EXPECT_EQ(tips, 1);
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  QToolTip::hideText();
}
