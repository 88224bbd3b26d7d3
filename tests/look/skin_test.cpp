#include "look/skin.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "look/look.h"
#include "look/skin_style.h"

/// Relative luminance and contrast ratio as WCAG 2.1 defines them.
static double Luminance(const QColor& colour) {
  const auto of = [](double c) {
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * of(colour.redF()) + 0.7152 * of(colour.greenF()) + 0.0722 * of(colour.blueF());
}

static double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

struct SkinTest : testing::Test {
  void TearDown() override {
    ApplySkin(*qApp, false);
    QApplication::setPalette(QPalette());
    ApplySkin(*qApp, false);
  }
};

/// WCAG 2.1, 1.4.3 and 1.4.11: text wants 4.5, what shows a control or its state 3.
TEST_F(SkinTest, EveryRoleStandsOutFromItsGrounds) {
  using enum Role;
  constexpr double kReads = 4.5, kShows = 3.0;
  const std::tuple<Role, double, std::vector<Role>> table[] = {
      {kText, kReads, {kWindow, kSurface, kField, kSel, kHover, kPress}},
      {kMuted, kReads, {kWindow, kSurface, kField, kHead, kGroup}},
      {kAccentText, kReads, {kAccent, kAccentHover}},
      {kLink, kReads, {kSurface, kHead, kField}},
      {kGroupText, kReads, {kGroup, kSel}},
      {kChipText, kReads, {kChip}},
      {kTintText, kReads, {kTint}},
      {kGone, kReads, {kField}},
      {kWait, kReads, {kField, kSel}},
      {kEdge, kShows, {kSurface, kField, kWindow}},
      {kFocus, kShows, {kSurface, kField, kSel, kTint}},
      {kWarn, kShows, {kWindow, kSurface, kField}}};
  Look& look = Look::Current();
  for (const bool dark : {false, true}) {
    look.Choose(true, dark);
    for (const auto& [role, least, grounds] : table) {
      for (const Role ground : grounds) {
        EXPECT_GE(Contrast(look.Colour(role), look.Colour(ground)), least)
            << "dark " << dark << ", role " << int(role) << " on " << int(ground);
      }
    }
    for (const Role mark : {kDone, kFailed}) {
      EXPECT_GE(Contrast(look.Colour(mark), PillColour(mark)), kReads) << int(mark);
    }
  }
}

TEST_F(SkinTest, TheDesktopDecidesBetweenLightAndDarkAndOffGivesItBack) {
  const QString style = QApplication::style()->name();
  for (const bool dark : {true, false}) {
    ApplySkin(*qApp, false);
    const QColor ground = dark ? QColor(30, 30, 30) : QColor(240, 240, 240);
    QPalette desktop;
    desktop.setColor(QPalette::Window, ground);
    desktop.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    QApplication::setPalette(desktop);
    // The second time: the skin's own palette must not be taken for the desktop's.
    for (int time = 0; time < 2; ++time) ApplySkin(*qApp, true);
    EXPECT_EQ(Look::Current().Dark(), dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              QColor(dark ? 0xFF17202B : 0xFFEDF2F8));
    EXPECT_NE(qobject_cast<SkinStyle*>(QApplication::style()), nullptr);
    ApplySkin(*qApp, false);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), ground);
    EXPECT_EQ(QApplication::style()->name(), style);
    EXPECT_EQ(Look::Current().Colour(Role::kDone), QColor(50, 150, 50));
  }
}
