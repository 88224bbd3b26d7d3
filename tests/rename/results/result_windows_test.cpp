#include "rename/results/result_windows.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <cerrno>
#include <functional>

#include "filelist/list_view.h"
#include "support/fake_services.h"
#include "support/keys.h"

namespace {

class ResultWindowsTest : public testing::Test, protected FakeServices {
 protected:
  ResultWindowsTest() {
    files.folders = {"/in", "/out"};
    files.contents = {{"/in/a.txt", ""}, {"/in/same_{1}", ""}, {"/out/same_{2}", ""}};
    reports.gFailureReport = {{"/in/", "a.txt", "same", ENAMETOOLONG}};
    reports.gConflictReport = {{"/in/", "", "b.txt", "same_{1}", "same"},
                               {"/in 2/", "", "z", "gone_{1}", "gone"},
                               {"/in/", "/out/", "c.txt", "same_{2}", "same"}};
  }

  /// Opens the window, acts in it, and waits until it is closed; closes it when `act` did not.
  void Show(ResultWindow& window, const std::function<void()>& act) {
    bool acted = false;
    QTimer::singleShot(0, &window, [&] {
      acted = true;
      act();
      window.close();
    });
    window.ShowReport();
    EXPECT_TRUE(acted);
  }

  /// The menu that a right click on a row of Form7 opens.
  QMenu* MenuOf(int row) {
    const QPoint place = list->visualRect(Cell(row)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list->viewport()->mapToGlobal(place));
    QApplication::sendEvent(list->viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }
  QModelIndex Cell(int row) { return list->model()->index(row, 1); }

  RunReports reports;
  ResultWindow Form3{kRenamingFailure, reports, services, nullptr};
  ResultWindow Form7{kResolvedConflicts, reports, services, nullptr};
  ListView* list = Form7.ReportControl1;
};

std::string Text(const ResultWindow& window, int row, int column, int role = Qt::DisplayRole) {
  return window.ReportControl1->model()->index(row, column).data(role).toString().toStdString();
}

/// The shown columns: headings, or the texts of a row.
std::string Shown(const ResultWindow& window, int row = -1) {
  std::string texts;
  const ListView& list = *window.ReportControl1;
  for (int column = 0; column < list.model()->columnCount(); ++column) {
    if (list.isColumnHidden(column)) continue;
    const QVariant heading = list.model()->headerData(column, Qt::Horizontal);
    texts += (row < 0 ? heading.toString().toStdString() : Text(window, row, column)) + "|";
  }
  return texts;
}

}  // namespace

TEST_F(ResultWindowsTest, TellWhatTheRunCouldNotDo) {
  constexpr int kWords = Qt::AccessibleDescriptionRole;
  Show(Form3, [&] {
    EXPECT_EQ(Shown(Form3), "Source file name|>>|New file name|Reason|");
    EXPECT_EQ(Shown(Form3, 1), "a.txt|Failed|same|The name is too long.|");
    EXPECT_EQ(Text(Form3, 1, 1, kWords), "failed: The name is too long. a.txt becomes same");
    Form3.bnOK->click();
  });
  EXPECT_FALSE(Form3.isVisible());
  EXPECT_EQ(reports.gFailureReport.size(), 1u) << "they stay until the next run";

  Show(Form7, [&] {
    EXPECT_EQ(Shown(Form7), "Source file name|>>|Planned file name|>>|Final file name|");
    EXPECT_EQ(Text(Form7, 3, 1), "/in 2/");
    EXPECT_EQ(Text(Form7, 0, 1, kWords), "group, 2 files");
    EXPECT_EQ(Shown(Form7, 1), "b.txt|>>|same|>>|same_{1}|");
    EXPECT_EQ(Text(Form7, 1, 1, kWords), "planned name taken, _{1} added");
  });
  reports.DeleteAll();  // as the next run does
  EXPECT_EQ(list->model()->rowCount(), 0);
}

TEST_F(ResultWindowsTest, ShowTheFileOfARowInTheFileManagerAndOfferItsMenu) {
  Show(Form7, [&] {
    for (const int row : {4, 1}) {
      list->setCurrentIndex(Cell(row));
      Press(list, Qt::Key_Return);
      EXPECT_TRUE(Form7.isVisible()) << "Enter in the list is not OK";
    }
    EXPECT_EQ(prompts.told, std::vector<std::string>{"The specified file was not found."});
    for (const int row : {0, 2}) emit list->doubleClicked(Cell(row));
    EXPECT_EQ(MenuOf(0), nullptr) << "of a group row";
    QMenu* popup = MenuOf(2);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->actions().size(), 4);
    for (QAction* action : popup->actions()) action->trigger();
    popup->close();
  });
  EXPECT_EQ(shell.asked, (std::vector<std::string>{"show /in/same_{1}", "show /out/same_{2}",
                                                   "show /out/same_{2}", "open /out/same_{2}",
                                                   "properties /out/same_{2}"}));
}
