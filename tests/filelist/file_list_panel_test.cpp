#include "filelist/file_list_panel.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <cerrno>

#include "filelist/kept_rows.h"
#include "filelist/list_roles.h"
#include "filelist/list_view.h"
#include "filelist/row_menu.h"
#include "look/look.h"
#include "platform/qt/text_qt.h"
#include "support/keys.h"
#include "support/paint_watch.h"

using testing::ElementsAre;

/// Two folders; rows are 0 "/a/", 1 to 3 its files, 4 "/b/", 5 its file.
struct FileListTest : testing::Test {
  FileListTest() {
    const std::tuple<const char*, const char*, double> files[] = {{"/a/", "IMG_3.JPG", 5e9},
                                                                  {"/a/", "IMG_1.JPG", 20},
                                                                  {"/a/", "bad\xFF.JPG", 7},
                                                                  {"/b/", "x.txt", 1}};
    for (const auto& [folder, name, size] : files) {
      records.AddRecord("", folder, name, FileDate(2024, 3, 12, 9, 8, 7), size, "File");
    }
    records[0].newFileName = "3_a.jpg";
    state.names.limit = 255;
    grid.Populate();
    panel.ListRepopulated(EmptyList::kNotListed);
    panel.resize(700, 400);
    panel.show();
    QCoreApplication::processEvents();
    const auto tell = [&](int what) { told.push_back(what); };
    QObject::connect(&panel, &FileListPanel::rowChecked, tell);
    QObject::connect(&panel, &FileListPanel::sortChanged, [tell] { tell(-1); });
    QObject::connect(&panel, &FileListPanel::groupByChanged, tell);
    QObject::connect(&panel, &FileListPanel::wideToggled, tell);
  }

  std::string Text(int row, int column, int role = Qt::DisplayRole) {
    return model.index(row, column).data(role).toString().toStdString();
  }
  /// A click on the check box of a row, as `press`.
  void Click(int row, QEvent::Type press = QEvent::MouseButtonPress) {
    const QPoint place = list.visualRect(model.index(row, kColumnCheck)).center();
    for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, place, list.viewport()->mapToGlobal(place), Qt::LeftButton,
                        type == press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(list.viewport(), &event);
    }
  }
  void SortBy(int column) { list.horizontalHeader()->setSortIndicator(column, Qt::AscendingOrder); }

  Records records;
  RunState state;
  Grid grid{records, &state};
  FileListPanel panel{grid};
  ListView& list = *panel.ReportControl1;
  QAbstractItemModel& model = *list.model();
  std::vector<int> told;  ///< the rows, groups and widths told of; -1: another sort
};

TEST_F(FileListTest, CellsTellTheirTextsAndGroupRowsThatTheyAreGroups) {
  const char* const columns[][2] = {{"Path", "/a/"},  {"Size", "5000000000"},
                                    {"Type", "File"}, {"Date", "2024.03.12 09:08:07"},
                                    {"", ""},         {"Source file name", "IMG_3.JPG"},
                                    {">>", ">>"},     {"New file name", "3_a.jpg"}};
  ASSERT_EQ(model.columnCount(), 8);
  for (int column = 0; column < 8; ++column) {
    EXPECT_EQ(model.headerData(column, Qt::Horizontal), QLatin1String(columns[column][0]));
    EXPECT_EQ(Text(1, column), columns[column][1]);
    EXPECT_EQ(Text(0, column, Qt::AccessibleDescriptionRole), "group, 3 files");
    EXPECT_EQ(Text(4, column, Qt::AccessibleDescriptionRole), "group, 1 file");
    EXPECT_EQ(Text(0, column, Qt::CheckStateRole), "");
    EXPECT_EQ(Text(1, column, Qt::CheckStateRole) != "", column == kColumnCheck);
  }
  EXPECT_FALSE(model.setData(model.index(0, kColumnCheck), Qt::Unchecked, Qt::CheckStateRole));
}

