#include "window/main_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

#include "platform/ending_signals.h"
#include "platform/qt/text_qt.h"
#include "support/temp_folder.h"
#include "window/program.h"

namespace {

class MainWindowTest : public testing::Test {
 public:
  void SetUp() override {
    for (const char* name : {"a.txt", "b.txt", "c.jpg"}) folder.Write(name, name);
    qputenv("XDG_CONFIG_HOME", settings.path().c_str());
    StartAnew();
  }

  void StartAnew() {
    program.reset();
    program.emplace(*qApp);
    program->MainWindow().show();
  }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = program->MainWindow().findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }

  void ListFiles() {
    Find<QLineEdit>("fdSourceFolder")->setText(text::ToQt(folder.path() + "/"));
    Button("bnLoadFileList")->click();
  }

  /// Lists and previews, with a counter among the elements or without.
  void Preview(bool with_counter) {
    if (with_counter) InsertCounter();
    ListFiles();
    Button("bnPreview")->click();
    ASSERT_TRUE(Button("bnRename")->isEnabled());
  }

  void InsertCounter() {
    for (QAction* action : Button("bnInsertRight")->menu()->actions()) {
      if (action->text() == QLatin1String("<Counter>")) action->trigger();
    }
  }

  QAbstractItemModel* Model() { return Find<QTableView>("ReportControl1")->model(); }

  TempFolder folder;
  TempFolder settings;
  std::optional<Program> program;
};

}  // namespace

TEST_F(MainWindowTest, LeadsFromAFolderToRenamedFiles) {
  EXPECT_FALSE(Button("bnLoadFileList")->isEnabled());
  Find<QComboBox>("cmbCaseOldFile")->setCurrentIndex(1);
  ListFiles();
  EXPECT_EQ(Model()->rowCount(), 4) << "a group row and three files";
  Button("bnPreview")->click();
  Button("bnRename")->click();
  EXPECT_EQ(folder.List(), (std::vector<std::string>{"A.txt", "B.txt", "C.jpg"}));
  EXPECT_FALSE(Button("bnRename")->isEnabled());
  EXPECT_FALSE(Button("bnPreview")->isEnabled());
  EXPECT_TRUE(Button("bnUndo")->isEnabled());
  Find<QLineEdit>("fdSourceFolder")->setText(QStringLiteral("/elsewhere/"));
  EXPECT_FALSE(Button("bnUndo")->isEnabled());
  EXPECT_EQ(Model()->rowCount(), 4) << "the rows stay until the next list";
}

TEST_F(MainWindowTest, AddsTheSeparatorThatTheFolderLacks) {
  auto* link = Find<QAbstractButton>("lnkAddSeparator");
  auto* field = Find<QLineEdit>("fdSourceFolder");
  EXPECT_FALSE(link->isVisible());
  field->setText(text::ToQt(folder.path()));
  emit field->returnPressed();
  ASSERT_TRUE(link->isVisible());
  link->click();
  EXPECT_EQ(field->text(), text::ToQt(folder.path() + "/"));
  EXPECT_EQ(Model()->rowCount(), 4);
  EXPECT_FALSE(link->isVisible());
}

TEST_F(MainWindowTest, TurnsRenameOffWhenNamesOrChecksChange) {
  using T = MainWindowTest;
  struct Edit {
    const char* what;
    bool with_counter, stale;
    std::function<void(T&)> act;
  };
  const auto pick = [](const char* name, int index) {
    return [=](T& t) { t.Find<QComboBox>(name)->setCurrentIndex(index); };
  };
  const auto uncheck = [](T& t) {
    t.Model()->setData(t.Model()->index(1, 4), Qt::Unchecked, Qt::CheckStateRole);
  };
  const auto sort = [](T& t) {
    t.Find<QTableView>("ReportControl1")->sortByColumn(5, Qt::DescendingOrder);
  };
  const Edit table[] = {
      {"letter case", false, true, pick("cmbCaseOldFile", 2)},
      {"check box", false, true, uncheck},
      {"grouping", false, false, pick("cmbGroupBy", 2)},
      {"grouping with a counter", true, true, pick("cmbGroupBy", 2)},
      {"sorting", false, false, sort},
      {"sorting with a counter", true, true, sort},
      {"column", false, false, [](T& t) { t.Find<QCheckBox>("chColumnSize")->click(); }},
      {"output choice", false, false, pick("cmbDestination", 1)},
      {"output folder", false, false,
       [](T& t) { t.Find<QLineEdit>("fdDestination")->setText(QStringLiteral("5")); }},
  };
  for (const Edit& edit : table) {
    SCOPED_TRACE(edit.what);
    StartAnew();
    Preview(edit.with_counter);
    edit.act(*this);
    EXPECT_EQ(Button("bnRename")->isEnabled(), !edit.stale);
    EXPECT_TRUE(Button("bnPreview")->isEnabled());
  }
}

