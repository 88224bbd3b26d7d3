#include "look/skin.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QStyle>
#include <QTemporaryDir>
#include <cmath>

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

TEST_F(SkinTest, EveryTextStandsOutFromItsGround) {
  const struct {
    Role text;
    Role ground;
    double light;
    double dark;
  } table[] = {
      {Role::kText, Role::kField, 15.2, 14.1},
      {Role::kMuted, Role::kHead, 6.0, 7.4},
      {Role::kEdge, Role::kSurface, 3.6, 4.0},
      {Role::kAccentText, Role::kAccent, 6.4, 5.2},
      {Role::kAccentText, Role::kAccentHover, 8.2, 6.0},
      {Role::kFocus, Role::kSurface, 6.4, 7.8},
      {Role::kLink, Role::kSurface, 6.4, 7.8},
      {Role::kText, Role::kSel, 11.8, 8.4},
      {Role::kGroupText, Role::kGroup, 7.6, 7.8},
      {Role::kChipText, Role::kChip, 7.7, 7.9},
      {Role::kTintText, Role::kTint, 7.7, 7.4},
      {Role::kGone, Role::kField, 6.1, 7.7},
      {Role::kWait, Role::kField, 6.7, 9.3},
      {Role::kWarn, Role::kWindow, 4.4, 8.9},
      {Role::kWait, Role::kSel, 4.5, 4.5},
      {Role::kMuted, Role::kWindow, 4.5, 4.5},
      {Role::kMuted, Role::kGroup, 4.5, 4.5},
      {Role::kGroupText, Role::kSel, 4.5, 4.5},
      {Role::kText, Role::kHover, 4.5, 4.5},
      {Role::kText, Role::kPress, 4.5, 4.5},
  };
  constexpr double kRounding = 0.06;  // pills are thinned by whole percents
  Look& look = Look::Current();
  for (const bool dark : {false, true}) {
    look.Choose(true, dark);
    for (const auto& row : table) {
      EXPECT_GE(Contrast(look.Colour(row.text), look.Colour(row.ground)) + kRounding,
                dark ? row.dark : row.light)
          << "dark " << dark << ", role " << static_cast<int>(row.text) << " on "
          << static_cast<int>(row.ground);
    }
    EXPECT_GE(Contrast(look.Colour(Role::kDone), PillColour(Role::kDone)) + kRounding,
              dark ? 7.8 : 5.5);
    EXPECT_GE(Contrast(look.Colour(Role::kFailed), PillColour(Role::kFailed)) + kRounding,
              dark ? 8.4 : 5.3);
  }
}

TEST_F(SkinTest, TheDesktopDecidesBetweenLightAndDark) {
  for (const bool dark : {true, false}) {
    ApplySkin(*qApp, false);
    QApplication::setPalette(DesktopPalette(dark));
    ApplySkin(*qApp, true);
    EXPECT_EQ(Look::Current().Dark(), dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              QColor(dark ? 0xFF17202B : 0xFFEDF2F8));
    // The skin's own palette must not be taken for the desktop's.
    ApplySkin(*qApp, true);
    EXPECT_EQ(Look::Current().Dark(), dark);
  }
}

TEST_F(SkinTest, OffGivesTheDesktopBack) {
  QApplication::setPalette(DesktopPalette(true));
  const QString style = QApplication::style()->name();
  ApplySkin(*qApp, true);
  EXPECT_FALSE(qApp->styleSheet().isEmpty());
  ApplySkin(*qApp, false);
  EXPECT_TRUE(qApp->styleSheet().isEmpty());
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(30, 30, 30));
  EXPECT_EQ(QApplication::style()->name(), style);
  EXPECT_EQ(Look::Current().Colour(Role::kDone), QColor(50, 150, 50));
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
