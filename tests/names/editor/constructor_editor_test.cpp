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
#include <QStackedWidget>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QVariant>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "names/editor/chip_bar.h"
#include "names/editor/constructor_strip.h"
#include "names/editor/custom_text_dialog.h"
#include "platform/qt/text_qt.h"
#include "support/failure_report.h"
#include "support/fake_services.h"
#include "support/keys.h"

namespace {

class ConstructorEditorTest : public testing::Test {
 protected:
  ConstructorEditorTest() {
    QObject::connect(&editor, &ConstructorEditor::optionChanged, [this] {
      ++changes;
      if (on_change) on_change();
    });
    QObject::connect(&editor, &ConstructorEditor::commandPicked, [this](int id) {
      picked = id;
      editor.Execute(id);
    });
  }

  std::vector<ConstrItem>& Items() { return constructor.ArrConstr; }
  TransformOptions& First() { return Items()[0].transform; }
  ChipBar* Chips() { return strip->tabConstructor; }
  void Select(int index) { Chips()->setCurrentIndex(index); }

  template <class T>
  T* Find(const std::string& name) {
    T* found = editor.findChild<T*>(text::ToQt(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QLineEdit* Field(const std::string& name) { return Find<QLineEdit>(name); }
  QComboBox* Pick(const std::string& name) { return Find<QComboBox>(name); }
  void Enter(const char* field, const char* text) {
    Field(field)->setText(QLatin1String(text));
    Leave(Field(field));
  }

  void Choose(QPushButton* button, const std::string& caption) {
    for (QAction* action : button->menu()->actions()) {
      if (action->text() == text::ToQt(caption)) return action->trigger();
    }
    FAIL() << caption;
  }
  void InsertLeft(const char* caption) { Choose(strip->vbInsertLeft, caption); }
  void InsertRight(const char* caption) { Choose(strip->bnInsertRight, caption); }

  /// The elements as the strip shows them, the selected one in brackets, and the option pane that
  /// shows; fails when strip and model differ.
  std::string Seen() {
    std::string seen;
    EXPECT_EQ(static_cast<std::size_t>(Chips()->count()), Items().size());
    for (int i = 0; i < Chips()->count(); ++i) {
      const ConstrItem& item = Items().at(static_cast<std::size_t>(i));
      const std::string text = text::FromQt(Chips()->tabText(i));
      EXPECT_EQ(Chips()->tabData(i).toInt(), item.ItemType);
      EXPECT_EQ(item.ItemText, item.ItemType == kText ? text : "");
      seen += i == Chips()->currentIndex() ? '[' + text + ']' : text;
    }
    return seen + text::FromQt(Pane()->objectName());
  }
  QWidget* Pane() {
    auto* panes = editor.findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return panes->currentWidget();
  }

  Constructor constructor;
  FakeServices fakes;
  std::vector<std::string>& told = fakes.prompts.told;
  ConstructorEditor editor{constructor, fakes.services};
  ConstructorStrip* strip = editor.strip;
  int changes = 0;
  int picked = 0;
  std::function<void()> on_change;
};

TEST_F(ConstructorEditorTest, InsertsBesideTheSelectedElementByTheNumberOfTheCommand) {
  EXPECT_EQ(Seen(), "[<Source file name> ].<Extension>pbFileName");
  const struct {
    std::string caption;
    int left, right;
    std::string chip, pane;
  } table[] = {
      {"<Source file name>", 10, 22, "<Source file name>", "pbFileName"},
      {"<Extension>", 11, 1, "<Extension>", "pbExt"},
      {"<Counter>", 15, 5, "<Counter>", "pbCounter"},
      {"<File date>", 13, 3, "<File date>", "pbFileDate"},
      {"<Today's date>", 14, 4, "<Today's date>", "pbTodayDate"},
      {"<Parent folder name>", 12, 2, "<Parent folder name>", "pbParentFolderName"},
      {". (dot)", 16, 6, ".", "pbDot"},
      {"- (dash)", 17, 7, "-", "pbDot"},
      {"_ (underscore)", 18, 8, "_", "pbDot"},
      {"  (space)", 19, 9, " ", "pbDot"},
      {"Custom text", 21, 20, "own", "pbDot"},
      {"Custom text", 21, 20, "", ""},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.caption);
    for (const bool left : {true, false}) {
      Select(1);
      changes = 0;
      if (row.caption == "Custom text") {
        QTimer::singleShot(0, [&row] {
          auto* dialog = qobject_cast<Form5*>(QApplication::activeModalWidget());
          dialog->fdText->setText(text::ToQt(row.chip));
          (row.chip.empty() ? dialog->bnCancel : dialog->bnOK)->click();
        });
      }
      Choose(left ? strip->vbInsertLeft : strip->bnInsertRight, row.caption);
      EXPECT_EQ(picked, left ? row.left : row.right);
      EXPECT_EQ(changes > 0, !row.chip.empty());
      if (row.chip.empty()) continue;
      const std::string both = left ? '[' + row.chip + "]." : ".[" + row.chip + ']';
      EXPECT_EQ(Seen(), "<Source file name> " + both + "<Extension>" + row.pane);
      strip->bnDeletePattern->click();
    }
  }
  for (const int id : {-1, 0, 23, 99, 100, 101}) editor.Execute(id);
  EXPECT_EQ(Chips()->count(), 3);
}

TEST_F(ConstructorEditorTest, DeletesDownToNothingAndBeginsAnew) {
  Select(1);
  Press(Chips(), Qt::Key_Delete);
  EXPECT_EQ(Seen(), "<Source file name> [<Extension>]pbExt");
  strip->bnDeletePattern->click();
  EXPECT_EQ(Seen(), "[<Source file name> ]pbFileName") << "the left one when none stands right";
  strip->bnDeletePattern->click();
  EXPECT_EQ(Seen(), "pbDot");
  EXPECT_GT(std::exchange(changes, 0), 0);
  strip->bnDeletePattern->click();
  strip->bnMoveLeft->click();
  EXPECT_EQ(changes, 0) << "nothing to delete or move";
  for (QPushButton* button : {strip->vbInsertLeft, strip->bnInsertRight}) {
    Choose(button, "<File date>");
    EXPECT_EQ(Seen(), "[<File date>]pbFileDate");
    strip->bnDeletePattern->click();
  }
}

TEST_F(ConstructorEditorTest, MovesWholeElementsAndAsksForAPreviewAtTheEdgeToo) {
  Field("fdReplace1")->insert(QStringLiteral("a"));
  changes = 0;
  strip->bnMoveLeft->click();
  EXPECT_EQ(Seen(), "[<Source file name> ].<Extension>pbFileName");
  EXPECT_EQ(changes, 1);
  Press(Chips(), Qt::Key_Right, Qt::ControlModifier);
  for (int i = 0; i < 2; ++i) strip->bnMoveRight->click();
  EXPECT_EQ(Items()[2].transform.Replace1, "a");
  Press(Chips(), Qt::Key_Left);
  EXPECT_EQ(Seen(), ".[<Extension>]<Source file name> pbExt");
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
        Pick("cmb" + row.what + kind)->setCurrentIndex(static_cast<int>(mode));
        std::string shown;
        for (const std::string& field : row.fields) {
          const std::string name = row.what + kind + field;
          const bool visible = !Field("fd" + name)->isHidden();
          EXPECT_EQ(!Find<QLabel>("lb" + name)->isHidden(), visible) << name;
          if (visible) shown += field;
        }
        EXPECT_EQ(shown, row.shown[mode]);
        if (!shown.starts_with("Text1")) continue;
        EXPECT_EQ(Find<QLabel>("lbAdd" + kind + "Text1")->text().toStdString(),
                  mode == 3 ? "&Text1:" : "&Text:");
      }
    }
  }
}

