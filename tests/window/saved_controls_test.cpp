#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
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
  const char* name;
  const char* section;
  const char* key;
  std::string text;  ///< unlike the one of a first start
};

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

/// Those that the main window holds, but for the save boxes.
const std::span kOptions = std::span(kControls).first<12>();

void SaveOptions(SettingsStore& store) {
  for (const Control& control : kOptions) {
    store.SaveSetting(control.section, control.key, control.text);
  }
}

std::string Held(QWidget& window, const char* name) {
  const QLatin1String found(name);
  if (auto* box = window.findChild<QCheckBox*>(found)) return box->isChecked() ? "1" : "0";
  if (auto* list = window.findChild<QComboBox*>(found)) return std::to_string(list->currentIndex());
  return text::FromQt(window.findChild<QLineEdit*>(found)->text());
}

void Set(QWidget& window, const Control& control) {
  const QLatin1String found(control.name);
  if (auto* box = window.findChild<QCheckBox*>(found)) return box->setChecked(control.text == "1");
  if (auto* list = window.findChild<QComboBox*>(found)) {
    return list->setCurrentIndex(std::stoi(control.text));
  }
  window.findChild<QLineEdit*>(found)->setText(text::ToQt(control.text));
}

/// The program, started anew as often as wanted over one folder of settings.
class SavedControlsTest : public testing::Test {
 protected:
  SavedControlsTest() {
    qputenv("XDG_CONFIG_HOME", config.path().c_str());
    Start();
  }

  void Start() {
    program.reset();
    program.emplace(*qApp);
    report = FailureReport([&] { program->MainWindow().show(); });
  }

  /// The controls whose section is that of the numbering stand in a dialog.
  template <class Act>
  void Visit(const Control& control, Act&& act) {
    if (std::string_view(control.section) != "Conflicts") return act(program->MainWindow());
    QTimer::singleShot(0, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      act(*dialog);
      dialog->findChild<QPushButton*>(QStringLiteral("bnOK"))->click();
    });
    program->MainWindow().findChild<QPushButton*>(QStringLiteral("Command4"))->click();
  }

  std::string Stored(const Control& control) {
    return QtSettingsStore().GetSetting(control.section, control.key, "(none)");
  }

  const TempFolder config;
  std::optional<Program> program;
  std::string report;
};

TEST_F(SavedControlsTest, EveryOptionIsFoundAsItWasLeft) {
  const std::size_t boxes = std::size(kControls) - 3;
  const std::span<const Control> all(kControls);
  for (const auto some : {all.first(boxes), all.subspan(boxes)}) {
    for (const Control& control : some) {
      Visit(control, [&](QWidget& window) {
        EXPECT_NE(Held(window, control.name), control.text) << control.name;
        Set(window, control);
      });
    }
    program->MainWindow().close();
    Start();
    for (const Control& control : all.first(some.data() + some.size() - kControls)) {
      EXPECT_EQ(Stored(control), control.text) << control.key;
      const bool shown = some.size() == boxes || &control >= some.data();
      if (!shown) continue;
      Visit(control, [&](QWidget& window) {
        EXPECT_EQ(Held(window, control.name), control.text) << control.name;
      });
    }
  }
}

TEST_F(SavedControlsTest, WhatAnUnreachableFolderHidIsStillThereWhenItIsBack) {
  program.reset();
  QtSettingsStore store;
  SaveOptions(store);
  ASSERT_EQ(store.Flush().text, "");
  ASSERT_EQ(::rename((config / "Quorvane").c_str(), (config / "away").c_str()), 0);
  config.MakeLink("Quorvane", "Quorvane");
  Start();
  EXPECT_EQ(Held(program->MainWindow(), "chColumnDate"), "0");
  Set(program->MainWindow(), {"fdDestination", "", "", "/new/"});
  ASSERT_EQ(::unlink((config / "Quorvane").c_str()), 0);
  ASSERT_EQ(::rename((config / "away").c_str(), (config / "Quorvane").c_str()), 0);
  program->MainWindow().close();
  Start();
  for (const Control& control : kOptions) {
    const bool changed = control.name == std::string_view("fdDestination");
    EXPECT_EQ(Held(program->MainWindow(), control.name), changed ? "/new/" : control.text);
  }
}

TEST_F(SavedControlsTest, WhatABadValueHidIsStillThereWhenItIsMended) {
  QtSettingsStore store;
  SaveOptions(store);
  store.SaveSetting("Settings\\Folders", "OutputFolderMode", "9");
  ASSERT_EQ(store.Flush().text, "");
  Start();
  EXPECT_THAT(report, testing::HasSubstr("OutputFolderMode"));
  EXPECT_EQ(Held(program->MainWindow(), "chColumnDate"), "0");
  Set(program->MainWindow(), {"fdDestination", "", "", "/new/"});
  program->MainWindow().close();
  Start();
  EXPECT_EQ(report, "");
  const std::pair<const char*, const char*> expected[] = {
      {"fdIncludeMask", "*.jpg"},       {"cmbDestination", "0"}, {"fdDestination", "/new/"},
      {"chDestinationSubfolders", "0"}, {"chColumnDate", "1"},   {"cmbGroupBy", "2"}};
  for (const auto& [name, text] : expected) EXPECT_EQ(Held(program->MainWindow(), name), text);
}

}  // namespace
