#include "look/skin.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QStyle>
#include <QTemporaryDir>
#include <cmath>
#include <vector>

#include "look/look.h"
#include "look/skin_sheet.h"

namespace {

/// Relative luminance and contrast ratio as WCAG 2.1 defines them.
double Luminance(const QColor& colour) {
  const auto channel = [](double c) {
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(colour.redF()) + 0.7152 * channel(colour.greenF()) +
         0.0722 * channel(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double x = Luminance(a) + 0.05;
  const double y = Luminance(b) + 0.05;
  return x > y ? x / y : y / x;
}

QPalette DesktopPalette(bool dark) {
  QPalette palette;
  palette.setColor(QPalette::Window, dark ? QColor(30, 30, 30) : QColor(240, 240, 240));
  palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
  return palette;
}

class SkinTest : public testing::Test {
 protected:
  void TearDown() override {
    ApplySkin(*qApp, false);
    QApplication::setPalette(QPalette());
    ApplySkin(*qApp, false);
    qInstallMessageHandler(nullptr);
  }
};

int warnings = 0;
void CountWarnings(QtMsgType, const QMessageLogContext&, const QString&) {
  ++warnings;
}

}  // namespace

/// WCAG 2.1, 1.4.3 and 1.4.11: text wants 4.5, what shows a control or its state 3.
TEST_F(SkinTest, EveryRoleStandsOutFromItsGrounds) {
  constexpr double kText = 4.5, kSign = 3.0;
  const struct {
    Role role;
    double least;
    std::vector<Role> grounds;
  } table[] = {
      {Role::kText,
       kText,
       {Role::kWindow, Role::kSurface, Role::kField, Role::kSel, Role::kHover, Role::kPress}},
      {Role::kMuted,
       kText,
       {Role::kWindow, Role::kSurface, Role::kField, Role::kHead, Role::kGroup}},
      {Role::kAccentText, kText, {Role::kAccent, Role::kAccentHover}},
      {Role::kLink, kText, {Role::kSurface, Role::kHead, Role::kField}},
      {Role::kGroupText, kText, {Role::kGroup, Role::kSel}},
      {Role::kChipText, kText, {Role::kChip}},
      {Role::kTintText, kText, {Role::kTint}},
      {Role::kGone, kText, {Role::kField}},
      {Role::kWait, kText, {Role::kField, Role::kSel}},
      {Role::kEdge, kSign, {Role::kSurface, Role::kField, Role::kWindow}},
      {Role::kFocus, kSign, {Role::kSurface, Role::kField, Role::kSel, Role::kTint}},
      {Role::kWarn, kSign, {Role::kWindow, Role::kSurface, Role::kField}},
  };
  Look& look = Look::Current();
  for (const bool dark : {false, true}) {
    look.Choose(true, dark);
    for (const auto& row : table) {
      for (const Role ground : row.grounds) {
        EXPECT_GE(Contrast(look.Colour(row.role), look.Colour(ground)), row.least)
            << "dark " << dark << ", role " << static_cast<int>(row.role) << " on "
            << static_cast<int>(ground);
      }
    }
    for (const Role mark : {Role::kDone, Role::kFailed}) {
      EXPECT_GE(Contrast(look.Colour(mark), PillColour(mark)), kText) << static_cast<int>(mark);
    }
  }
}

TEST_F(SkinTest, TheDesktopDecidesBetweenLightAndDarkAndOffGivesItBack) {
  const QString style = QApplication::style()->name();
  for (const bool dark : {true, false}) {
    ApplySkin(*qApp, false);
    QApplication::setPalette(DesktopPalette(dark));
    const QColor ground = QApplication::palette().color(QPalette::Window);
    // The second time: the skin's own palette must not be taken for the desktop's.
    for (int time = 0; time < 2; ++time) ApplySkin(*qApp, true);
    EXPECT_EQ(Look::Current().Dark(), dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              QColor(dark ? 0xFF17202B : 0xFFEDF2F8));
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
    ApplySkin(*qApp, false);
    EXPECT_TRUE(qApp->styleSheet().isEmpty());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), ground);
    EXPECT_EQ(QApplication::style()->name(), style);
    EXPECT_EQ(Look::Current().Colour(Role::kDone), QColor(50, 150, 50));
  }
}

TEST_F(SkinTest, TheSheetIsWholeAndItsPicturesAreThere) {
  QTemporaryDir folder;
  Look::Current().Choose(true, true);
  const QString sheet = SkinSheet(folder.path());
  static const QRegularExpression placeholder(QStringLiteral("\\{[A-Za-z]+\\}"));
  EXPECT_FALSE(placeholder.match(sheet).hasMatch())
      << placeholder.match(sheet).captured().toStdString();
  static const QRegularExpression url(QStringLiteral("url\\(\"([^\"]*)\\.png\"\\)"));
  int pictures = 0;
  for (auto i = url.globalMatch(sheet); i.hasNext(); ++pictures) {
    const QString stem = i.next().captured(1);
    for (const char* rest : {".png", "@2x.png"}) {
      EXPECT_TRUE(QFile::exists(stem + QString::fromLatin1(rest))) << stem.toStdString() << rest;
    }
  }
  EXPECT_GT(pictures, 5);

  warnings = 0;
  qInstallMessageHandler(CountWarnings);
  qApp->setStyleSheet(sheet);
  EXPECT_EQ(warnings, 0) << "the sheet doesn't parse";
  qApp->setStyleSheet({});
}
