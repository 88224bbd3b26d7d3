#include "window/main_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QTimer>
#include <QVariant>
#include <csignal>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>

#include "platform/ending_signals.h"
#include "platform/qt/settings_store_qt.h"
#include "platform/qt/text_qt.h"
#include "support/keys.h"
#include "support/paint_watch.h"
#include "support/temp_folder.h"
#include "window/program.h"

namespace {

struct Control {
  std::string name, section, key, text;
};

/// All options, with texts unlike those of a first start. The save boxes stand last: one that is
/// off hides its group.
const Control kControls[] = {
    {"fdSourceFolder", "Settings\\Folders", "SourceFolderPath", "/photos/\xFF/"},
    {"chSubfolders", "Settings\\Folders", "SourceFolderSubfolders", "0"},
    {"fdIncludeMask", "Settings\\Folders", "IncludeMask", "*.jpg"},
    {"fdExcludeMask", "Settings\\Folders", "ExcludeMask", " *.png"},
    {"cmbDestination", "Settings\\Folders", "OutputFolderMode", "2"},
    {"fdDestination", "Settings\\Folders", "OutputFolderPath", "/out/"},
    {"chDestinationSubfolders", "Settings\\Folders", "OutputFolderSubfolders", "0"},
    {"chColumnPath", "Settings\\FileList", "ColumnPath", "1"},
    {"chColumnSize", "Settings\\FileList", "ColumnSize", "1"},
    {"chColumnType", "Settings\\FileList", "ColumnType", "1"},
    {"chColumnDate", "Settings\\FileList", "ColumnDate", "1"},
    {"cmbGroupBy", "Settings\\FileList", "GroupBy", "2"},
    {"chConflict", "Conflicts", "AddNumber", "0"},
    {"fdConflictLeft", "Conflicts", "NumberLeft", "("},
    {"fdConflictRight", "Conflicts", "NumberRight", ""},
    {"chSaveSourceFolderOptions", "Settings\\Save", "SaveSourceFolderOptions", "0"},
    {"chSaveOutputFolderOptions", "Settings\\Save", "SaveOutputFolderOptions", "0"},
    {"chSaveFileListOptions", "Settings\\Save", "SaveFileListOptions", "0"},
};
const std::span<const Control> kAll(kControls);

/// What the control holds, after it took a text, if one is given.
std::string Held(const QWidget& window, const Control& control, const std::string* text) {
  auto* found = window.findChild<QWidget*>(QLatin1String(control.name.c_str()));
  const bool field = control.name.starts_with("fd");
  const char* held = field ? "text" : control.name.starts_with("ch") ? "checked" : "currentIndex";
  if (text) found->setProperty(held, text::ToQt(*text));
  const QVariant value = found->property(held);
  return field ? text::FromQt(value.toString()) : std::to_string(value.toInt());
}

struct MainWindowTest : testing::Test {
  MainWindowTest() {
    for (const char* name : {"a.txt", "b.txt", "c.jpg"}) folder.Write(name, name);
    qputenv("XDG_CONFIG_HOME", settings.path().c_str());
    for (const int kept : {SIGINT, SIGHUP}) ::signal(kept, SIG_DFL);  // a shell may ignore them
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
  QAbstractItemModel* Model() { return Find<QTableView>("ReportControl1")->model(); }

  /// As Held, in the dialog where the numbering is chosen, if the control is there.
  std::string Value(const Control& control, const std::string* text = nullptr) {
    if (control.section != "Conflicts") return Held(program->MainWindow(), control, text);
    std::string held;
    QTimer::singleShot(0, [&] {
      held = Held(*QApplication::activeModalWidget(), control, text);
      Press(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    Button("Command4")->click();
    return held;
  }

  void ListFiles() {
    Find<QLineEdit>("fdSourceFolder")->setText(text::ToQt(folder.path() + "/"));
    Button("bnLoadFileList")->click();
  }

  /// Lists and previews, with a counter among the elements or without.
  void Preview(bool with_counter) {
    for (QAction* action : Button("bnInsertRight")->menu()->actions()) {
      if (with_counter && action->text() == QLatin1String("<Counter>")) action->trigger();
    }
    ListFiles();
    Button("bnPreview")->click();
    ASSERT_TRUE(Button("bnRename")->isEnabled());
  }

  const TempFolder folder, settings;
  std::optional<Program> program;
};

}  // namespace

TEST_F(MainWindowTest, AnotherFolderEndsTheUndoAndALongResultGivesWay) {
  EXPECT_EQ(QApplication::windowIcon().pixmap(24).width(), 24) << "the picture is there";
  Preview(false);
  Button("bnRename")->click();
  EXPECT_TRUE(Button("bnUndo")->isEnabled());
  Find<QLabel>("lbResult")->setText(QString(500, u'9'));
  QCoreApplication::processEvents();
  EXPECT_TRUE(program->MainWindow().rect().contains(
      Button("bnHelp")->mapTo(&program->MainWindow(), Button("bnHelp")->rect().bottomRight())));
  Find<QLineEdit>("fdSourceFolder")->setText(QStringLiteral("/elsewhere/"));
  EXPECT_FALSE(Button("bnUndo")->isEnabled());
  EXPECT_EQ(Model()->rowCount(), 4) << "the rows stay until the next list";
}

TEST_F(MainWindowTest, AddsTheSeparatorThatTheFolderLacks) {
  auto* link = Find<QAbstractButton>("lnkAddSeparator");
  auto* field = Find<QLineEdit>("fdSourceFolder");
  field->setText(text::ToQt(folder.path()));
  emit field->returnPressed();
  ASSERT_TRUE(link->isVisible());
  Button("bnWideFileList")->click();
  EXPECT_FALSE(Button("bnCancel")->isVisible());
  link->click();
  EXPECT_TRUE(Button("bnCancel")->isVisible()) << "a pass can always be cancelled";
  EXPECT_EQ(field->text(), text::ToQt(folder.path() + "/"));
  EXPECT_EQ(Model()->rowCount(), 4);
  EXPECT_FALSE(link->isVisible());
}

TEST_F(MainWindowTest, TurnsRenameOffWhenNamesOrChecksChange) {
  const auto pick = [&](const char* name, int index) {
    return [=, this] { Find<QComboBox>(name)->setCurrentIndex(index); };
  };
  auto sort = [&] { Find<QTableView>("ReportControl1")->sortByColumn(5, Qt::DescendingOrder); };
  const std::tuple<const char*, bool, bool, std::function<void()>> table[] = {
      {"letter case", false, true, pick("cmbCaseOldFile", 2)},
      {"check box", false, true,
       [&] { Model()->setData(Model()->index(1, 4), 0, Qt::CheckStateRole); }},
      {"all boxes", false, true, [&] { emit Find<QShortcut>("keys101")->activated(); }},
      {"grouping", false, false, pick("cmbGroupBy", 2)},
      {"grouping with a counter", true, true, pick("cmbGroupBy", 2)},
      {"sorting", false, false, sort},
      {"sorting with a counter", true, true, sort},
      {"column", false, false, [&] { Find<QCheckBox>("chColumnSize")->click(); }},
      {"output choice", false, false, pick("cmbDestination", 1)},
      {"folder", false, false, [&] { Find<QLineEdit>("fdDestination")->insert(QString(u'5')); }},
  };
  for (const auto& [what, with_counter, stale, act] : table) {
    SCOPED_TRACE(what);
    StartAnew();
    Preview(with_counter);
    act();
    EXPECT_EQ(Button("bnRename")->isEnabled(), !stale);
    const QVariant heading = Model()->headerData(7, Qt::Horizontal);
    EXPECT_EQ(heading.toString().contains(QLatin1String("draft")), stale);
    EXPECT_TRUE(Button("bnPreview")->isEnabled());
  }
}

TEST_F(MainWindowTest, ShowsWhatNewNamesComeToWhileTheyAreNotMade) {
  ListFiles();
  auto* list = Find<QTableView>("ReportControl1");
  PaintWatch watch(list->viewport());
  watch.Painted();
  // The first and the last file as they are painted, and the one beside the elements' title.
  const auto expect = [&](const std::string& names, const std::string& example, bool drafts) {
    EXPECT_EQ(watch.Painted(), list->viewport()->rect()) << names;
    const auto shown = [&](int row) { return Model()->index(row, 7).data().toString(); };
    EXPECT_EQ(text::FromQt(shown(1) + u' ' + shown(3)), names);
    EXPECT_EQ(text::FromQt(Find<QLabel>("lbExample")->text()), example) << names;
    const QString heading = Model()->headerData(7, Qt::Horizontal).toString();
    EXPECT_EQ(heading.contains(QLatin1String("(draft)")), drafts) << names;
  };
  Find<QLineEdit>("fdReplace1")->setText(QStringLiteral("a"));
  Type(Find<QLineEdit>("fdReplace2"), QStringLiteral("x"));
  expect("x.txt c.jpg", "a.txt → x.txt", true);
  for (QAction* action : Button("bnInsertRight")->menu()->actions()) {
    if (action->text() == QLatin1String("<Counter>")) action->trigger();
  }
  auto* start = Find<QLineEdit>("fdStartValue");
  Type(start, QStringLiteral("7"));
  expect("x0001.txt c0003.jpg", "a.txt → x0001.txt", true);
  Leave(start);
  expect("x0017.txt c0019.jpg", "a.txt → x0017.txt", true);
  Model()->setData(Model()->index(1, 4), 0, Qt::CheckStateRole);
  expect(" c0018.jpg", "b.txt → b0017.txt", true);
  Button("bnPreview")->click();
  expect(" c0018.jpg", "b.txt → b0017.txt", false);
  Button("bnRename")->click();
  Model()->setData(Model()->index(1, 4), 2, Qt::CheckStateRole);
  expect("x0017.txt c0018.jpg", "a.txt → x0017.txt", true);
  list->selectRow(3);
  Button("bnUndo")->click();
  expect("x0017.txt c0019.jpg", "c.jpg → c0019.jpg", true);
}

TEST_F(MainWindowTest, ForetellsWhatBecomesOfTakenNamesUntilSomethingChanges) {
  const auto expect = [&](const char* line, const char* first_row, const char* last_row) {
    const auto told = [&] { return text::FromQt(Find<QLabel>("lbResult")->text()); };
    for (const QDeadlineTimer end(5000); !end.hasExpired() && told() != line;) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    EXPECT_EQ(told(), line);
    const auto described = [&](int row) {
      return text::FromQt(Model()->index(row, 7).data(Qt::AccessibleDescriptionRole).toString());
    };
    EXPECT_THAT(described(1), testing::HasSubstr(first_row)) << line;
    EXPECT_THAT(described(2), testing::HasSubstr(last_row)) << line;
  };
  Find<QLineEdit>("fdReplace1")->setText(QStringLiteral("a"));
  Find<QLineEdit>("fdReplace2")->setText(QStringLiteral("b"));
  Preview(false);
  expect("3 new names, 1 taken", "waiting, taken: will get a number, ", "waiting, name unchanged");
  const std::string off = "0", copy = "1", out = folder / "out/";
  Value(kControls[12], &off);
  expect("3 new names, 1 taken", "waiting, taken: will fail, ", "waiting, name unchanged");
  Held(program->MainWindow(), kControls[5], &out);
  Held(program->MainWindow(), kControls[4], &copy);
  expect("3 new names, 1 taken", "waiting, a becomes b", "waiting, taken: will fail, ");
  Find<QLineEdit>("fdReplace2")->setText(QStringLiteral("d"));
  expect("", "waiting, draft: a becomes d", "waiting, draft: name unchanged");
  Button("bnPreview")->click();
  expect("3 new names", "waiting, a becomes d", "waiting, name unchanged");
}

TEST_F(MainWindowTest, UndoesTheRunFromATextFieldUntilSomethingIsTypedInIt) {
  Find<QComboBox>("cmbCaseOldFile")->setCurrentText(QStringLiteral("UPPERCASE"));
  auto* field = Find<QLineEdit>("fdIncludeMask");
  // What the field doesn't claim for itself goes to the shortcuts.
  const auto is_the_runs = [&] {
    QKeyEvent ask(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    ask.ignore();
    QApplication::sendEvent(field, &ask);
    return !ask.isAccepted();
  };
  Type(field, QStringLiteral("*"));
  Preview(false);
  EXPECT_FALSE(is_the_runs()) << "there is none";
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [] {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    const QCursor* pointer = QApplication::overrideCursor();
    EXPECT_TRUE(!pointer || pointer->shape() == Qt::ArrowCursor) << "no waiting for the user";
    box->close();
  });
  closer.start(1);
  QTimer::singleShot(0, Button("bnCancel"), &QPushButton::click);
  Button("bnRename")->click();
  EXPECT_TRUE(is_the_runs()) << "typed before the run, which was cancelled";
  Type(field, QStringLiteral(".txt"));
  EXPECT_FALSE(is_the_runs());
  Find<QComboBox>("cmbDestination")->setCurrentIndex(1);
  Button("bnRename")->click();
  EXPECT_FALSE(is_the_runs()) << "refused for want of an output folder";
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

TEST_F(MainWindowTest, EndsOnASignalInADialogAsOnItsClosing) {
  Find<QCheckBox>("chColumnSize")->click();
  QTimer::singleShot(50, [] { std::raise(SIGHUP); });
  Button("Command4")->click();
  for (const QDeadlineTimer end(20000); program->MainWindow().isVisible() && !end.hasExpired();) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  }
  EXPECT_FALSE(program->MainWindow().isVisible());
  StartAnew();
  EXPECT_TRUE(Find<QCheckBox>("chColumnSize")->isChecked()) << "stored";
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
    shown.push_back(text::FromQt(count ? count->text() : window->objectName()));
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

TEST_F(MainWindowTest, FindsEveryOptionAsItWasLeft) {
  for (const auto some : {kAll.first(kAll.size() - 3), kAll.last(3)}) {
    for (const Control& control : some) {
      EXPECT_NE(Value(control), control.text) << control.name;
      Value(control, &control.text);
    }
    program->MainWindow().close();
    StartAnew();
    for (const Control& control : some) EXPECT_EQ(Value(control), control.text) << control.name;
  }
  QtSettingsStore store;
  for (const Control& one : kAll) EXPECT_EQ(store.GetSetting(one.section, one.key), one.text);
}