TEST_F(FileListTest, RowsSayInWordsWhatColoursTell) {
  FileRow& file = records[0];
  const std::string taken = "The name is already taken.";
  const auto expect = [&](Mark mark, std::int16_t problem, const std::string& words) {
    file.mark = mark;
    file.problem = problem;
    EXPECT_EQ(Text(1, kColumnCheck, Qt::AccessibleDescriptionRole), words);
    EXPECT_EQ(Text(1, kColumnMark, kReasonRole), problem == 0 ? "" : taken);
  };
  expect(Mark::kWaiting, 0, "waiting, IMG_ removed");
  state.names.limit = 5;
  EXPECT_TRUE(model.index(1, kColumnNewName).data(kMarkedNameRole).value<MarkedName>().warned);
  EXPECT_EQ(Text(1, kColumnNewName, kVerdictRole), "too long: 7 of 5 bytes");
  expect(Mark::kWaiting, 0, "waiting, too long: 7 of 5 bytes, IMG_ removed");
  std::optional<std::string_view> draft;
  grid.List().SetDrafts([&](std::size_t) { return draft; });
  state.gPreviewStale = true;
  expect(Mark::kWaiting, 0, "waiting, no draft");
  EXPECT_EQ(Text(1, kColumnNewName), "") << "the stored name no longer counts";
  draft = "IMG_3.x";
  expect(Mark::kWaiting, 0, "waiting, draft: JPG becomes x");
  EXPECT_EQ(Text(1, kColumnNewName), "IMG_3.x");
  EXPECT_EQ(model.headerData(kColumnNewName, Qt::Horizontal),
            QLatin1String("New file name (draft)"));
  file.RowTag = 1;
  expect(Mark::kDone, 0, "done, IMG_ removed");
  file.newFileName = "";
  expect(Mark::kDone, EEXIST, "not undone: " + taken);
  file.newFileName = "IMG_3.JPG";
  file.checked = false;
  expect(Mark::kFailed, 0, "failed, not checked, name unchanged");
  expect(Mark::kFailed, EEXIST, "failed: " + taken + " not checked, name unchanged");
}

TEST_F(FileListTest, OnlyRowsThatTellSomethingElseArePaintedWhileAPassWorks) {
  PaintWatch watch(list.viewport());
  const auto repainted = [&] {
    watch.Painted();
    panel.RepaintRows();
    return watch.Painted();
  };
  const auto place = [&](int row) {
    return QRect(0, list.rowViewportPosition(row), list.viewport()->width(), list.rowHeight(row));
  };
  const char* draft = "x";
  grid.List().SetDrafts([&](std::size_t row) { return row == 1 ? draft : "3.x"; });
  repainted();
  EXPECT_TRUE(repainted().isEmpty());
  records[1].mark = Mark::kDone;
  EXPECT_EQ(repainted(), place(2));
  state.gPreviewStale = true;
  EXPECT_TRUE(repainted().contains(place(3))) << "drafts stand in all of them";
  repainted();  // the heading is another one, too
  draft = "y";
  EXPECT_EQ(repainted(), place(1));
  state.gPreviewStale = false;
  panel.RowsChanged();
  QCoreApplication::processEvents();
  state.gPreviewStale = true;
  EXPECT_TRUE(repainted().contains(place(1))) << "it was fresh in between";
}

TEST_F(FileListTest, BoxesAreSwitchedByClicksAnywhereInTheirCellsAndBySpace) {
  Click(1);
  EXPECT_FALSE(records[0].checked);
  Click(2);
  Click(2, QEvent::MouseButtonDblClick);
  EXPECT_TRUE(records[1].checked) << "two quick clicks are two";
  Click(0);  // has no box
  EXPECT_THAT(told, ElementsAre(1, 2, 2));
  list.setCurrentIndex(model.index(1, kColumnSourceName));
  list.selectAll();
  for (const bool on : {true, false}) {  // all go as the current row goes
    Press(&list, Qt::Key_Space);
    for (std::size_t i = 0; i < records.Count(); ++i) EXPECT_EQ(records[i].checked, on) << i;
  }
  EXPECT_EQ(told.size(), 5U);
}

