#include "names/editor/constructor_editor.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "names/editor/chip_bar.h"
#include "names/editor/constructor_strip.h"
#include "names/editor/custom_text_dialog.h"
#include "names/editor/transform_pane.h"
#include "names/months.h"
#include "platform/qt/text_qt.h"
#include "support/fake_services.h"
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

Services WithLocale(const Services& s, LocaleFacts& locale) {
  return {s.files,      s.clock,   s.facts,   s.events, locale,
          s.type_names, s.folders, s.prompts, s.shell,  s.settings};
}

class ConstructorEditorTest : public testing::Test {
 protected:
  ConstructorEditorTest() {
    QObject::connect(&editor, &ConstructorEditor::commandPicked, &editor,
                     &ConstructorEditor::Execute);
    QObject::connect(&editor, &ConstructorEditor::optionChanged, [this] {
      ++changes;
      if (on_change) on_change();
    });
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
      EXPECT_EQ(text::FromQt(Chips()->tabText(i).trimmed()),
                text::FromQt(text::Shown(ElementCaption(item)).trimmed()));
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
  FakeServices fakes;
  Months months;
  const Services services = WithLocale(fakes.services, months);
  ConstructorEditor editor{constructor, services};
  int changes = 0;
  std::function<void()> on_change;
};

TEST_F(ConstructorEditorTest, InsertsBesideTheSelectedElementAndSelectsTheNewOne) {
  EXPECT_EQ(Strip() + Pane(), "[<Source file name> ].<Extension>pbFileName");
  const std::pair<std::string, const char*> table[] = {
      {"<Source file name>", "pbFileName"},
      {"<Extension>", "pbExt"},
      {"<Counter>", "pbCounter"},
      {"<File date>", "pbFileDate"},
      {"<Today's date>", "pbTodayDate"},
      {"<Parent folder name>", "pbParentFolderName"},
      {". (dot)", "pbDot"},
      {"- (dash)", "pbDot"},
      {"_ (underscore)", "pbDot"},
      {"  (space)", "pbDot"},
      {"Custom text", "pbDot"},
  };
  for (const auto& [command, pane] : table) {
    SCOPED_TRACE(command);
    std::string chip = command.front() == '<' ? command : command.substr(0, 1);
    if (command == "Custom text") chip = "own";
    for (const bool left : {true, false}) {
      Select(1);
      if (chip == "own") {
        QTimer::singleShot(0, [] {
          auto* dialog = qobject_cast<Form5*>(QApplication::activeModalWidget());
          dialog->fdText->setText(QStringLiteral("own"));
          dialog->bnOK->click();
        });
      }
      changes = 0;
      Choose(left ? editor.strip->vbInsertLeft : editor.strip->bnInsertRight, command.c_str());
      const std::string both = left ? '[' + chip + "]." : ".[" + chip + ']';
      EXPECT_EQ(Strip() + Pane(), "<Source file name> " + both + "<Extension>" + pane);
      EXPECT_GT(changes, 0);
      editor.strip->bnDeletePattern->click();
    }
  }
}

TEST_F(ConstructorEditorTest, DeletesDownToNothingAndBeginsAnew) {
  Select(1);
  Press(Chips(), Qt::Key_Delete);
  EXPECT_EQ(Strip(), "<Source file name> [<Extension>]");
  editor.strip->bnDeletePattern->click();
  EXPECT_EQ(Strip(), "[<Source file name> ]") << "the left neighbour when none stands right";
  editor.strip->bnDeletePattern->click();
  EXPECT_EQ(Strip() + Pane(), "pbDot");
  EXPECT_GT(std::exchange(changes, 0), 0);
  editor.strip->bnDeletePattern->click();
  editor.strip->bnMoveLeft->click();
  EXPECT_EQ(changes, 0) << "nothing to delete or move";
  for (QPushButton* button : {editor.strip->vbInsertLeft, editor.strip->bnInsertRight}) {
    Choose(button, "<File date>");
    EXPECT_EQ(Strip() + Pane(), "[<File date>]pbFileDate");
    editor.strip->bnDeletePattern->click();
  }
}

TEST_F(ConstructorEditorTest, MovesWholeElementsAndAsksForAPreviewAtTheEdgeToo) {
  Field("fdReplace1")->insert(QStringLiteral("a"));
  changes = 0;
  editor.strip->bnMoveLeft->click();
  EXPECT_EQ(Strip(), "[<Source file name> ].<Extension>");
  EXPECT_EQ(changes, 1);
  Press(Chips(), Qt::Key_Right, Qt::ControlModifier);
  for (int i = 0; i < 2; ++i) editor.strip->bnMoveRight->click();
  EXPECT_EQ(Strip(), ".<Extension>[<Source file name> ]");
  EXPECT_EQ(Items()[2].transform.Replace1, "a");
  Press(Chips(), Qt::Key_Left);
  EXPECT_EQ(Pane(), "pbExt");
}

TEST_F(ConstructorEditorTest, ShowsTheFieldsOfTheMode) {
  const struct {
    std::string what;
    std::vector<std::string> fields;
    std::vector<std::string> shown;  ///< by mode
  } table[] = {
      {"Cut", {"N", "X", "Text"}, {"", "Text", "N", "N", "NX", "NX", "NX", "N", "N", "NX"}},
      {"Add", {"Text1", "Text2", "N"}, {"", "Text1", "Text1", "Text1Text2", "Text1N", "Text1N"}},
  };
  for (const std::string kind : {"File", "Ext", "ParentFolder"}) {
    for (const auto& row : table) {
      for (std::size_t mode = 0; mode < row.shown.size(); ++mode) {
        SCOPED_TRACE(row.what + kind + std::to_string(mode));
        Pick(("cmb" + row.what + kind).c_str())->setCurrentIndex(static_cast<int>(mode));
        std::string shown;
        for (const std::string& field : row.fields) {
          const std::string name = row.what + kind + field;
          const bool visible = !Field(("fd" + name).c_str())->isHidden();
          EXPECT_EQ(!Find<QLabel>(("lb" + name).c_str())->isHidden(), visible) << name;
          if (visible) shown += field;
        }
        EXPECT_EQ(shown, row.shown[mode]);
        if (!shown.starts_with("Text1")) continue;
        EXPECT_EQ(Find<QLabel>(("lbAdd" + kind + "Text1").c_str())->text().toStdString(),
                  mode == 3 ? "&Text1:" : "&Text:");
      }
    }
  }
}

TEST_F(ConstructorEditorTest, AsksForAPreviewWhereASelectionShowsOtherValues) {
  Choose(editor.strip->bnInsertRight, "<Source file name>");
  Pick("cmbCutFile")->setCurrentIndex(4);
  Field("fdCutFileX")->setText(QStringLiteral("3"));
  Leave(Field("fdCutFileX"));
  Find<QPushButton>("Command1")->click();
  EXPECT_EQ(Items()[1].transform.Cut, 0);
  EXPECT_EQ(Items()[1].transform.CutX, 3) << "kept for the day its mode returns";
  for (const auto& [index, asks] : {std::pair{0, true}, {2, false}, {0, false}, {1, true}}) {
    changes = 0;
    Select(index);
    EXPECT_EQ(changes > 0, asks) << index;
  }
}

TEST_F(ConstructorEditorTest, TakesANumberWhenItsFieldIsLeft) {
  QLineEdit* n = Field("fdCutFileN");
  n->clear();
  Type(n, QStringLiteral("0x0-7 "));
  EXPECT_EQ(n->text(), QStringLiteral("007"));
  EXPECT_EQ(Items()[0].transform.CutN, 0) << "not at every key";
  Leave(n, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(Items()[0].transform.CutN, 0) << "another window only borrows the focus";
  Leave(n);
  EXPECT_EQ(Items()[0].transform.CutN, 7);
  EXPECT_EQ(n->text(), QStringLiteral("7"));
  n->clear();
  editor.CommitFocusedField();
  EXPECT_EQ(Items()[0].transform.CutN, 0);
  EXPECT_EQ(n->text(), QStringLiteral("0"));
}

TEST_F(ConstructorEditorTest, TakesDigitsOnlyHoweverTheyCome) {
  QLineEdit* n = Field("fdCutFileN");
  const std::function<void(const QString&)> ways[] = {
      [n](const QString& text) { n->insert(text); },  // as paste and drop do
      [n](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(n, &event);
      },
      [n](const QString& text) {  // as the accessibility bus does
        QAccessible::queryAccessibleInterface(n)->editableTextInterface()->replaceText(0, 2, text);
      },
  };
  for (const auto& way : ways) {
    for (const char* put_in : {"7", " 7\n", "+7", "-5", "1,000", "5 files", "1E2"}) {
      n->setText(QStringLiteral("12"));
      n->selectAll();
      way(QLatin1String(put_in));
      Press(n, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
      EXPECT_EQ(Items()[0].transform.CutN, std::strchr(put_in, '7') != nullptr ? 7 : 12) << put_in;
      EXPECT_EQ(n->text(), QString::number(Items()[0].transform.CutN));
    }
  }
}

TEST_F(ConstructorEditorTest, GivesAnUnfinishedNumberToTheElementItWasTypedFor) {
  Choose(editor.strip->bnInsertRight, "<Source file name>");
  const struct {
    int at;
    std::function<void()> act;
    std::size_t now_at;
  } table[] = {
      {1, [&] { Select(0); }, 1},
      {1, [&] { editor.strip->bnMoveLeft->click(); }, 0},
      {0, [&] { Choose(editor.strip->vbInsertLeft, "<Source file name>"); }, 1},
  };
  for (const auto& row : table) {
    const int number = 10 + static_cast<int>(&row - table);
    Select(row.at);
    Field("fdCutFileN")->setText(QString::number(number));
    row.act();
    Leave(Field("fdCutFileN"));
    EXPECT_EQ(Items()[row.now_at].transform.CutN, number);
    EXPECT_NE(Items()[1 - row.now_at].transform.CutN, number);
  }
}

TEST_F(ConstructorEditorTest, ReportsANumberBeyond32BitsAndKeepsTheElements) {
  KeptReports kept;
  Items()[0].transform.CutN = 5;
  QLineEdit* n = Field("fdCutFileN");
  n->setText(QStringLiteral("99999999999999999999"));
  Leave(n);
  ASSERT_EQ(kept.reports.size(), 1u);
  EXPECT_NE(kept.reports[0].find("Form1.fdCutFileN_Validate(Cancel=False)"), std::string::npos);
  EXPECT_EQ(kept.reports[0].rfind("Overflow", 0), 0u);
  EXPECT_EQ(Items()[0].transform.CutN, 5);
  EXPECT_EQ(n->text(), QStringLiteral("1E+20"));
  editor.CommitFocusedField();
  EXPECT_EQ(kept.reports.size(), 1u) << "told once for what was typed";
  Press(n, Qt::Key_Backspace);
  Leave(n);
  EXPECT_EQ(Items()[0].transform.CutN, 100) << "the form that it was given can be edited";
}

TEST_F(ConstructorEditorTest, TellsEachTimeOfARefusedNumberThatIsSeen) {
  const KeptReports kept;
  const auto refuse = [this](const char* field) {
    Field(field)->setText(QStringLiteral("2147483648"));
    Leave(Field(field));
  };
  Pick("cmbCutFile")->setCurrentIndex(4);
  refuse("fdCutFileX");
  Find<QTabWidget>("TabControl1")->setCurrentIndex(1);
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_EQ(fakes.prompts.told,
            std::vector<std::string>(2,
                                     "The number “K” on the page “Remove” is too "
                                     "large.\nThe largest that can be used is "
                                     "2147483647."));
  EXPECT_EQ(Find<QTabWidget>("TabControl1")->currentIndex(), 0) << "the field comes into view";
  Pick("cmbCutFile")->setCurrentIndex(2);
  EXPECT_FALSE(editor.TellRefusedNumber()) << "its mode is off";
  Pick("cmbCutFile")->setCurrentIndex(4);
  Choose(editor.strip->bnInsertRight, "<Counter>");
  EXPECT_FALSE(editor.TellRefusedNumber()) << "another element is shown";
  refuse("fdStartValue");
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_EQ(fakes.prompts.told.back().find("The number “Start with” in “Counter options” is"), 0u);
  Select(0);
  EXPECT_EQ(Field("fdCutFileX")->text(), QStringLiteral("0"));
  EXPECT_FALSE(editor.TellRefusedNumber());
}

TEST_F(ConstructorEditorTest, RefusesTypedForbiddenCharactersWhereTextGoesIntoNames) {
  const std::pair<const char*, bool> table[] = {
      {"fdReplace1", false},
      {"fdCutFileText", false},
      {"fdReplace2", true},
      {"fdAddFileText1", true},
      {"fdAddFileText2", true},
      {"fdReplaceExt1", false},
      {"fdAddParentFolderText1", true},
      {"fdDateSeparator", true},
      {"fdTDateSeparator", true},
  };
  for (const auto& [name, filtered] : table) {
    SCOPED_TRACE(name);
    QLineEdit* field = Field(name);
    field->clear();
    fakes.prompts.told.clear();
    Type(field, QStringLiteral("a\\/:*?\"<>|b"));
    EXPECT_EQ(fakes.prompts.told.size(), filtered ? 9u : 0u);
    EXPECT_EQ(field->text(), filtered ? QStringLiteral("ab") : QStringLiteral("a\\/:*?\"<>|b"));
    fakes.prompts.told.clear();
    field->insert(QStringLiteral("c/d"));  // as a paste does
    EXPECT_TRUE(field->text().endsWith(QStringLiteral("c/d")));
    EXPECT_TRUE(fakes.prompts.told.empty());
  }
  Type(Field("fdReplace2"), QStringLiteral("/"));
  EXPECT_EQ(fakes.prompts.told,
            std::vector<std::string>{"A filename cannot contain any of the following characters:\n"
                                     "\\ / : * ? \" < > |"});
  EXPECT_EQ(fakes.prompts.icons.find('x'), std::string::npos);
}

TEST_F(ConstructorEditorTest, ShowsEachDateItsOwnPartsFormatAndSample) {
  const struct {
    const char* command;
    std::string combo;
    const char* separator;
    const char* sample;
  } table[] = {
      {"<File date>", "cmbDate", "fdDateSeparator", "lbDateSample"},
      {"<Today's date>", "cmbTDate", "fdTDateSeparator", "lbTDateSample"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.command);
    const auto box = [&](int i) { return Pick((row.combo + "(" + char('0' + i) + ")").c_str()); };
    const auto expect = [&](std::size_t item, const char* format, const QString& sample) {
      EXPECT_EQ(Items()[item].date.Format, format);
      EXPECT_EQ(Find<QLabel>(row.sample)->text(), QStringLiteral("Example: ") + sample);
    };
    Select(0);
    Choose(editor.strip->bnInsertRight, row.command);
    Choose(editor.strip->bnInsertRight, row.command);
    expect(2, "yyyy-mm-dd", QStringLiteral("2024-01-01"));
    box(0)->setCurrentIndex(2);
    box(1)->setCurrentIndex(6);
    Field(row.separator)->setText(QStringLiteral("\u5E74"));
    expect(2, "dd\u5E74mmmm\u5E74dd", QStringLiteral("01\u5E74Januar\u5E7401"));
    Select(1);
    EXPECT_EQ(box(0)->currentIndex(), 8);
    expect(1, "yyyy-mm-dd", QStringLiteral("2024-01-01"));
    for (int i = 0; i < 3; ++i) box(i)->setCurrentIndex(0);
    expect(1, "", QString());
    Select(2);
    expect(2, "dd\u5E74mmmm\u5E74dd", QStringLiteral("01\u5E74Januar\u5E7401"));
  }
}

TEST_F(ConstructorEditorTest, ShowsEachCounterItsOwnValues) {
  const auto sample = [this] { return Find<QLabel>("lbRangeSample")->text().toStdString(); };
  Choose(editor.strip->bnInsertRight, "<Counter>");
  EXPECT_EQ(Items()[1].counter.Format, "0000");
  Field("fdStartValue")->setText(QStringLiteral("12"));
  EXPECT_EQ(sample(), "Example: 0012");
  EXPECT_EQ(Items()[1].counter.Start, 1);
  Choose(editor.strip->bnInsertRight, "<Counter>");
  EXPECT_EQ(Items()[1].counter.Start, 12);
  Field("fdStartValue")->clear();
  EXPECT_EQ(sample(), "Example: ");
  Pick("cmbRange")->setCurrentIndex(9);
  Find<QCheckBox>("chResetCounter")->setChecked(false);
  Select(1);
  EXPECT_EQ(sample(), "Example: 0012");
  EXPECT_TRUE(Find<QCheckBox>("chResetCounter")->isChecked());
  EXPECT_EQ(Items()[2].counter.Start, 0);
  EXPECT_EQ(Items()[2].counter.Format, "0000000000");
  EXPECT_EQ(Items()[2].counter.Reset, 0);
}

TEST_F(ConstructorEditorTest, AsksForAPreviewAndKeepsEachOptionInItsElement) {
  bool is_first = true;
  on_change = [&] { is_first = is_first && Items()[0].transform.Replace1.empty(); };
  Field("fdReplace1")->insert(QStringLiteral("9"));
  EXPECT_TRUE(is_first) << "the mark comes before all else";
  int options = 0;
  for (const char* kind : {"<Source file name>", "<Extension>", "<Parent folder name>",
                           "<File date>", "<Today's date>", "<Counter>"}) {
    SCOPED_TRACE(kind);
    Select(0);
    Choose(editor.strip->vbInsertLeft, kind);
    QWidget* pane = Find<QWidget>(Pane().c_str());
    const auto values = [pane] {
      QStringList all;
      for (auto* combo : pane->findChildren<QComboBox*>()) all += combo->currentText();
      for (auto* field : pane->findChildren<QLineEdit*>()) all += field->text();
      for (auto* box : pane->findChildren<QCheckBox*>()) all += QString::number(box->isChecked());
      for (auto* tabs : pane->findChildren<QTabWidget*>()) {
        all += QString::number(tabs->currentIndex());
      }
      return all;
    };
    int number = 0;
    for (QWidget* part : pane->findChildren<QWidget*>()) {
      changes = 0;
      if (auto* combo = qobject_cast<QComboBox*>(part)) {
        combo->setCurrentIndex((combo->currentIndex() + 1 + number++ % 2) % combo->count());
      } else if (auto* field = qobject_cast<QLineEdit*>(part)) {
        field->setText(QString::number(50 + ++number));
      } else if (auto* box = qobject_cast<QCheckBox*>(part)) {
        box->toggle();
      } else if (auto* tabs = qobject_cast<QTabWidget*>(part)) {
        tabs->setCurrentIndex(2);
        EXPECT_EQ(changes, 0) << "which page is shown changes no name";
        continue;
      } else {
        continue;
      }
      EXPECT_EQ(changes, 1) << part->objectName().toStdString();
      ++options;
    }
    const QStringList set = values();
    Choose(editor.strip->vbInsertLeft, kind);
    EXPECT_NE(values(), set);
    Select(1);
    EXPECT_EQ(values(), set);
  }
  EXPECT_EQ(options, 3 * (3 + 8) + 2 * (3 + 1) + 3);
}

TEST_F(ConstructorEditorTest, HoldsPastedTextAsItShowsIt) {
  const QString pasted = QStringLiteral("a\r\nb\tc\u2028/d\U0001F1E9\U0001F1EA");
  const std::string whole = text::FromQt(pasted);
  Field("fdAddFileText1")->insert(pasted);
  EXPECT_EQ(Items()[0].transform.AddText1, "a  b\tc /d\U0001F1E9\U0001F1EA");
  Field("fdReplace1")->insert(pasted);
  EXPECT_EQ(Items()[0].transform.Replace1, whole) << "names may hold what is looked for";
  Field("fdReplace2")->insert(QString(10'000, u'x'));
  EXPECT_EQ(Items()[0].transform.Replace2, std::string(10'000, 'x'));
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
  const ConstructorEditor other(constructor, services);
  EXPECT_EQ(editor.minimumSizeHint().width(), narrow);
  EXPECT_EQ(other.minimumSizeHint().width(), narrow);
  const ChipBar* chips = other.strip->tabConstructor;
  EXPECT_LT(chips->tabRect(0).width(), 300);
  EXPECT_LT(chips->tabToolTip(0).size(), 1'000);
  EXPECT_EQ(chips->tabText(1), QStringLiteral("R&&D \uFFFD"));
}

TEST_F(ConstructorEditorTest, MarksThePagesThatChangeSomething) {
  const auto type = [this](const char* field, const char* text) {
    Field(field)->setText(QLatin1String(text));
    Leave(Field(field));
  };
  const struct {
    std::function<void()> act;
    const char* marked;
  } table[] = {
      {[] {}, "---"},
      {[&] { Pick("cmbCutFile")->setCurrentIndex(2); }, "---"},  // N is 0
      {[&] { type("fdCutFileN", "3"); }, "x--"},
      {[&] { type("fdReplace2", "new"); }, "x--"},  // nothing is looked for
      {[&] { type("fdReplace1", "old"); }, "xx-"},
      {[&] { Pick("cmbAddFile")->setCurrentIndex(3); }, "xx-"},
      {[&] { type("fdAddFileText2", "end"); }, "xxx"},
      {[&] { Pick("cmbAddFile")->setCurrentIndex(2); }, "xx-"},
      {[&] { Find<QPushButton>("Command1")->click(); }, "-x-"},
      {[&] { Choose(editor.strip->vbInsertLeft, "<Source file name>"); }, "---"},
      {[&] { Select(1); }, "-x-"},
  };
  for (const auto& row : table) {
    row.act();
    std::string marked;
    for (int page = 0; page < 3; ++page) {
      const QString tip = Find<QTabWidget>("TabControl1")->tabToolTip(page);
      marked += tip.endsWith(QStringLiteral("(in use)")) ? 'x' : '-';
    }
    EXPECT_EQ(marked, row.marked) << &row - table;
  }
}

TEST_F(ConstructorEditorTest, OpensItsMenusByKeys) {
  editor.show();
  for (const auto& [button, modifiers] :
       {std::pair(editor.strip->bnInsertRight, Qt::KeyboardModifiers()),
        {editor.strip->vbInsertLeft, Qt::ShiftModifier}}) {
    int opened = 0;
    const QObject this_round;
    QMenu* menu = button->menu();
    QObject::connect(menu, &QMenu::aboutToShow, &this_round, [menu, &opened] {
      ++opened;
      QTimer::singleShot(0, menu, &QMenu::hide);
    });
    Press(Chips(), Qt::Key_Insert, modifiers);
    EXPECT_EQ(opened, 1);
  }
}

TEST_F(ConstructorEditorTest, ScrollsTheSelectedChipWhollyIntoView) {
  editor.resize(479, 400);
  editor.show();
  const auto in_view = [&] {
    const QRect chip = Chips()->ChipRect(Chips()->currentIndex()).translated(Chips()->pos());
    return Chips()->parentWidget()->rect().contains(chip);
  };
  auto* left = Find<QToolButton>("bnScrollLeft");
  EXPECT_FALSE(left->isVisible());
  for (int i = 0; i < 5; ++i) {
    Choose(editor.strip->bnInsertRight, "<Parent folder name>");
    EXPECT_TRUE(in_view()) << i;
  }
  Select(Chips()->count() - 1);
  EXPECT_TRUE(in_view());
  EXPECT_FALSE(Find<QToolButton>("bnScrollRight")->isEnabled());
  for (int i = 0; i < Chips()->count(); ++i) left->click();
  EXPECT_EQ(Chips()->x(), 0);
  EXPECT_FALSE(left->isEnabled());
  for (int i = 0; i < 6; ++i) editor.strip->bnDeletePattern->click();
  EXPECT_FALSE(left->isVisible());
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
