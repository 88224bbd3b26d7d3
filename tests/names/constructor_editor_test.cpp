#include "names/constructor_editor.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "names/chip_bar.h"
#include "names/constructor_strip.h"
#include "names/months.h"
#include "names/transform_pane.h"
#include "platform/text_qt.h"
#include "support/fakes.h"
#include "support/keys.h"
#include "support/memory_settings.h"
#include "trace/err_trace.h"

namespace {

class KeptReports : public ErrTrace::Reporter {
 public:
  KeptReports() { ErrTrace::SetReporter(this); }
  ~KeptReports() override { ErrTrace::SetReporter(nullptr); }
  void ShowErrorReport(const std::string& report) noexcept override { reports.push_back(report); }

  std::vector<std::string> reports;
};

class ConstructorEditorTest : public testing::Test {
 protected:
  ConstructorEditorTest() {
    QObject::connect(&editor, &ConstructorEditor::optionChanged, [this] { ++changes; });
  }

  std::vector<ConstrItem>& Items() { return constructor.ArrConstr; }
  ChipBar* Chips() { return editor.strip->tabConstructor; }
  void Select(int index) { Chips()->setCurrentIndex(index); }

  template <class T>
  T* Find(const char* name) {
    T* found = editor.findChild<T*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QLineEdit* Field(const char* name) { return Find<QLineEdit>(name); }
  QComboBox* Pick(const char* name) { return Find<QComboBox>(name); }

  void Choose(QPushButton* button, const char* caption) {
    for (QAction* action : button->menu()->actions()) {
      if (action->text() == QLatin1String(caption)) return action->trigger();
    }
    FAIL() << caption;
  }

  /// The elements as the strip shows them, the selected one in brackets; fails when strip and
  /// model differ.
  std::string Strip() {
    std::string shown;
    EXPECT_EQ(static_cast<std::size_t>(Chips()->count()), Items().size());
    for (int i = 0; i < Chips()->count(); ++i) {
      const ConstrItem& item = Items().at(static_cast<std::size_t>(i));
      const std::string text = text::FromQt(Chips()->tabText(i));
      const auto kind = static_cast<ItemType>(item.ItemType);
      EXPECT_EQ(text::FromQt(Chips()->tabText(i).trimmed()),
                text::FromQt(text::Shown(ElementCaption(kind, item.ItemText)).trimmed()));
      EXPECT_EQ(Chips()->tabData(i).toInt(), item.ItemType);
      shown += i == Chips()->currentIndex() ? '[' + text + ']' : text;
    }
    return shown;
  }

  std::string Pane() {
    for (QWidget* pane : std::initializer_list<QWidget*>{
             Find<QWidget>("pbFileName"), Find<QWidget>("pbExt"),
             Find<QWidget>("pbParentFolderName"), Find<QWidget>("pbFileDate"),
             Find<QWidget>("pbTodayDate"), Find<QWidget>("pbCounter"), Find<QWidget>("pbDot")}) {
      if (pane->isVisibleTo(&editor)) return text::FromQt(pane->objectName());
    }
    return "";
  }

  Constructor constructor;
  FakePrompts prompts;
  FakeClock clock;
  Months months;
  MemorySettings settings;
  ConstructorEditor editor{constructor, {prompts, clock, months, settings}};
  int changes = 0;
};

TEST_F(ConstructorEditorTest, InsertsBesideTheSelectedElementAndSelectsTheNewOne) {
  EXPECT_EQ(Strip(), "[<Source file name> ].<Extension>");
  Choose(editor.strip->vbInsertLeft, "<Counter>");
  EXPECT_EQ(Strip(), "[<Counter>]<Source file name> .<Extension>");
  EXPECT_EQ(Pane(), "pbCounter");
  EXPECT_GT(std::exchange(changes, 0), 0);

  Choose(editor.strip->bnInsertRight, "_ (underscore)");
  EXPECT_EQ(Strip(), "<Counter>[_]<Source file name> .<Extension>");
  EXPECT_EQ(Pane(), "pbDot");
  Select(4);
  Choose(editor.strip->bnInsertRight, "  (space)");
  EXPECT_EQ(Strip(), "<Counter>_<Source file name> .<Extension>[ ]");
}

TEST_F(ConstructorEditorTest, DeletesDownToNothingAndBeginsAnew) {
  Select(1);
  Press(Chips(), Qt::Key_Delete);
  EXPECT_EQ(Strip(), "<Source file name> [<Extension>]");
  editor.strip->bnDeletePattern->click();
  editor.strip->bnDeletePattern->click();
  EXPECT_EQ(Strip(), "");
  EXPECT_EQ(Pane(), "pbDot");
  EXPECT_GT(std::exchange(changes, 0), 0);

  editor.strip->bnDeletePattern->click();
  editor.strip->bnMoveLeft->click();
  EXPECT_EQ(changes, 0) << "nothing to delete or move";
  for (QPushButton* button : {editor.strip->vbInsertLeft, editor.strip->bnInsertRight}) {
    Choose(button, "<File date>");
    EXPECT_EQ(Strip(), "[<File date>]");
    EXPECT_EQ(Pane(), "pbFileDate");
    EXPECT_EQ(Items().at(0).DateFormat, "yyyy-mm-dd");
    editor.strip->bnDeletePattern->click();
  }
}

TEST_F(ConstructorEditorTest, MovesWholeElementsAndAsksForAPreviewAtTheEdgeToo) {
  Type(Field("fdReplace1"), QStringLiteral("a"));
  changes = 0;
  editor.strip->bnMoveLeft->click();
  EXPECT_EQ(Strip(), "[<Source file name> ].<Extension>");
  EXPECT_EQ(std::exchange(changes, 0), 1);
  Press(Chips(), Qt::Key_Right, Qt::ControlModifier);
  editor.strip->bnMoveRight->click();
  EXPECT_EQ(Strip(), ".<Extension>[<Source file name> ]");
  EXPECT_EQ(Items()[2].Replace1, "a");
  editor.strip->bnMoveRight->click();
  EXPECT_EQ(Strip(), ".<Extension>[<Source file name> ]");
}

TEST_F(ConstructorEditorTest, ShowsTheFieldsOfTheMode) {
  const struct {
    const char* combo;
    std::vector<const char*> fields;
    std::vector<std::string> shown;  ///< by mode, one sign a field
  } table[] = {{"cmbCutFile",
                {"fdCutFileN", "fdCutFileX", "fdCutFileText"},
                {"---", "--x", "x--", "x--", "xx-", "xx-", "xx-", "x--", "x--", "xx-"}},
               {"cmbAddFile",
                {"fdAddFileText1", "fdAddFileText2", "fdAddFileN"},
                {"---", "x--", "x--", "xx-", "x-x", "x-x"}}};
  for (const auto& row : table) {
    ASSERT_EQ(Pick(row.combo)->count(), static_cast<int>(row.shown.size()));
    for (int mode = Pick(row.combo)->count() - 1; mode >= 0; --mode) {
      Pick(row.combo)->setCurrentIndex(mode);
      std::string shown, labels;
      for (const char* name : row.fields) {
        const std::string label = std::string("lb") + (name + 2);
        shown += Field(name)->isHidden() ? '-' : 'x';
        labels += Find<QLabel>(label.c_str())->isHidden() ? '-' : 'x';
      }
      EXPECT_EQ(shown, row.shown[static_cast<std::size_t>(mode)]) << row.combo << mode;
      EXPECT_EQ(labels, shown);
    }
  }
  const char* const captions[] = {"&Text:", "&Text:", "&Text:", "&Text1:", "&Text:", "&Text:"};
  for (const int mode : {2, 3, 5, 1, 4}) {
    Pick("cmbAddFile")->setCurrentIndex(mode);
    EXPECT_EQ(Find<QLabel>("lbAddFileText1")->text(), QLatin1String(captions[mode])) << mode;
  }
}

TEST_F(ConstructorEditorTest, KeepsTheValuesOfFieldsThatAModeHides) {
  Pick("cmbCutFile")->setCurrentIndex(4);
  Type(Field("fdCutFileX"), QStringLiteral("3"));
  Leave(Field("fdCutFileX"));
  Find<QPushButton>("Command1")->click();
  EXPECT_EQ(Items()[0].CutFile, 0);
  Pick("cmbCutFile")->setCurrentIndex(9);
  EXPECT_EQ(Items()[0].CutFileX, 3);
  EXPECT_EQ(Field("fdCutFileX")->text(), QStringLiteral("3"));
}

TEST_F(ConstructorEditorTest, SwapsValuesAndPageBetweenTwoElementsOfOneKind) {
  Choose(editor.strip->bnInsertRight, "<Source file name>");
  Find<QTabWidget>("TabControl1")->setCurrentIndex(1);
  Type(Field("fdReplace1"), QStringLiteral("a/b"));
  Pick("cmbCutFile")->setCurrentIndex(2);
  changes = 0;

  Select(0);
  EXPECT_GT(std::exchange(changes, 0), 0) << "the controls held other values";
  EXPECT_EQ(Field("fdReplace1")->text(), QString());
  EXPECT_EQ(Find<QTabWidget>("TabControl1")->currentIndex(), 0);
  EXPECT_TRUE(Field("fdCutFileN")->isHidden());
  EXPECT_EQ(Items()[0].Replace1, "");
  EXPECT_EQ(Items()[1].Replace1, "a/b");

  Select(1);
  EXPECT_EQ(Field("fdReplace1")->text(), QStringLiteral("a/b"));
  EXPECT_EQ(Find<QTabWidget>("TabControl1")->currentIndex(), 1);
  EXPECT_FALSE(Field("fdCutFileN")->isHidden());

  Select(2);
  changes = 0;
  Select(1);
  EXPECT_EQ(changes, 0) << "the controls hold these values already";
}

TEST_F(ConstructorEditorTest, EditsTheFieldsOfItsKindOnly) {
  Select(2);
  EXPECT_EQ(Pane(), "pbExt");
  Pick("cmbCaseExt")->setCurrentIndex(2);
  Type(Field("fdReplaceExt2"), QStringLiteral("x"));
  Choose(editor.strip->bnInsertRight, "<Parent folder name>");
  EXPECT_EQ(Pane(), "pbParentFolderName");
  Type(Field("fdAddParentFolderText1"), QStringLiteral("y"));
  EXPECT_EQ(Items()[2].CaseExt, 2);
  EXPECT_EQ(Items()[2].ReplaceExt2, "x");
  EXPECT_EQ(Items()[3].AddParentFolderText1, "y");
  EXPECT_EQ(Items()[3].CaseExt, 0);
}

TEST_F(ConstructorEditorTest, TakesANumberWhenItsFieldIsLeft) {
  QLineEdit* n = Field("fdCutFileN");
  Pick("cmbCutFile")->setCurrentIndex(2);
  changes = 0;
  n->clear();
  Type(n, QStringLiteral("0x0-7 "));
  EXPECT_EQ(n->text(), QStringLiteral("007"));
  EXPECT_GT(changes, 0);
  EXPECT_EQ(Items()[0].CutFileN, 0) << "not at every key";
  Leave(n, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(Items()[0].CutFileN, 0) << "another window only borrows the focus";
  Leave(n);
  EXPECT_EQ(Items()[0].CutFileN, 7);
  EXPECT_EQ(n->text(), QStringLiteral("7"));
  n->setText(QStringLiteral("12"));
  Press(n, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
  EXPECT_EQ(Items()[0].CutFileN, 12);
  n->clear();
  editor.CommitFocusedField();
  EXPECT_EQ(Items()[0].CutFileN, 0);
  EXPECT_EQ(n->text(), QStringLiteral("0"));
}

TEST_F(ConstructorEditorTest, GivesAnUnfinishedNumberToTheElementItWasTypedFor) {
  Choose(editor.strip->bnInsertRight, "<Source file name>");
  const struct {
    const char* what;
    std::function<void()> act;
    std::size_t now_at;
  } table[] = {{"select", [&] { Select(0); }, 1},
               {"move", [&] { editor.strip->bnMoveLeft->click(); }, 0},
               {"insert", [&] { Choose(editor.strip->vbInsertLeft, "<Source file name>"); }, 1}};
  int number = 10;
  for (const auto& row : table) {
    SCOPED_TRACE(row.what);
    Select(row.what == std::string("insert") ? 0 : 1);
    Field("fdCutFileN")->setText(QString::number(++number));
    row.act();
    Leave(Field("fdCutFileN"));
    for (std::size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(Items()[i].CutFileN == number, i == row.now_at) << i;
    }
  }
}

TEST_F(ConstructorEditorTest, ReportsANumberBeyond32BitsAndKeepsTheElements) {
  KeptReports kept;
  Items()[0].CutFileN = 5;
  QLineEdit* n = Field("fdCutFileN");
  n->setText(QStringLiteral("99999999999999999999"));
  Leave(n);
  ASSERT_EQ(kept.reports.size(), 1u);
  EXPECT_NE(kept.reports[0].find("Form1.fdCutFileN_Validate(Cancel=False)"), std::string::npos);
  EXPECT_EQ(kept.reports[0].rfind("Overflow", 0), 0u);
  EXPECT_EQ(Items()[0].CutFileN, 5);
  EXPECT_EQ(n->text(), QStringLiteral("1E+20"));
  editor.CommitFocusedField();
  Select(1);
  EXPECT_EQ(kept.reports.size(), 1u) << "told once for what was typed";
}

TEST_F(ConstructorEditorTest, RefusesTypedForbiddenCharactersWhereTextGoesIntoNames) {
  const struct {
    const char* field;
    bool filtered;
  } table[] = {{"fdReplace1", false},     {"fdCutFileText", false},
               {"fdReplace2", true},      {"fdAddFileText1", true},
               {"fdAddFileText2", true},  {"fdReplaceExt1", false},
               {"fdReplaceExt2", true},   {"fdAddParentFolderText1", true},
               {"fdDateSeparator", true}, {"fdTDateSeparator", true}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.field);
    QLineEdit* field = Field(row.field);
    field->clear();
    prompts.told.clear();
    Type(field, QStringLiteral("a\\/:*?\"<>|b"));
    EXPECT_EQ(prompts.told.size(), row.filtered ? 9u : 0u);
    EXPECT_EQ(field->text(), row.filtered ? QStringLiteral("ab") : QStringLiteral("a\\/:*?\"<>|b"));
    prompts.told.clear();
    field->insert(QStringLiteral("c/d"));  // as a paste does
    EXPECT_TRUE(field->text().endsWith(QStringLiteral("c/d")));
    EXPECT_TRUE(prompts.told.empty());
  }
  Type(Field("fdReplace2"), QStringLiteral("/"));
  ASSERT_EQ(prompts.told.size(), 1u);
  EXPECT_EQ(prompts.told[0],
            "A filename cannot contain any of the following characters:\n"
            "\\ / : * ? \" < > |");
}

TEST_F(ConstructorEditorTest, DerivesFormatsAndSamplesOfEachDate) {
  const struct {
    const char* kind;
    std::string prefix;
    std::string ConstrItem::*format;
  } table[] = {{"<File date>", "", &ConstrItem::DateFormat},
               {"<Today's date>", "T", &ConstrItem::TDateFormat}};
  for (const auto& row : table) {
    SCOPED_TRACE(row.kind);
    Choose(editor.strip->bnInsertRight, row.kind);
    Choose(editor.strip->bnInsertRight, row.kind);
    const auto at = static_cast<std::size_t>(Chips()->currentIndex());
    const auto sample = [&] {
      return Find<QLabel>(("lb" + row.prefix + "DateSample").c_str())->text().toStdString();
    };
    const auto box = [&](int i) {
      return Pick(("cmb" + row.prefix + "Date(" + std::to_string(i) + ")").c_str());
    };
    box(0)->setCurrentIndex(2);
    box(1)->setCurrentIndex(6);
    Type(Field(("fd" + row.prefix + "DateSeparator").c_str()), QStringLiteral("\u5E74"));
    EXPECT_EQ(Items()[at].*row.format, "dd-\u5E74mmmm-\u5E74dd");
    for (const int i : {0, 1, 2}) box(i)->setCurrentIndex(0);
    EXPECT_EQ(Items()[at].*row.format, "");
    EXPECT_EQ(sample(), "Example: ");
    Select(static_cast<int>(at) - 1);
    EXPECT_EQ(box(0)->currentIndex(), 8);
    EXPECT_EQ(sample(), "Example: 2024-01-01");
    EXPECT_EQ(Items()[at - 1].*row.format, "yyyy-mm-dd");
  }
}

TEST_F(ConstructorEditorTest, DerivesFormatsAndSamplesOfEachCounter) {
  Choose(editor.strip->bnInsertRight, "<Counter>");
  EXPECT_EQ(Items()[1].CounterFormat, "0000");
  Field("fdStartValue")->setText(QStringLiteral("12"));
  EXPECT_EQ(Find<QLabel>("lbRangeSample")->text(), QStringLiteral("Example: 0012"));
  EXPECT_EQ(Items()[1].CounterStart, 1);
  Pick("cmbRange")->setCurrentIndex(0);
  EXPECT_EQ(Items()[1].CounterFormat, "0");
  Leave(Field("fdStartValue"));
  EXPECT_EQ(Items()[1].CounterStart, 12);

  Choose(editor.strip->bnInsertRight, "<Counter>");
  Field("fdStartValue")->clear();
  EXPECT_EQ(Find<QLabel>("lbRangeSample")->text(), QStringLiteral("Example: "));
  Pick("cmbRange")->setCurrentIndex(9);
  Find<QCheckBox>("chResetCounter")->setChecked(false);
  Select(1);
  EXPECT_EQ(Find<QLabel>("lbRangeSample")->text(), QStringLiteral("Example: 12"));
  EXPECT_TRUE(Find<QCheckBox>("chResetCounter")->isChecked());
  EXPECT_EQ(Items()[2].CounterStart, 0);
  EXPECT_EQ(Items()[2].CounterFormat, "0000000000");
  EXPECT_EQ(Items()[2].ResetCounter, 0);
}

TEST_F(ConstructorEditorTest, AsksForAPreviewAfterAnyChangeOfAnyOption) {
  for (const char* kind : {"<Parent folder name>", "<File date>", "<Today's date>", "<Counter>"}) {
    Choose(editor.strip->bnInsertRight, kind);
  }
  int combos = 0;
  int fields = 0;
  int pages = 0;
  const auto expect = [this](int told, const QWidget* by, const std::function<void()>& act) {
    changes = 0;
    act();
    EXPECT_EQ(changes, told) << by->objectName().toStdString();
  };
  for (int item = 0; item < Chips()->count(); ++item) {
    Select(item);
    QWidget* pane = Find<QWidget>(Pane().c_str());
    for (QComboBox* combo : pane->findChildren<QComboBox*>()) {
      expect(1, combo, [combo] { combo->setCurrentIndex(combo->currentIndex() == 0 ? 1 : 0); });
      ++combos;
    }
    for (QLineEdit* field : pane->findChildren<QLineEdit*>()) {
      expect(1, field, [field] { field->insert(QStringLiteral("9")); });
      ++fields;
    }
    for (QTabWidget* tabs : pane->findChildren<QTabWidget*>()) {
      expect(0, tabs, [tabs] { tabs->setCurrentIndex(2); });  // changes no name
      ++pages;
    }
  }
  Select(Chips()->count() - 4);
  auto* reset = Find<QCheckBox>("chResetCounter");
  expect(1, reset, [reset] { reset->toggle(); });
  EXPECT_EQ(combos, 3 * 3 + 2 * 3 + 1);
  EXPECT_EQ(fields, 3 * 8 + 2 + 1);
  EXPECT_EQ(pages, 3);
}

TEST_F(ConstructorEditorTest, HoldsPastedTextAsItShowsIt) {
  const QString pasted = QStringLiteral("a\r\nb\tc\u2028/d\U0001F1E9\U0001F1EA");
  const std::string whole = text::FromQt(pasted);
  Field("fdAddFileText1")->insert(pasted);
  EXPECT_EQ(Items()[0].AddFileText1, "a  b\tc /d\U0001F1E9\U0001F1EA");
  Field("fdReplace1")->insert(pasted);
  EXPECT_EQ(Items()[0].Replace1, whole) << "names may hold what is looked for";
  Field("fdReplace2")->insert(QString(10'000, u'x'));
  EXPECT_EQ(Items()[0].Replace2, std::string(10'000, 'x'));
}

TEST_F(ConstructorEditorTest, AsksForNoMoreRoomForLongTexts) {
  const KeptReports kept;
  const int narrow = editor.minimumSizeHint().width();
  Choose(editor.strip->bnInsertRight, "<File date>");
  Field("fdDateSeparator")->insert(QString(10'000, u'm'));
  Choose(editor.strip->bnInsertRight, "<Counter>");
  Field("fdStartValue")->insert(QString(10'000, u'9'));
  Leave(Field("fdStartValue"));
  constructor.InsertArrConstrItem(0, kText, std::string(10'000, 'x'));
  constructor.InsertArrConstrItem(1, kText, "R&D \xFF");
  const ConstructorEditor other(constructor, {prompts, clock, months, settings});
  EXPECT_EQ(editor.minimumSizeHint().width(), narrow);
  EXPECT_EQ(other.minimumSizeHint().width(), narrow);
  const ChipBar* chips = other.strip->tabConstructor;
  EXPECT_LT(chips->tabRect(0).width(), 300);
  EXPECT_LT(chips->tabToolTip(0).size(), 1'000);
  EXPECT_EQ(chips->tabText(1), QStringLiteral("R&&D \uFFFD"));
}

TEST_F(ConstructorEditorTest, MarksThePagesThatChangeSomething) {
  const auto marked = [this] {
    std::string pages;
    for (int page = 0; page < 3; ++page) {
      const QString tip = Find<QTabWidget>("TabControl1")->tabToolTip(page);
      pages += tip.endsWith(QStringLiteral("(in use)")) ? 'x' : '-';
    }
    return pages;
  };
  Pick("cmbCutFile")->setCurrentIndex(2);
  EXPECT_EQ(marked(), "---") << "N is 0";
  Type(Field("fdCutFileN"), QStringLiteral("3"));
  Leave(Field("fdCutFileN"));
  EXPECT_EQ(marked(), "x--");
  Type(Field("fdReplace1"), QStringLiteral("old"));
  EXPECT_EQ(marked(), "xx-");
  Pick("cmbAddFile")->setCurrentIndex(3);
  Type(Field("fdAddFileText2"), QStringLiteral("end"));
  EXPECT_EQ(marked(), "xxx");
  Pick("cmbAddFile")->setCurrentIndex(2);
  Find<QPushButton>("Command1")->click();
  EXPECT_EQ(marked(), "-x-");
  Choose(editor.strip->vbInsertLeft, "<Source file name>");
  EXPECT_EQ(marked(), "---");
  Select(1);
  EXPECT_EQ(marked(), "-x-");
}

TEST_F(ConstructorEditorTest, HoldsBackACommandForARefusedNumberThatIsSeen) {
  KeptReports kept;
  const auto refuse = [this] {
    Pick("cmbCutFile")->setCurrentIndex(2);
    Field("fdCutFileN")->setText(QStringLiteral("2147483648"));
    Leave(Field("fdCutFileN"));
  };
  refuse();
  Find<QTabWidget>("TabControl1")->setCurrentIndex(1);
  EXPECT_FALSE(editor.CommitFocusedField());
  EXPECT_EQ(Find<QTabWidget>("TabControl1")->currentIndex(), 0) << "the field comes into view";
  Pick("cmbCutFile")->setCurrentIndex(0);
  EXPECT_TRUE(editor.CommitFocusedField()) << "its mode is off";
  refuse();
  Select(1);
  EXPECT_TRUE(editor.CommitFocusedField()) << "another element is shown";
  Select(0);
  EXPECT_EQ(Field("fdCutFileN")->text(), QStringLiteral("0"));
  EXPECT_TRUE(editor.CommitFocusedField());
}

TEST_F(ConstructorEditorTest, IsWorkedByKeysOnItsStrip) {
  editor.show();
  Press(Chips(), Qt::Key_Right);
  Press(Chips(), Qt::Key_Right);
  EXPECT_EQ(Pane(), "pbExt");
  Press(Chips(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Strip(), "<Source file name> [<Extension>].");
  const struct {
    QPushButton* button;
    Qt::KeyboardModifiers modifiers;
  } table[] = {{editor.strip->bnInsertRight, Qt::NoModifier},
               {editor.strip->vbInsertLeft, Qt::ShiftModifier}};
  for (const auto& row : table) {
    int opened = 0;
    const QObject this_round;
    QMenu* menu = row.button->menu();
    QObject::connect(menu, &QMenu::aboutToShow, &this_round, [menu, &opened] {
      ++opened;
      QTimer::singleShot(0, menu, &QMenu::hide);
    });
    Press(Chips(), Qt::Key_Insert, row.modifiers);
    EXPECT_EQ(opened, 1);
  }
  Press(Chips(), Qt::Key_Delete);
  Press(Chips(), Qt::Key_Delete);
  EXPECT_EQ(Strip(), "[<Source file name> ]") << "the left neighbour when none stands right";
  EXPECT_EQ(Pane(), "pbFileName");
}

TEST_F(ConstructorEditorTest, ScrollsTheSelectedChipWhollyIntoView) {
  editor.resize(479, 400);
  editor.show();
  const auto in_view = [&] {
    const QRect chip = Chips()->ChipRect(Chips()->currentIndex()).translated(Chips()->pos());
    return Chips()->parentWidget()->rect().contains(chip);
  };
  auto* left = Find<QToolButton>("bnScrollLeft");
  auto* right = Find<QToolButton>("bnScrollRight");
  EXPECT_FALSE(left->isVisible());
  for (int i = 0; i < 5; ++i) {
    Choose(editor.strip->bnInsertRight, "<Parent folder name>");
    EXPECT_TRUE(in_view()) << i;
  }
  EXPECT_TRUE(left->isVisible());
  Select(Chips()->count() - 1);
  EXPECT_TRUE(in_view());
  EXPECT_FALSE(right->isEnabled());
  for (int i = 0; i < Chips()->count(); ++i) left->click();
  EXPECT_EQ(Chips()->x(), 0);
  EXPECT_FALSE(left->isEnabled());
  for (int i = 0; i < 5; ++i) {
    Select(1);
    editor.strip->bnDeletePattern->click();
  }
  EXPECT_FALSE(left->isVisible());
  EXPECT_EQ(Chips()->x(), 0);
}

TEST_F(ConstructorEditorTest, TellsTheStripAndItsChipsToScreenReaders) {
  Chips()->setAccessibleDescription(QStringLiteral("told"));
  QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Chips());
  ASSERT_EQ(bar->childCount(), 3);
  QAccessibleInterface* last = bar->child(2);
  EXPECT_EQ(last->role(), QAccessible::PageTab);
  EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("<Extension>"));
  EXPECT_EQ(bar->indexOfChild(last), 2);
  last->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(editor.strip->Selected(), 2);
  EXPECT_TRUE(last->state().selected);
  while (Chips()->count() > 0) editor.strip->bnDeletePattern->click();
  EXPECT_FALSE(last->isValid());
  EXPECT_EQ(bar->childCount(), 0);
  EXPECT_EQ(bar->role(), QAccessible::PageTabList);
  EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("New file name constructor"));
  EXPECT_EQ(bar->text(QAccessible::Description), QStringLiteral("told"));
}

TEST_F(ConstructorEditorTest, EveryControlHasANameOfItsOwn) {
  std::vector<std::string> names;
  for (const QWidget* widget : editor.findChildren<QWidget*>()) {
    const std::string name = text::FromQt(widget->objectName());
    const bool is_own = name.compare(0, 3, "qt_") != 0 && name.compare(0, 6, "Scroll") != 0;
    if (!name.empty() && is_own) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  const auto twice = std::adjacent_find(names.begin(), names.end());
  EXPECT_EQ(twice, names.end()) << *twice;
}

}  // namespace
