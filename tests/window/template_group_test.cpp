#include "window/template_group.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "platform/qt/text_qt.h"
#include "support/failure_report.h"
#include "support/fake_services.h"
#include "support/keys.h"
#include "window/main_window.h"
#include "window/template_dialog.h"

/// All keys of controls in the order of the writing; those not called after their control with it.
constexpr std::string_view kKeys =
    "CounterStart=fdStartValue CounterRange=cmbRange Date0=cmbDate(0) Date1=cmbDate(1) "
    "Date2=cmbDate(2) DateSeparator TDate0=cmbTDate(0) TDate1=cmbTDate(1) TDate2=cmbTDate(2) "
    "TDateSeparator CaseParentFolder CaseOldFile CaseExt CutFile CutParentFolder CutExt CutFileN "
    "CutFileX CutFileText CutParentFolderN CutParentFolderX CutParentFolderText CutExtN CutExtX "
    "CutExtText Replace1 Replace2 ReplaceParentFolder1 ReplaceParentFolder2 ReplaceExt1 "
    "ReplaceExt2 GroupBy AddFile AddParentFolder AddExt AddFileN AddFileText1 AddFileText2 "
    "AddParentFolderN AddParentFolderText1 AddParentFolderText2 AddExtN AddExtText1 AddExtText2";

constexpr const char* kInvalid =
    "xThe template name you typed is invalid. Try typing the template name again.";
constexpr const char* kReserved =
    "!You cannot use the name DEFAULT for a template. Type a different name.";
constexpr const char* kTaken =
    "!A template named REPORT already exists. Do you want to replace the existing template?";
constexpr const char* kSure = "!Do you really want to delete the selected template?";
const std::string kOne = "1=Report Counter=1 Line=1 1:46 ";
const std::string kTwo = "1=Report 2=b Counter=2 Line=1|2 1:46 2:46 ";
const std::string kBlank = "2=b 3=   Counter=3 Current=0 Line=2|3 2:46 3:46 ";
const std::string kFull = "2=b 3=   Counter=32767 Current=0 Line=2|3 2:46 3:46 ";

const struct {
  char what;  ///< 's' saves, 'd' deletes; in capitals, a question is answered with Yes
  const char* name;
  std::string store, listed, told = {}, failed = {};
  std::pair<const char*, const char*> before = {};  ///< first stored in the directory
} kSteps[] = {
    {'s', "", "", "", kInvalid},
    {'s', "Report", kOne, "Report "},
    {'s', "DEFAULT", kOne, "Report ", kReserved},
    {'s', "faultdemofaultdemo", kOne, "Report ", "", "Division by zero"},
    {'s', "b", kTwo, "Report b "},
    {'s', "REPORT", kTwo, "Report b ", kTaken},
    {'S', "REPORT", kTwo, "Report b ", kTaken},
    {'d', "REPORT", kTwo, "Report b ", kSure},
    {'D', "REPORT", "2=b Counter=2 Current=0 Line=2 2:46 ", "Report b ", kSure},
    {'s', "  ", kBlank, "Report b    "},
    {'D', "x", kBlank, "Report b    ", kSure, "Invalid procedure call or argument"},
    {'s', "d", kFull, "Report b    d ", "", "Overflow", {"Counter", "32767"}},
    {'D', "b", "2=b Counter=32767 Current=0 Line= 2:46 ", "Report    d ", kSure, "", {"3", "B"}},
};

