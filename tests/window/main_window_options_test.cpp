#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QVariant>
#include <optional>
#include <span>

#include "platform/qt/settings_store_qt.h"
#include "platform/qt/text_qt.h"
#include "support/failure_report.h"
#include "support/temp_folder.h"
#include "window/main_window.h"
#include "window/program.h"

namespace {

struct Control {
  std::string name, section, key, text;
};

/// All options, with texts unlike those of a first start.
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
std::string Held(QWidget& window, const Control& control, const std::string* text = nullptr) {
  auto* found = window.findChild<QWidget*>(QLatin1String(control.name.c_str()));
  const bool field = control.name.starts_with("fd");
  const char* held = field ? "text" : control.name.starts_with("ch") ? "checked" : "currentIndex";
  if (text) found->setProperty(held, text::ToQt(*text));
  const QVariant value = found->property(held);
  return field ? text::FromQt(value.toString()) : std::to_string(value.toInt());
}

/// The program, started anew as often as wanted over one folder of settings.
class MainWindowOptionsTest : public testing::Test {
 protected:
  MainWindowOptionsTest() { qputenv("XDG_CONFIG_HOME", config.path().c_str()); }

  void Start() {
    program.reset();
    program.emplace(*qApp);
    report = FailureReport([&] { program->MainWindow().show(); });
  }

  /// As Held, in the dialog where the numbering is chosen.
  std::string Value(const Control& control, const std::string* text = nullptr) {
    if (control.section != "Conflicts") return Held(program->MainWindow(), control, text);
    std::string held;
    QTimer::singleShot(0, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      held = Held(*dialog, control, text);
      dialog->findChild<QPushButton*>(QStringLiteral("bnOK"))->click();
    });
    program->MainWindow().findChild<QPushButton*>(QStringLiteral("Command4"))->click();
    return held;
  }

  const TempFolder config;
  std::optional<Program> program;
  std::string report;
};

TEST_F(MainWindowOptionsTest, EveryOptionIsFoundAsItWasLeft) {
  Start();
  // The save boxes last, and by themselves: one that is off hides its group.
  for (const auto some : {kAll.first(15), kAll.last(3)}) {
    for (const Control& control : some) {
      EXPECT_NE(Value(control), control.text) << control.name;
      Value(control, &control.text);
    }
    program->MainWindow().close();
    Start();
    for (const Control& control : some) EXPECT_EQ(Value(control), control.text) << control.name;
  }
  QtSettingsStore store;
  for (const Control& one : kAll) EXPECT_EQ(store.GetSetting(one.section, one.key), one.text);
}

}  // namespace