TEST_F(MainWindowTest, ClosesAfterThePassThatItEnds) {
  Form1& window = program->MainWindow();
  QTimer::singleShot(0, &window, [&] { EXPECT_FALSE(window.close()) << "a pass is running"; });
  ListFiles();
  EXPECT_FALSE(window.isVisible());
}

TEST(EndingSignals, AreTakenUnlessTheyWereIgnored) {
  constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};
  for (const bool ignored : {true, false}) {
    for (const int signal : kSignals) ::signal(signal, ignored ? SIG_IGN : SIG_DFL);
    EndingSignals taken;
    for (const int signal : kSignals) {
      std::raise(signal);
      EXPECT_NE(taken.Taken(), ignored) << signal;
    }
  }
}

TEST_F(MainWindowTest, EndsOnASignalAsOnItsClosing) {
  const auto after = [this](int ms, std::function<void()> act) {
    QTimer::singleShot(ms, &program->MainWindow(), std::move(act));
  };
  const auto in_a_run = [&] {
    after(0, [] { std::raise(SIGINT); });
    QTimer look;
    bool told = false;
    QObject::connect(&look, &QTimer::timeout, [&] {
      if (qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) == nullptr) return;
      EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
      told = true;
    });
    look.start(0);
    Button("bnRename")->click();
    EXPECT_TRUE(told) << "that the run is not completed";
  };
  const auto in_a_dialog = [&] {
    after(50, [] { std::raise(SIGHUP); });
    Button("Command4")->click();
  };
  const std::pair<const char*, std::function<void()>> table[] = {
      {"idle", [] { std::raise(SIGTERM); }}, {"run", in_a_run}, {"dialog", in_a_dialog}};
  for (int i = 0; i < 500; ++i) folder.Write("f" + std::to_string(i), "");
  for (const auto& [moment, let_it_come] : table) {
    SCOPED_TRACE(moment);
    StartAnew();
    Preview(false);
    Find<QCheckBox>("chColumnSize")->click();
    const bool column = Find<QCheckBox>("chColumnSize")->isChecked();
    let_it_come();
    const QDeadlineTimer deadline(20000);
    while (program->MainWindow().isVisible() && !deadline.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    EXPECT_FALSE(program->MainWindow().isVisible());
    StartAnew();
    EXPECT_EQ(Find<QCheckBox>("chColumnSize")->isChecked(), column) << "stored";
  }
}

/// The positions are stored, and are what the elements and the run go by.
TEST_F(MainWindowTest, OffersTheEntriesOfItsListsInTheStoredOrder) {
  const std::pair<std::string, std::string> table[] = {
      {"cmbDestination", "Use source folder|Copy to|Move to|"},
      {"cmbGroupBy", "None|Path|Type|"},
      {"cmbCaseOldFile", "Unchanged|UPPERCASE|lowercase|First letter uppercase only|"},
      {"cmbCutExt",
       "Do nothing|Remove Text|Remove N characters from the start|Remove N characters from the end|"
       "Remove N characters after the first K|Remove N characters before the last K|"
       "Remove N characters from the start and K from the end|"
       "Remove all after the first N characters|Remove all before the last N characters|"
       "Remove all between the first N and last K characters|"},
      {"cmbAddExt",
       "Do nothing|Add Text to the left|Add Text to the right|"
       "Add Text1 to the left and Text2 to the right|Insert Text after the first N characters|"
       "Insert Text before the last N characters|"},
      {"cmbTDate(2)", "|d|dd|m|mm|mmm|mmmm|yy|yyyy|"},
  };
  for (const auto& [name, entries] : table) {
    const auto* box = Find<QComboBox>(name.c_str());
    std::string shown;
    for (int i = 0; i < box->count(); ++i) shown += box->itemText(i).toStdString() + '|';
    EXPECT_EQ(shown, entries) << name;
  }
}

TEST_F(MainWindowTest, AsksAboutConflictsBeforeARunAndTellsThemAfterIt) {
  Button("bnDeletePattern")->click();  // two files want the name ".txt"
  Preview(false);
  std::filesystem::remove(folder / "c.jpg");
  std::vector<std::string> shown;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    const QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    const auto* count = window->findChild<QLabel*>(QStringLiteral("lbFilesCount"));
    shown.push_back(count != nullptr ? text::FromQt(count->text())
                                     : text::FromQt(window->objectName()));
    window->findChild<QPushButton*>(QStringLiteral("bnOK"))->click();
  });
  user.start(0);
  Button("Command4")->click();
  EXPECT_TRUE(Button("bnRename")->isEnabled()) << "the names still fit";
  Button("bnRename")->click();
  EXPECT_EQ(shown, (std::vector<std::string>{"Form8", "Number of files failed to rename: 1",
                                             "Number of resolved conflicts: 1"}));
  EXPECT_EQ(folder.List(), (std::vector<std::string>{".txt", "_{1}.txt"}));
}
