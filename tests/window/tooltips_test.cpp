#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QTabBar>

#include "support/fake_services.h"
#include "window/main_window.h"

TEST(Tooltips, TellMoreThanTheCaptionAndOfAFieldWhatItsModeMakesOfIt) {
  FakeServices system;
  Session session;
  Form1 window(session, system.services);
  const auto tip_of = [&](const char* name) {
    return window.findChild<QWidget*>(QLatin1String(name))->toolTip();
  };
  for (QComboBox* box : window.findChildren<QComboBox*>()) box->setCurrentIndex(1);
  EXPECT_TRUE(tip_of("fdCutFileText").startsWith(QStringLiteral("The text to remove")));
  for (QComboBox* box : window.findChildren<QComboBox*>()) box->setCurrentIndex(3);
  EXPECT_TRUE(tip_of("fdCutFileN").endsWith(QStringLiteral("from the end")));
  window.findChild<QComboBox*>(QStringLiteral("cmbDestination"))->setCurrentIndex(2);
  const auto* templates = window.findChild<QWidget*>(QStringLiteral("Frame3"));
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    const auto is = [&](const char* kind) { return control->inherits(kind); };
    const bool tells_all = is("ChipBar") || is("LinkButton") || is("QAbstractItemView");
    const bool is_part = is("QTabWidget") || control->parent()->inherits("QTabBar");
    const bool seen =
        control->window() == &window && !control->isHidden() && !templates->isAncestorOf(control);
    if (tells_all || is_part || !seen || !(control->focusPolicy() & Qt::TabFocus)) continue;
    const auto* tabs = qobject_cast<const QTabBar*>(control);
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
      const QString tip = tabs ? tabs->tabToolTip(i) : control->toolTip();
      EXPECT_GT(tip.section(QStringLiteral(" ("), 0, 0).size(), button ? button->text().size() : 0)
          << control->objectName().toStdString() << ": " << tip.toStdString();
    }
  }
}