struct TemplateGroupTest : testing::Test {
  /// Types a name into the dialog, cancels it when it stays open, and answers what failed.
  std::string Save(const char* name) {
    QTimer::singleShot(0, [=, this] {
      Form2* dialog = group->gSaveTemplateForm;
      EXPECT_EQ(dialog->fdTemplate->selectedText(), group->cmbTemplate->currentText());
      dialog->fdTemplate->setText(QLatin1String(name));
      Press(dialog->fdTemplate, Qt::Key_Return);
      if (dialog->isVisible()) Press(dialog->fdTemplate, Qt::Key_Escape);
    });
    return Click(group->bnSaveTemplate);
  }
  std::string Click(QPushButton* button) {
    const std::string report = FailureReport([&] { button->click(); });
    return report.substr(0, report.find(" \r"));
  }
  /// The directory, how many options each template has, and the entries of the box.
  std::string State() {
    std::string all;
    std::map<std::string, int> options;
    for (const auto& [place, value] : system.settings.values) {
      const auto& [section, key] = place;
      if (section == "Templates") all.append(key).append("=").append(value).append(" ");
      if (section.starts_with("Templates\\")) ++options[section.substr(10)];
    }
    for (const auto& [n, count] : options) all += n + ":" + std::to_string(count) + " ";
    for (int i = 0; i < group->cmbTemplate->count(); ++i) {
      all.append(text::FromQt(group->cmbTemplate->itemText(i))).append(" ");
    }
    return all;
  }

  FakeServices system;
  Session session;
  Form1 window{session, system.services};
  TemplateGroup* group = window.findChild<TemplateGroup*>(QStringLiteral("Frame3"));
};

TEST_F(TemplateGroupTest, KeepsEveryOptionUnderItsKey) {
  std::vector<std::string> expected;
  for (const std::string_view word : text::Split(kKeys, " ")) {
    const std::string key(word.substr(0, word.find('=')));
    const std::string called(word == key ? "fd" + key : word.substr(key.size() + 1));
    auto* control = window.findChild<QWidget*>(text::ToQt(called));
    if (control == nullptr) control = window.findChild<QComboBox*>(text::ToQt("cmb" + key));
    int value = 100 + static_cast<int>(expected.size());
    if (auto* list = qobject_cast<QComboBox*>(control)) value %= list->count();
    const std::string text = key == "DateSeparator" ? "" : std::to_string(value);
    control->setProperty("text", text::ToQt(text));
    control->setProperty("currentIndex", value);
    expected.push_back(key + "=" + text);
  }
  std::vector<std::string>& written = system.settings.written;
  window.show();
  EXPECT_TRUE(group->isHidden());
  EXPECT_EQ(Save("unsorted"), "Invalid procedure call or argument");
  EXPECT_EQ(written.back(), expected.back());
  EXPECT_EQ(system.settings.flushes, 2) << "the place of the dialog, and what was written";
  session.grid.SetSortOrder(kColumnSourceName, false);
  written.clear();
  Save("a");
  expected.insert(expected.end(), {"SortColumn=5", "SortOrder=0"});
  const auto first = std::ranges::find(written, expected.front());
  EXPECT_EQ(std::vector(first, written.end()), expected);
}

TEST_F(TemplateGroupTest, KeepsTheDirectoryAndTakesOnlyWhatMayBeAName) {
  FakePrompts& prompts = system.prompts;
  auto* mask = window.findChild<QLineEdit*>(QStringLiteral("fdIncludeMask"));
  mask->setText(QStringLiteral("*.x"));
  session.grid.SetSortOrder(kColumnSourceName, true);
  for (const auto& step : kSteps) {
    SCOPED_TRACE(std::string(1, step.what) + step.name);
    prompts.told = {""};
    prompts.icons.clear();
    prompts.answer = step.what < 'a';
    if (auto [key, text] = step.before; key) system.settings.values[{"Templates", key}] = text;
    const bool save = step.what == 's' || step.what == 'S';
    if (!save) group->cmbTemplate->setEditText(QLatin1String(step.name));
    EXPECT_EQ(save ? Save(step.name) : Click(group->bnDelete), step.failed);
    EXPECT_EQ(prompts.icons + prompts.told.back(), step.told);
    EXPECT_EQ(State(), step.store + step.listed);
  }
  EXPECT_EQ(group->cmbTemplate->currentText(), QStringLiteral("Default"));
  EXPECT_EQ(mask->text(), QStringLiteral("*.x")) << "until now, nobody chose one";
  group->cmbTemplate->setCurrentIndex(0);
  EXPECT_EQ(mask->text(), QString()) << "read anew";
}