TEST_F(ConstructorEditorTest, TakesANumberWhenItsFieldIsLeft) {
  QLineEdit* n = Field("fdCutFileN");
  n->clear();
  Type(n, QStringLiteral("0x0-7 "));
  EXPECT_EQ(n->text(), QStringLiteral("007"));
  Leave(n, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(First().CutN, 0) << "not at every key, nor when another window borrows the focus";
  Leave(n);
  EXPECT_EQ(First().CutN, 7);
  EXPECT_EQ(n->text(), QStringLiteral("7"));
  n->clear();
  editor.CommitFocusedField();
  EXPECT_EQ(First().CutN, 0);
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
    for (const char* text : {"7", " 7\n", "+7", "-5", "1,000", "5 files", "1E2"}) {
      const QString put_in = QLatin1String(text);
      n->setText(QStringLiteral("12"));
      n->selectAll();
      way(put_in);
      Press(n, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
      EXPECT_EQ(First().CutN, put_in.contains(u'7') ? 7 : 12) << put_in.toStdString();
      EXPECT_EQ(n->text(), QString::number(First().CutN));
    }
  }
}

TEST_F(ConstructorEditorTest, GivesAnUnfinishedNumberToTheElementItWasTypedFor) {
  InsertRight("<Source file name>");
  const struct {
    int at;
    std::function<void()> act;
    std::size_t now_at;
  } table[] = {{1, [&] { Select(0); }, 1},
               {1, [&] { strip->bnMoveLeft->click(); }, 0},
               {0, [&] { InsertLeft("<Source file name>"); }, 1}};
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
  First().CutN = 5;
  QLineEdit* n = Field("fdCutFileN");
  const std::string report = FailureReport([&] { Enter("fdCutFileN", "99999999999999999999"); });
  EXPECT_NE(report.find("Form1.fdCutFileN_Validate(Cancel=False)"), std::string::npos);
  EXPECT_EQ(report.rfind("Overflow", 0), 0u);
  EXPECT_EQ(First().CutN, 5);
  EXPECT_EQ(n->text(), QStringLiteral("1E+20"));
  EXPECT_EQ(FailureReport([&] { editor.CommitFocusedField(); }), "") << "told once";
  Press(n, Qt::Key_Backspace);
  Leave(n);
  EXPECT_EQ(First().CutN, 100) << "the form that it was given can be edited";
}

TEST_F(ConstructorEditorTest, TellsEachTimeOfARefusedNumberThatIsSeen) {
  const auto refuse = [this](const char* field) {
    FailureReport([&] { Enter(field, "2147483648"); });
  };
  Pick("cmbCutFile")->setCurrentIndex(4);
  refuse("fdCutFileX");
  Find<QTabWidget>("TabControl1")->setCurrentIndex(1);
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_EQ(told, std::vector<std::string>(2,
                                           "The number “K” on the page “Remove” is too large.\n"
                                           "The largest that can be used is 2147483647."));
  EXPECT_EQ(Find<QTabWidget>("TabControl1")->currentIndex(), 0) << "the field comes into view";
  Pick("cmbCutFile")->setCurrentIndex(2);
  EXPECT_FALSE(editor.TellRefusedNumber()) << "its mode is off";
  Pick("cmbCutFile")->setCurrentIndex(4);
  InsertRight("<Counter>");
  EXPECT_FALSE(editor.TellRefusedNumber()) << "another element is shown";
  refuse("fdStartValue");
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_EQ(told.back().find("The number “Start with” in “Counter options” is"), 0u);
  Select(0);
  EXPECT_EQ(Field("fdCutFileX")->text(), QStringLiteral("0"));
  EXPECT_FALSE(editor.TellRefusedNumber());
}

TEST_F(ConstructorEditorTest, RefusesTypedForbiddenCharactersWhereTextGoesIntoNames) {
  const std::vector<std::string> nine(
      9, "A filename cannot contain any of the following characters:\n\\ / : * ? \" < > |");
  const QString typed = QStringLiteral("a\\/:*?\"<>|b");
  const auto expect = [&](const char* name, bool refuses) {
    SCOPED_TRACE(name);
    QLineEdit* field = Field(name);
    field->clear();
    told.clear();
    Type(field, typed);
    field->insert(QStringLiteral("c/d"));  // as a paste does
    EXPECT_EQ(field->text(), (refuses ? QStringLiteral("ab") : typed) + QStringLiteral("c/d"));
    EXPECT_EQ(told, refuses ? nine : std::vector<std::string>());
  };
  for (const char* name : {"fdReplace2", "fdAddFileText1", "fdAddFileText2", "fdDateSeparator",
                           "fdAddParentFolderText1", "fdTDateSeparator"}) {
    expect(name, true);
  }
  for (const char* name : {"fdReplace1", "fdCutFileText", "fdReplaceExt1"}) expect(name, false);
  EXPECT_EQ(fakes.prompts.icons.find('x'), std::string::npos);
}

TEST_F(ConstructorEditorTest, DerivesFormatAndSampleOfEachElement) {
  const auto expect = [&](int at, const std::string& label, const std::string& format,
                          const std::string& sample) {
    Select(at);
    const ConstrItem& item = Items()[static_cast<std::size_t>(at)];
    EXPECT_EQ(item.ItemType == kCounter ? item.counter.Format : item.date.Format, format);
    EXPECT_EQ(text::FromQt(Find<QLabel>(label)->text()), "Example: " + sample);
  };
  for (const std::string date : {"Date", "TDate"}) {
    const auto box = [&](int i) { return Pick("cmb" + date + '(' + std::to_string(i) + ')'); };
    Select(0);
    for (int i = 0; i < 2; ++i) InsertRight(date == "Date" ? "<File date>" : "<Today's date>");
    box(0)->setCurrentIndex(2);
    box(1)->setCurrentIndex(6);
    Field("fd" + date + "Separator")->setText(QStringLiteral("\u5E74"));
    expect(1, "lb" + date + "Sample", "yyyy-mm-dd", "2024-01-01");
    expect(2, "lb" + date + "Sample", "dd\u5E74mmmm\u5E74dd", "01\u5E74Januar\u5E7401");
    for (int i = 0; i < 3; ++i) box(i)->setCurrentIndex(0);
    expect(2, "lb" + date + "Sample", "", "");
  }
  for (int i = 0; i < 2; ++i) InsertRight("<Counter>");
  Pick("cmbRange")->setCurrentIndex(9);
  expect(3, "lbRangeSample", "0000", "0001");
  expect(4, "lbRangeSample", "0000000000", "0000000001");
  Field("fdStartValue")->setText(QStringLiteral("12"));
  expect(4, "lbRangeSample", "0000000000", "0000000012");
  Field("fdStartValue")->clear();
  expect(4, "lbRangeSample", "0000000000", "");
}

/// What the controls in `pane` hold, by name. With `changes`, which counts the edits, each first
/// gets another value, which is one edit; only which page is shown changes no name.
std::map<std::string, std::string> Values(const QWidget* pane, int* changes = nullptr) {
  std::map<std::string, std::string> all;
  const auto visit = [&](const auto* part, const auto& change, const auto& value, int edits = 1) {
    const std::string name = text::FromQt(part->objectName());
    if (changes != nullptr) {
      *changes = 0;
      change();
      EXPECT_EQ(*changes, edits) << name;
    }
    all[name] = QVariant(value()).toString().toStdString();
  };
  int number = 0;
  for (auto* box : pane->findChildren<QComboBox*>()) {
    const int other = (box->currentIndex() + 1 + number++ % 2) % box->count();
    visit(
        box, [&] { box->setCurrentIndex(other); }, [&] { return box->currentText(); });
  }
  for (auto* field : pane->findChildren<QLineEdit*>()) {
    const QString other = QString::number(50 + ++number);
    visit(
        field, [&] { field->setText(other); }, [&] { return field->text(); });
  }
  for (auto* box : pane->findChildren<QCheckBox*>()) {
    visit(
        box, [&] { box->toggle(); }, [&] { return box->isChecked(); });
  }
  for (auto* tabs : pane->findChildren<QTabWidget*>()) {
    visit(
        tabs, [&] { tabs->setCurrentIndex(2); }, [&] { return tabs->currentIndex(); }, 0);
  }
  return all;
}

TEST_F(ConstructorEditorTest, KeepsEachOptionInItsElementAndAsksForAPreviewWhereOthersShow) {
  bool is_first = true;
  on_change = [&] { is_first = is_first && First().Replace1.empty(); };
  Field("fdReplace1")->insert(QStringLiteral("9"));
  EXPECT_TRUE(is_first) << "the mark comes before all else";
  for (const ElementKind& kind : kElementKinds) {
    if (*kind.pane == '\0') continue;
    SCOPED_TRACE(kind.caption);
    Select(0);
    InsertLeft(kind.caption);
    const auto set = Values(Pane(), &changes);
    EXPECT_FALSE(set.empty());
    InsertLeft(kind.caption);
    for (const auto& [name, fresh] : Values(Pane())) EXPECT_NE(fresh, set.at(name)) << name;
    const int text = Chips()->count() - 2;
    for (const auto& [index, asks] : {std::pair{1, true}, {text, false}, {1, false}}) {
      changes = 0;
      Select(index);
      EXPECT_EQ(changes > 0, asks) << index;
    }
    EXPECT_EQ(Values(Pane()), set);
  }
}

TEST_F(ConstructorEditorTest, HoldsPastedTextAsItShowsIt) {
  const QString pasted = QStringLiteral("a\r\nb\tc\u2028/d\U0001F1E9\U0001F1EA");
  Field("fdAddFileText1")->insert(pasted);
  EXPECT_EQ(First().AddText1, "a  b\tc /d\U0001F1E9\U0001F1EA");
  Field("fdReplace1")->insert(pasted);
  EXPECT_EQ(First().Replace1, text::FromQt(pasted)) << "names may hold what is looked for";
  Field("fdReplace2")->insert(QString(10'000, u'x'));
  EXPECT_EQ(First().Replace2, std::string(10'000, 'x'));
}

TEST_F(ConstructorEditorTest, AsksForNoMoreRoomForLongTexts) {
  const int narrow = editor.minimumSizeHint().width();
  InsertRight("<File date>");
  Field("fdDateSeparator")->insert(QString(10'000, u'm'));
  InsertRight("<Counter>");
  FailureReport([&] { Enter("fdStartValue", std::string(10'000, '9').c_str()); });
  constructor.InsertArrConstrItem(0, kText, std::string(10'000, 'x'));
  constructor.InsertArrConstrItem(1, kText, "R&D \xFF");
  const ConstructorEditor other(constructor, fakes.services);
  EXPECT_EQ(editor.minimumSizeHint().width(), narrow);
  EXPECT_EQ(other.minimumSizeHint().width(), narrow);
  const ChipBar* chips = other.strip->tabConstructor;
  EXPECT_LT(chips->tabRect(0).width(), 300);
  EXPECT_LT(chips->tabToolTip(0).size(), 1'000);
  EXPECT_EQ(chips->tabText(1), QStringLiteral("R&&D \uFFFD"));
}

TEST_F(ConstructorEditorTest, MarksThePagesThatChangeSomething) {
  const std::pair<std::function<void()>, const char*> table[] = {
      {[&] { Pick("cmbCutFile")->setCurrentIndex(2); }, "---"},  // N is 0
      {[&] { Enter("fdCutFileN", "3"); }, "x--"},
      {[&] { Enter("fdReplace1", "old"); }, "xx-"},
      {[&] { Pick("cmbAddFile")->setCurrentIndex(3); }, "xx-"},
      {[&] { Enter("fdAddFileText2", "end"); }, "xxx"},
      {[&] { Pick("cmbAddFile")->setCurrentIndex(2); }, "xx-"},
      {[&] { Find<QPushButton>("Command1")->click(); }, "-x-"},
      {[&] { InsertLeft("<Source file name>"); }, "---"},
      {[&] { Select(1); }, "-x-"},
  };
  for (const auto& [act, expected] : table) {
    act();
    std::string marked;
    for (int page = 0; page < 3; ++page) {
      const QString tip = Find<QTabWidget>("TabControl1")->tabToolTip(page);
      marked += tip.endsWith(QStringLiteral("(in use)")) ? 'x' : '-';
    }
    EXPECT_EQ(marked, expected);
  }
  EXPECT_EQ(Items()[1].transform.CutN, 3) << "kept for the day its mode returns";
}

TEST_F(ConstructorEditorTest, OpensItsMenusByKeys) {
  editor.show();
  for (const auto& [button, modifiers] : {std::pair(strip->bnInsertRight, Qt::KeyboardModifiers()),
                                          {strip->vbInsertLeft, Qt::ShiftModifier}}) {
    bool opened = false;
    const QObject this_round;
    QMenu* menu = button->menu();
    QObject::connect(menu, &QMenu::aboutToShow, &this_round, [menu, &opened] {
      opened = true;
      QTimer::singleShot(0, menu, &QMenu::hide);
    });
    Press(Chips(), Qt::Key_Insert, modifiers);
    EXPECT_TRUE(opened);
  }
}

TEST_F(ConstructorEditorTest, ScrollsTheSelectedChipWhollyIntoView) {
  editor.resize(479, 400);
  editor.show();
  auto* left = Find<QToolButton>("bnScrollLeft");
  EXPECT_FALSE(left->isVisible());
  for (int i = 0; i < 6; ++i) {
    i < 5 ? InsertRight("<Parent folder name>") : Select(Chips()->count() - 1);
    const QRect chip = Chips()->ChipRect(Chips()->currentIndex()).translated(Chips()->pos());
    EXPECT_TRUE(Chips()->parentWidget()->rect().contains(chip)) << i;
  }
  EXPECT_FALSE(Find<QToolButton>("bnScrollRight")->isEnabled());
  for (int i = 0; i < Chips()->count(); ++i) left->click();
  EXPECT_EQ(Chips()->x(), 0);
  EXPECT_FALSE(left->isEnabled());
  for (int i = 0; i < 6; ++i) strip->bnDeletePattern->click();
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
  EXPECT_EQ(strip->Selected(), 2);
  EXPECT_TRUE(last->state().selected);
  while (Chips()->count() > 0) strip->bnDeletePattern->click();
  EXPECT_FALSE(last->isValid());
  EXPECT_EQ(bar->role(), QAccessible::PageTabList);
  EXPECT_EQ(bar->text(QAccessible::Name), QStringLiteral("New file name constructor"));
  EXPECT_EQ(bar->text(QAccessible::Description), QStringLiteral("told"));
}

TEST_F(ConstructorEditorTest, EveryControlHasANameOfItsOwn) {
  std::set<QString> names;
  for (const QWidget* widget : editor.findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith(u"qt_") || name.startsWith(u"Scroll")) continue;
    EXPECT_TRUE(names.insert(name).second) << name.toStdString();
  }
}

}  // namespace