TEST_F(FileListTest, CurrentAndSelectedRowsStayWhateverMakesTheRowsAnew) {
  for (const int row : {1, 2, 4}) {  // "IMG_3.JPG", "IMG_1.JPG", "/b/"
    list.selectionModel()->setCurrentIndex(model.index(row, kColumnNewName),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
  }
  list.selectionModel()->setCurrentIndex(model.index(1, kColumnNewName),
                                         QItemSelectionModel::NoUpdate);
  SortBy(kColumnSize);
  EXPECT_EQ(Text(1, kColumnSourceName), "bad\xEF\xBF\xBD.JPG");
  EXPECT_EQ(list.currentIndex(), model.index(3, kColumnNewName));
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(2, 3, 4));
  SortBy(kColumnMark);  // can't be sorted by, so nothing moves
  EXPECT_THAT(told, ElementsAre(-1));
  records[2].size = 1e9;
  panel.ShowAnew();
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(1, 3, 4));
  panel.cmbGroupBy->setCurrentIndex(0);
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(1, 3)) << "the group is gone";
  EXPECT_EQ(list.SelectedFile(), "/a/IMG_1.JPG");
  records[0].sourceFileName = "bad b";
  Type(&list, QStringLiteral("bad"));
  Press(&list, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
  Type(&list, QStringLiteral("b"));
  EXPECT_EQ(Text(list.currentIndex().row(), kColumnSourceName), "bad b");
  EXPECT_TRUE(records[0].checked && records[2].checked) << "the blank was one of the name";
}

TEST_F(FileListTest, EnterMeansTheCurrentRowAndADoubleClickTheFirstSelectedOne) {
  std::string files;
  QObject::connect(&panel, &FileListPanel::rowDblClick, [&](auto& file) { files += file + " "; });
  const QModelIndex second = model.index(2, kColumnSourceName);
  list.selectionModel()->setCurrentIndex(second, QItemSelectionModel::NoUpdate);
  Press(&list, Qt::Key_Return);
  EXPECT_THAT(panel.SelectedRows(), ElementsAre(2));
  list.selectionModel()->select(model.index(1, 0),
                                QItemSelectionModel::Select | QItemSelectionModel::Rows);
  Press(&list, Qt::Key_Enter);
  emit list.doubleClicked(second);
  EXPECT_EQ(files, "/a/IMG_1.JPG /a/IMG_1.JPG /a/IMG_3.JPG ");
}

TEST_F(FileListTest, ASelectionInManyPlacesStaysAndOfOneInTooManyTheCurrentRow) {
  for (const std::size_t size : {std::size_t{2 * KeptRows::kMostPlaces}, records.Count() + 2}) {
    while (records.Count() < size) {
      const double odd = static_cast<double>(records.Count() % 2);
      records.AddRecord("", "/a/", "x", FileDate(), odd, "File");
    }
    for (std::size_t i = 0; i < 4; ++i) records[i].size = static_cast<double>(i % 2);
    SortBy(kColumnSize);
    panel.cmbGroupBy->setCurrentIndex(0);
    panel.ShowAnew();
    const int last = static_cast<int>(records.Count()) / 2 - 1;
    list.setCurrentIndex(model.index(last, 0));
    list.selectionModel()->select({model.index(0, 0), model.index(last, model.columnCount() - 1)},
                                  QItemSelectionModel::ClearAndSelect);
    SortBy(-1);
    const bool stays = last < KeptRows::kMostPlaces;
    EXPECT_EQ(panel.SelectedRows().size(), stays ? records.Count() / 2 : 1U);
    EXPECT_EQ(panel.SelectedRows().back(), 2 * last);
  }
}

TEST_F(FileListTest, GroupingKeepsTheCurrentFileAndFillsNoClearedListAndWideKeepsItsKey) {
  list.selectRow(5);
  panel.cmbGroupBy->setCurrentIndex(0);
  EXPECT_EQ(model.rowCount(), 4);
  EXPECT_EQ(list.currentIndex().row(), 3);
  grid.Clear();
  panel.ListRepopulated(EmptyList::kNotComplete);
  panel.ShowAnew();
  panel.cmbGroupBy->setCurrentIndex(2);
  SortBy(kColumnSourceName);
  EXPECT_EQ(model.rowCount(), 0);
  for (int i = 0; i < 2; ++i) panel.bnWideFileList->click();
  EXPECT_EQ(panel.bnWideFileList->shortcut(), QKeySequence(Qt::Key_F9)) << "a caption drops it";
  EXPECT_THAT(told, ElementsAre(0, 2, -1, 1, 0));
}

