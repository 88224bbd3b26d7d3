#include "settings/window_placement_qt.h"

#include <gmock/gmock.h>

#include <QScreen>
#include <QWidget>

#include "support/failure_report.h"
#include "support/memory_settings.h"

using testing::HasSubstr;

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
    const QPoint middle = QRect({}, window.screen()->size() - window.size()).center();
    ASSERT_LT(middle.x(), 0) << "wider than the screen, so it begins at the screen's edge";
    EXPECT_LE((window.pos() - QPoint(0, middle.y())).manhattanLength(), 2);
    EXPECT_EQ(window.size(), QSize(929, 484));
    window.resize(321, 222);
    window.move(33, 44);
    EXPECT_TRUE(store.written.empty());
    window.close();
  }
  EXPECT_THAT(store.written, testing::ElementsAre("MainLeft=495", "MainTop=660", "MainWidth=4815",
                                                  "MainHeight=3330", "WindowState=0"));
  EXPECT_EQ(store.flushes, 1);
  PlacedWidget again(store, "Form1");
  again.show();
  EXPECT_EQ(again.pos(), QPoint(33, 44));
  EXPECT_EQ(again.size(), QSize(321, 222));
  store.values[{"Windows\\Main", "MainWidth"}] = "15";
  PlacedWidget least(store, "Form1");
  least.show();
  EXPECT_EQ(least.size(), QSize(200, 222)) << "not below what it needs";
  store.values[{"Windows\\Main", "MainLeft"}] = "-90000";
  PlacedWidget lost(store, "Form1");
  lost.show();
  EXPECT_EQ(lost.pos(), QPoint(0, 44));
  lost.hide();
  lost.move(-6000, 44);
  lost.show();
  EXPECT_EQ(lost.pos(), QPoint(0, 44));
  PlacedWidget wide(store, "Form8");
  wide.resize(wide.screen()->size().width() + 100, 300);
  wide.show();
  EXPECT_EQ(wide.pos().x(), 0);
}

TEST(WindowPlacementQt, AnOwnSizeIsGivenAtEachShowingUntilTheUserHasSizedTheWindow) {
  MemorySettings store;
  QWidget owner;
  owner.setGeometry(100, 100, 500, 400);
  QSize own(200, 100);
  const auto show = [&](QSize sized, QSize expected) {
    QWidget window(&owner, Qt::Window);
    new WindowPlacement(store, window, "Form3", [&] { return own; });
    for (int i = 0; i < 2; ++i) {
      window.show();
      EXPECT_EQ(window.size(), expected);
      EXPECT_TRUE(expected != own || window.geometry().center() == owner.geometry().center());
      if (i == 1 && sized.isValid()) window.resize(sized);
      window.close();
    }
  };
  show({}, own);
  own = {300, 200};
  show({321, 222}, own);
  show({}, {321, 222});
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
