#include "filelist/file_list_panel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <cerrno>

#include "filelist/list_roles.h"
#include "filelist/list_view.h"
#include "platform/qt/text_qt.h"

namespace {

using testing::ElementsAre;

/// Two folders; rows are 0 "/a/", 1 to 3 its files, 4 "/b/", 5 its file.
class FileListTest : public testing::Test {
 protected:
  FileListTest() {
    const struct {
      const char* folder;
      const char* name;
      double size;
    } table[] = {{"/a/", "IMG_3.JPG", 5'000'000'000.0},
                 {"/a/", "IMG_1.JPG", 20},
                 {"/a/", "bad\xFF.JPG", 7},
                 {"/b/", "x.txt", 1}};
    for (const auto& row : table) {
      records.AddRecord("", row.folder, row.name, FileDate(2024, 3, 12, 9, 8, 7), row.size, "File");
    }
    records[0].newFileName = "3_a.jpg";
    grid.Populate();
    panel.ListRepopulated();
    panel.resize(700, 400);
    panel.show();
    QCoreApplication::processEvents();
  }

  QAbstractItemModel& Model() { return *panel.ReportControl1->model(); }
  QVariant Data(int row, int column, int role = Qt::DisplayRole) {
    return Model().index(row, column).data(role);
  }
  std::string Text(int row, int column, int role = Qt::DisplayRole) {
    return Data(row, column, role).toString().toStdString();
  }
  void Mouse(QEvent::Type type, const QPoint& place) {
    QWidget* target = panel.ReportControl1->viewport();
    QMouseEvent event(type, place, target->mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
  }
  void ClickCheckCell(int row, bool twice = false) {
    const QRect cell = panel.ReportControl1->visualRect(Model().index(row, kColumnCheck));
    Mouse(QEvent::MouseButtonPress, cell.center());
    Mouse(QEvent::MouseButtonRelease, cell.center());
    if (!twice) return;
    Mouse(QEvent::MouseButtonDblClick, cell.center());
    Mouse(QEvent::MouseButtonRelease, cell.center());
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(panel.ReportControl1, &event);
  }
  void SortBy(int column, Qt::SortOrder order = Qt::AscendingOrder) {
    panel.ReportControl1->horizontalHeader()->setSortIndicator(column, order);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (int row = 0; row < Model().rowCount(); ++row)
      names.push_back(Text(row, kColumnSourceName));
    return names;
  }

  Records records;
  Grid grid{records};
  FileListPanel panel{grid};
};

}  // namespace

TEST_F(FileListTest, CellsTellTheirTexts) {
  const struct {
    int column;
    const char* caption;
    const char* text;
  } table[] = {
      {kColumnPath, "Path", "/a/"},  {kColumnSize, "Size", "5000000000"},
      {kColumnType, "Type", "File"}, {kColumnDate, "Date", "2024.03.12 09:08:07"},
      {kColumnCheck, "", ""},        {kColumnSourceName, "Source file name", "IMG_3.JPG"},
      {kColumnMark, ">>", ">>"},     {kColumnNewName, "New file name", "3_a.jpg"},
  };
  for (const auto& row : table) {
    EXPECT_EQ(Model().headerData(row.column, Qt::Horizontal).toString().toStdString(), row.caption);
    EXPECT_EQ(Text(1, row.column), row.text);
  }
  EXPECT_TRUE(Data(1, kColumnSize, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
  EXPECT_EQ(Text(3, kColumnSourceName), "bad\xEF\xBF\xBD.JPG");
}

TEST_F(FileListTest, GroupRowsSaySoInEveryColumnAndHaveNoBox) {
  for (int column = 0; column < panel.ReportControl1->model()->columnCount(); ++column) {
    EXPECT_EQ(Text(0, column, Qt::AccessibleDescriptionRole), "group, 3 files");
    EXPECT_EQ(Text(4, column, Qt::AccessibleDescriptionRole), "group, 1 file");
    EXPECT_FALSE(Data(0, column, Qt::CheckStateRole).isValid());
    EXPECT_EQ(Data(1, column, Qt::CheckStateRole).isValid(), column == kColumnCheck);
    EXPECT_TRUE(Model().flags(Model().index(0, column)) & Qt::ItemIsSelectable);
  }
  EXPECT_EQ(Text(0, kColumnSourceName), "/a/");
  EXPECT_FALSE(Model().setData(Model().index(0, kColumnCheck), Qt::Unchecked, Qt::CheckStateRole));
}

TEST_F(FileListTest, RowsSayInWordsWhatColoursTell) {
  EXPECT_EQ(Text(1, kColumnNewName, Qt::AccessibleDescriptionRole), "waiting, IMG_ removed");
  records[0].mark = Mark::kFailed;
  records[0].checked = false;
  records[0].newFileName = records[0].sourceFileName;
  EXPECT_EQ(Text(1, kColumnCheck, Qt::AccessibleDescriptionRole),
            "failed, not checked, name unchanged");
  records[0].problem = EEXIST;
  EXPECT_EQ(Text(1, kColumnCheck, Qt::AccessibleDescriptionRole),
            "failed: The name is already taken. not checked, name unchanged");
  for (int column = 0; column < panel.ReportControl1->model()->columnCount(); ++column) {
    EXPECT_EQ(Text(1, column, kReasonRole),
              column < kColumnSourceName ? "" : "The name is already taken.");
  }
  records[0].mark = Mark::kDone;
  EXPECT_EQ(Text(1, kColumnCheck, Qt::AccessibleDescriptionRole),
            "not undone: The name is already taken. not checked, name unchanged");
  records[0].problem = 0;
  EXPECT_EQ(Text(1, kColumnMark, kReasonRole), "");
}

TEST_F(FileListTest, AClickAnywhereInTheCellSwitchesTheBox) {
  std::vector<int> told;
  QObject::connect(&panel, &FileListPanel::rowChecked, [&](int value) { told.push_back(value); });
  ClickCheckCell(1);
  EXPECT_FALSE(records[0].checked);
  EXPECT_THAT(told, ElementsAre(1));
  ClickCheckCell(2, true);
  EXPECT_TRUE(records[1].checked) << "two quick clicks are two";
  ClickCheckCell(0);  // a group row has no box
  EXPECT_THAT(told, ElementsAre(1, 2, 2));
}

TEST_F(FileListTest, SpaceSwitchesTheWholeSelectionTheWayOfTheCurrentRow) {
  std::vector<int> told;
  QObject::connect(&panel, &FileListPanel::rowChecked, [&](int value) { told.push_back(value); });
  records[3].checked = false;
  panel.ReportControl1->setCurrentIndex(Model().index(1, kColumnSourceName));
  panel.ReportControl1->selectAll();
  Key(Qt::Key_Space);
  for (std::size_t i = 0; i < records.Count(); ++i) EXPECT_FALSE(records[i].checked) << i;
  Key(Qt::Key_Space);
  for (std::size_t i = 0; i < records.Count(); ++i) EXPECT_TRUE(records[i].checked) << i;
  EXPECT_EQ(told.size(), 2U);
}

TEST_F(FileListTest, CurrentAndSelectedRowsGoWithTheirFilesThroughASort) {
  int told = 0;
  QObject::connect(&panel, &FileListPanel::sortChanged, [&] { ++told; });
  panel.ReportControl1->selectRow(1);
  SortBy(kColumnSize);
  EXPECT_THAT(Names(),
              ElementsAre("/a/", "bad\xEF\xBF\xBD.JPG", "IMG_1.JPG", "IMG_3.JPG", "/b/", "x.txt"));
  EXPECT_EQ(panel.ReportControl1->currentIndex().row(), 3);
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(3));
  SortBy(kColumnMark);  // can't be sorted by, so nothing moves
  EXPECT_EQ(panel.ReportControl1->horizontalHeader()->sortIndicatorSection(), kColumnSize);
  EXPECT_EQ(told, 1);
  SortBy(-1);
  EXPECT_EQ(panel.ReportControl1->currentIndex().row(), 1);
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(1));
}

TEST_F(FileListTest, GroupingAnewKeepsTheCurrentFile) {
  std::vector<int> told;
  QObject::connect(&panel, &FileListPanel::groupByChanged,
                   [&](int value) { told.push_back(value); });
  panel.ReportControl1->selectRow(5);
  panel.cmbGroupBy->setCurrentIndex(0);
  EXPECT_EQ(Model().rowCount(), 4);
  EXPECT_EQ(panel.ReportControl1->currentIndex().row(), 3);
  EXPECT_THAT(told, ElementsAre(0));
}

TEST_F(FileListTest, AClearedListStaysEmptyWhateverItsRecords) {
  grid.Clear();
  panel.ListRepopulated();
  panel.cmbGroupBy->setCurrentIndex(2);
  SortBy(kColumnSourceName);
  EXPECT_EQ(Model().rowCount(), 0);
}

TEST_F(FileListTest, ColumnsAreHiddenByTheirBoxesAndShareTheWidth) {
  ListView& list = *panel.ReportControl1;
  const auto total = [&] { return list.horizontalHeader()->length(); };
  EXPECT_TRUE(list.isColumnHidden(kColumnPath));
  EXPECT_EQ(total(), list.viewport()->width());
  panel.ColumnBox(kColumnSize)->setChecked(true);
  EXPECT_FALSE(list.isColumnHidden(kColumnSize));
  EXPECT_EQ(list.columnWidth(kColumnSize), 80);
  EXPECT_EQ(total(), list.viewport()->width());
  list.setColumnWidth(kColumnSourceName, 400);  // as a drag of the heading does
  panel.ColumnBox(kColumnSize)->setChecked(false);
  EXPECT_EQ(list.columnWidth(kColumnSourceName), 400);
  EXPECT_EQ(total(), list.viewport()->width());
  panel.resize(200, 400);
  QCoreApplication::processEvents();
  EXPECT_EQ(list.columnWidth(kColumnNewName), 140) << "narrower is not readable";
}

TEST_F(FileListTest, TheWideButtonTurnsAndKeepsItsKey) {
  std::vector<bool> told;
  QObject::connect(&panel, &FileListPanel::wideToggled, [&](bool wide) { told.push_back(wide); });
  panel.bnWideFileList->click();
  EXPECT_EQ(panel.bnWideFileList->text(), QStringLiteral(">"));
  EXPECT_EQ(panel.bnWideFileList->shortcut(), QKeySequence(Qt::Key_F9));
  panel.bnWideFileList->click();
  EXPECT_EQ(panel.bnWideFileList->text(), QStringLiteral("<"));
  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST(NamePieces, AreTheShownNameWhateverStandsBesideTheirBorders) {
  const std::string old_name = "\U0001F468\xFF-a\u200D1\u200C.x";
  const std::string new_name = "\U0001F468\xFF-a\u200D23\n\u200C.x";
  EXPECT_EQ(Join(MarkGone(old_name, new_name)), text::Shown(old_name));
  EXPECT_EQ(Join(MarkNew(old_name, new_name)), text::Shown(new_name));
  EXPECT_GT(MarkNew(old_name, new_name).size(), 1U);
}

TEST(NamePieces, AnElidedMiddleTakesTheMarkThatItHidesAndIsOneRunWithIt) {
  const QFontMetrics metrics{QFont()};
  const QString end = QStringLiteral("mmmm");
  const QString middle = QStringLiteral("nnnnnnnnnnnn");
  const QString rest = QStringLiteral("nnnn");
  for (const bool marked : {false, true}) {
    const NamePieces pieces = {{end, !marked}, {middle, marked}, {end, !marked}};
    const int width = metrics.horizontalAdvance(end + end + rest);
    const NamePieces elided = ElideMiddle(pieces, metrics, width);
    ASSERT_EQ(elided.size(), 3U) << Join(elided).toStdString();
    EXPECT_EQ(elided[0], pieces[0]);
    EXPECT_TRUE(elided[1].text.contains(u'…')) << Join(elided).toStdString();
    EXPECT_EQ(elided[1].marked, marked);
    EXPECT_EQ(elided[2], pieces[2]);
    EXPECT_LE(metrics.horizontalAdvance(Join(elided)), width);
    EXPECT_EQ(ElideMiddle(pieces, metrics, 10 * width), pieces);
  }
}