TEST_F(FileListTest, MarksOfWhatRunsBothWaysStandOnTheirCharactersOnly) {
  records[0].sourceFileName = "aד";
  records[0].newFileName = "abגד";  // "bג" is new and is seen as "b", then "ד", then "ג"
  const QRect cell = list.visualRect(model.index(1, kColumnNewName));
  const QImage picture = list.viewport()->grab(cell).toImage();
  int tinted = 0;
  for (int x = 1; x < picture.width(); ++x) {
    const auto is_tint = [&](int at) {
      return picture.pixelColor(at, 5) == Look::Current().Colour(Role::kTint);
    };
    tinted += is_tint(x) && !is_tint(x - 1);
  }
  EXPECT_EQ(tinted, 2);
}

TEST_F(FileListTest, APathGivesWayToTheNamesAndAFittedColumnLeavesTheOtherNameInSight) {
  const auto all_seen = [&] {
    return list.horizontalHeader()->length() <= list.viewport()->width();
  };
  list.ShowColumn(kColumnPath, true);
  EXPECT_EQ(list.columnWidth(kColumnPath), 300);
  panel.resize(427, 400);
  EXPECT_GE(list.columnWidth(kColumnSourceName), 140);
  EXPECT_TRUE(all_seen());
  QFont large = list.font();
  large.setPointSize(40);
  list.setFont(large);
  panel.resize(200, 400);
  EXPECT_GT(list.columnWidth(kColumnPath),
            list.fontMetrics().horizontalAdvance(QStringLiteral("Path")));
  list.setFont(panel.font());
  panel.resize(427, 400);
  list.ShowColumn(kColumnPath, false);
  records[1].sourceFileName = std::string(200, 'm');
  const auto fit = [&] {
    emit list.horizontalHeader()->sectionHandleDoubleClicked(kColumnSourceName);
  };
  fit();
  EXPECT_EQ(list.columnWidth(kColumnNewName), 140) << "the other one gives what it can";
  EXPECT_TRUE(all_seen());
  records[1].sourceFileName = "IMG_1.JPG";
  fit();
  EXPECT_LT(list.columnWidth(kColumnSourceName), 140) << "as wide as what is seen of it";
  EXPECT_TRUE(all_seen());
}

TEST(RowMenu, OffersWhatFitsItsPlaceInItsOrder) {
  const std::pair<RowMenuPlace, const char*> table[] = {
      {{true, false, false}, "102 112 105 113 101 "},  // 0 is a line
      {{true, true, false}, "102 112 105 113 101 0 109 114 111 115 110 "},
      {{true, false, true}, "102 112 105 113 101 0 106 107 0 108 "},
      {{false, false, true}, "106 107 0 108 "}};
  for (const auto& [place, expected] : table) {
    QWidget window;
    std::string commands;
    PopUpRowMenu(&window, place, {}, [&](int id) { commands += std::to_string(id) + " "; });
    for (QAction* action : window.findChild<QMenu*>()->actions()) action->trigger();
    EXPECT_EQ(commands, expected);
  }
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
  const int width = metrics.horizontalAdvance(end + end + QStringLiteral("nnnn"));
  for (const bool marked : {false, true}) {
    const NamePieces pieces = {{end, !marked}, {QString(12, u'n'), marked}, {end, !marked}};
    NamePieces elided = ElideMiddle(pieces, metrics, width);
    ASSERT_EQ(elided.size(), 3U) << Join(elided).toStdString();
    EXPECT_LE(metrics.horizontalAdvance(Join(elided)), width);
    elided[1].text = pieces[1].text;
    EXPECT_EQ(elided, pieces) << "nothing else differs";
  }
}
