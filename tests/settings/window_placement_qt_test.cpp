#include "settings/window_placement_qt.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>

#include "support/failure_report.h"
#include "support/memory_settings.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// How far a window's place is from where its size puts it in the middle of the screen.
int OffTheMiddle(const QWidget& window) {
  const QSize spare = window.screen()->size() - window.size();
  return (window.pos() - QPoint(spare.width(), spare.height()) / 2).manhattanLength();
}

struct PlacedWidget : QWidget {
  PlacedWidget(SettingsStore& store, const char* frm) {
    setMinimumSize(200, 100);
    resize(minimumSize());
    new WindowPlacement(store, *this, frm);
  }
};

TEST(WindowPlacementQt, AWindowOpensInTheMiddleThenWhereItWasClosed) {
  MemorySettings store;
  {
    PlacedWidget window(store, "Form1");
    window.show();
    EXPECT_LE(OffTheMiddle(window), 1);
    EXPECT_EQ(window.size(), QSize(200, 100));
    window.resize(321, 222);
    window.move(33, 44);
    EXPECT_THAT(store.written, IsEmpty());
    window.close();
  }
  EXPECT_THAT(store.written, ElementsAre("MainLeft=495", "MainTop=660", "MainWidth=4815",
                                         "MainHeight=3330", "WindowState=0"));
  EXPECT_EQ(store.flushes, 1);
  PlacedWidget again(store, "Form1");
  again.show();
  EXPECT_EQ(again.pos(), QPoint(33, 44));
  EXPECT_EQ(again.size(), QSize(321, 222));
}

TEST(WindowPlacementQt, AMaximisedWindowKeepsItsNormalPlaceAndAMinimisedOneWritesNothing) {
  MemorySettings store;
  {
    PlacedWidget window(store, "Form3");
    window.show();
    window.setGeometry(33, 44, 321, 222);
    window.close();
    window.showMaximized();
    window.close();
  }
  PlacedWidget window(store, "Form3");
  window.show();
  EXPECT_TRUE(window.isMaximized());
  EXPECT_EQ(window.normalGeometry(), QRect(33, 44, 321, 222));
  window.showNormal();
  EXPECT_EQ(window.size(), QSize(321, 222));
  window.showMinimized();
  store.written.clear();
  window.close();
  EXPECT_THAT(store.written, IsEmpty());
}

TEST(WindowPlacementQt, ADialogIsPlacedByTheSizeOfItsLayoutAndStoredHoweverItEnds) {
  MemorySettings store;
  QWidget owner;
  owner.setGeometry(500, 300, 200, 100);
  QDialog dialog(&owner);
  (new QVBoxLayout(&dialog))->addStrut(250);
  new WindowPlacement(store, dialog, "Form8");
  dialog.open();
  EXPECT_LE(OffTheMiddle(dialog), 1);
  dialog.move(60, 70);
  dialog.accept();
  EXPECT_THAT(store.written, ElementsAre("MainLeft=900", "MainTop=1050", "WindowState=0"));
  dialog.open();
  dialog.move(80, 90);
  dialog.reject();
  EXPECT_EQ((store.values[{"Windows\\Conflicts", "MainLeft"}]), "1200");
}

TEST(WindowPlacementQt, BadValuesAndAFullDiskAreReportedAndTheWindowWorks) {
  MemorySettings store;
  store.values = {{{"Windows\\Main", "MainWidth"}, "6000"},
                  {{"Windows\\Main", "MainHeight"}, "tall"}};
  PlacedWidget window(store, "Form1");
  EXPECT_THAT(FailureReport([&] { window.show(); }), HasSubstr("'tall'"));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.size(), QSize(400, 100));
  store.problem = {"The disk is full"};
  EXPECT_THAT(FailureReport([&] { window.close(); }), HasSubstr("The disk is full"));
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
