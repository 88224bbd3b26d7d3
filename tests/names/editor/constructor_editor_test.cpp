#include "names/editor/constructor_editor.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTimer>
#include <QVariant>
#include <functional>
#include <map>

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
    QObject::connect(&editor, &ConstructorEditor::optionChanged, [this] { ++changes; });
    QObject::connect(&editor, &ConstructorEditor::commandPicked, [this](int id) {
      picked = id;
      editor.Execute(id);
    });
  }

  std::vector<ConstrItem>& Items() { return constructor.ArrConstr; }
  TransformOptions& First() { return Items()[0].transform; }
  void Select(int index) { chips->setCurrentIndex(index); }
  void Delete() { strip->bnDeletePattern->click(); }

  template <class T>
  T* Find(const std::string& name) {
    T* found = editor.findChild<T*>(text::ToQt(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QLineEdit* Field(const std::string& name) { return Find<QLineEdit>(name); }
  void Pick(const std::string& box, int index) { Find<QComboBox>(box)->setCurrentIndex(index); }
  void Pick(const std::string& box, const char* entry) {
    Find<QComboBox>(box)->setCurrentText(QLatin1String(entry));
  }
  std::string Enter(const char* field, const char* text) {
    Field(field)->setText(QLatin1String(text));
    return FailureReport([&] { Leave(Field(field)); });
  }

  void Insert(bool left, const std::string& caption) {
    for (QAction* action : (left ? strip->vbInsertLeft : strip->bnInsertRight)->menu()->actions()) {
      if (action->text() == text::ToQt(caption)) return action->trigger();
    }
    FAIL() << caption;
  }
  void InsertRight(const char* caption) { Insert(false, caption); }

  /// The texts, or the first letters of the other elements, as the strip shows them, the selected
  /// one in brackets, and the option pane that shows; fails when strip and model differ.
  std::string Seen() {
    std::string seen;
    EXPECT_EQ(static_cast<std::size_t>(chips->count()), Items().size());
    for (int i = 0; i < chips->count(); ++i) {
      const ConstrItem& item = Items().at(static_cast<std::size_t>(i));
      std::string text = text::FromQt(chips->tabText(i));
      EXPECT_EQ(chips->tabData(i).toInt(), item.ItemType);
      EXPECT_EQ(item.ItemText, item.ItemType == kText ? text : "");
      EXPECT_TRUE(text.starts_with(ElementCaption(item))) << text;
      if (item.ItemType != kText) text = text[1];
      seen += i == chips->currentIndex() ? '[' + text + ']' : text;
    }
    return seen + ' ' + text::FromQt(Pane()->objectName()).substr(2);
  }
  QWidget* Pane() {
    return editor.findChild<QStackedWidget*>({}, Qt::FindDirectChildrenOnly)->currentWidget();
  }

  Constructor constructor;
  FakeServices fakes;
  std::vector<std::string>& told = fakes.prompts.told;
  ConstructorEditor editor{constructor, fakes.services};
  ConstructorStrip* strip = editor.strip;
  ChipBar* chips = strip->tabConstructor;
  QLineEdit* n = Field("fdCutFileN");
  int changes = 0;
  int picked = 0;
};

TEST_F(ConstructorEditorTest, InsertsBesideTheSelectedElementByTheNumberOfTheCommand) {
  const auto insert = [&](bool left, const char* caption) {
    QTimer::singleShot(0, &editor, [&] {
      auto* dialog = qobject_cast<Form5*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      dialog->fdText->setText(QStringLiteral("own"));
      dialog->bnOK->click();
    });
    Select(1);
    Insert(left, caption);
    QCoreApplication::processEvents();
  };
  for (const ElementKind& kind : kElementKinds) {
    SCOPED_TRACE(kind.caption);
    const std::string text = kind.text != nullptr ? kind.text : "own";
    const std::string pane = kind.number == kText ? "Dot" : kind.pane + 2;
    const std::string chip = '[' + (kind.number == kText ? text : text + kind.caption[1]) + ']';
    for (const bool left : {true, false}) {
      insert(left, kind.caption);
      EXPECT_EQ(picked, left ? kind.insert_left : kind.insert_right);
      EXPECT_EQ(Seen(), "S" + (left ? chip + '.' : '.' + chip) + "E " + pane);
      Delete();
    }
  }
}

TEST_F(ConstructorEditorTest, MovesAndDeletesWholeElementsAndAsksForAPreviewAtTheEdgeToo) {
  Enter("fdReplace1", "a");
  const std::pair<std::function<void()>, const char*> table[] = {
      {[&] { strip->bnMoveLeft->click(); }, "[S].E FileName"},
      {[&] { Press(chips, Qt::Key_Right, Qt::ControlModifier); }, ".[S]E FileName"},
      {[&] { strip->bnMoveRight->click(); }, ".E[S] FileName"},
      {[&] { Press(chips, Qt::Key_Left), Press(chips, Qt::Key_Delete); }, ".[S] FileName"},
      {[&] { strip->bnMoveLeft->click(); }, "[S]. FileName"},
      {[&] { InsertRight("<File date>"); }, "S[F]. FileDate"},
      {[&] { Delete(); }, "S[.] Dot"},
      {[&] { Delete(); }, "[S] FileName"}};
  for (const auto& [act, seen] : table) {
    changes = 0;
    act();
    EXPECT_EQ(Seen(), seen);
    EXPECT_GT(changes, 0);
  }
  EXPECT_EQ(First().Replace1, "a");
  Delete();
  changes = 0;
  Delete();
  strip->bnMoveLeft->click();
  EXPECT_EQ(changes, 0) << "nothing to delete or move";
  EXPECT_EQ(Seen(), " Dot");
  InsertRight("<File date>");
  EXPECT_EQ(Seen(), "[F] FileDate");
}

TEST_F(ConstructorEditorTest, TakesANumberWhenItsFieldIsLeftAndReportsOneBeyond32Bits) {
  n->clear();
  Type(n, QStringLiteral("0x0-7 "));
  EXPECT_EQ(n->text(), QStringLiteral("007"));
  Leave(n, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(First().CutN, 0) << "not at every key, nor when another window borrows the focus";
  Leave(n);
  EXPECT_EQ(First().CutN, 7);
  n->setText(QStringLiteral("99999999999999999999"));
  const auto [report, slip] = ReportOf([&] { Leave(n); });
  EXPECT_EQ(slip,
            "The number “N” in “Source file name options” is too large. The largest that can "
            "be used is 2147483647.");
  EXPECT_NE(report.find("Form1.fdCutFileN_Validate(Cancel=False)"), std::string::npos);
  EXPECT_EQ(report.rfind("Overflow", 0), 0u);
  EXPECT_EQ(First().CutN, 7);
  EXPECT_EQ(n->text(), QStringLiteral("1E+20"));
  EXPECT_EQ(FailureReport([&] { editor.CommitFocusedField(); }), "") << "told once";
  n->clear();
  editor.CommitFocusedField();
  EXPECT_EQ(First().CutN, 0);
  EXPECT_EQ(n->text(), QStringLiteral("0"));
}

TEST_F(ConstructorEditorTest, TakesDigitsOnlyHoweverTheyCome) {
  for (const char* text : {"7", " 7\n", "+7", "-5", "1,000", "5 files", "1E2"}) {
    for (const bool by_paste : {true, false}) {  // else as the accessibility bus does
      const QString put_in = QLatin1String(text);
      n->setText(QStringLiteral("12"));
      n->selectAll();
      QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(n);
      by_paste ? n->insert(put_in) : seen->editableTextInterface()->replaceText(0, 2, put_in);
      Press(n, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
      EXPECT_EQ(First().CutN, put_in.contains(u'7') ? 7 : 12) << text;
      EXPECT_EQ(n->text(), QString::number(First().CutN));
    }
  }
}

TEST_F(ConstructorEditorTest, GivesAnUnfinishedNumberToTheElementItWasTypedFor) {
  InsertRight("<Source file name>");
  int number = 10;
  const auto expect = [&](int at, std::size_t now_at, const std::function<void()>& act) {
    Select(at);
    n->setText(QString::number(++number));
    act();
    Leave(n);
    EXPECT_EQ(Items()[now_at].transform.CutN, number);
    EXPECT_NE(Items()[1 - now_at].transform.CutN, number);
  };
  expect(1, 1, [&] { Select(0); });
  expect(1, 0, [&] { strip->bnMoveLeft->click(); });
  expect(0, 1, [&] { Insert(true, "<Source file name>"); });
}

TEST_F(ConstructorEditorTest, TellsEachTimeOfARefusedNumberThatIsSeen) {
  Pick("cmbCutFile", "Remove N characters after the first K");
  Enter("fdCutFileX", "2147483648");
  auto* pages = Find<QTabWidget>("TabControl1");
  pages->setCurrentIndex(1);
  for (const std::size_t times : {1u, 2u}) {
    EXPECT_TRUE(editor.TellRefusedNumber());
    EXPECT_EQ(told, std::vector<std::string>(times,
                                             "The number “K” on the page “Remove” is too large.\n"
                                             "The largest that can be used is 2147483647."));
  }
  EXPECT_EQ(pages->currentIndex(), 0) << "the field comes into view";
  Pick("cmbCutFile", "Remove N characters from the start");
  EXPECT_FALSE(editor.TellRefusedNumber()) << "its mode is off";
  Pick("cmbCutFile", "Remove N characters after the first K");
  InsertRight("<Counter>");
  EXPECT_FALSE(editor.TellRefusedNumber()) << "another element is shown";
  Enter("fdStartValue", "2147483648");
  EXPECT_TRUE(editor.TellRefusedNumber());
  EXPECT_EQ(told.back().find("The number “Start with” in “Counter options” is"), 0u);
}

TEST_F(ConstructorEditorTest, RefusesTypedForbiddenCharactersAndHoldsPastedTextAsItShowsIt) {
  const std::pair<const char*, bool> table[] = {
      {"fdReplace2", true},      {"fdAddFileText1", true},         {"fdAddFileText2", true},
      {"fdDateSeparator", true}, {"fdAddParentFolderText1", true}, {"fdTDateSeparator", true},
      {"fdReplace1", false},     {"fdCutFileText", false},         {"fdReplaceExt1", false}};
  for (const auto& [name, refuses] : table) {
    QLineEdit* field = Field(name);
    field->clear();
    told.clear();
    Type(field, QStringLiteral("a\\/:*?\"<>|b"));
    field->insert(QStringLiteral("c/d"));  // as a paste does
    EXPECT_EQ(field->text().toStdString(), refuses ? "abc/d" : "a\\/:*?\"<>|bc/d") << name;
    EXPECT_EQ(told.size(), refuses ? 9u : 0u) << name;
  }
  const QString pasted = QStringLiteral("a\r\nb\tc\u2028/d\U0001F1E9\U0001F1EA");
  for (const char* name : {"fdAddFileText1", "fdReplace1"}) {
    Field(name)->clear();
    Field(name)->insert(pasted);
  }
  EXPECT_EQ(First().AddText1, "a  b\tc /d\U0001F1E9\U0001F1EA");
  EXPECT_EQ(First().Replace1, text::FromQt(pasted)) << "names may hold what is looked for";
}

TEST_F(ConstructorEditorTest, DerivesFormatAndSampleOfEachElement) {
  std::string part;
  const auto expect = [&](int at, const std::string& format, const std::string& sample) {
    Select(at);
    const ConstrItem& item = Items()[static_cast<std::size_t>(at)];
    EXPECT_EQ(item.ItemType == kCounter ? item.counter.Format : item.date.Format, format);
    EXPECT_EQ(Find<QLabel>("lb" + part + "Sample")->text().toStdString(), "Example: " + sample);
  };
  for (const char* caption : {"<File date>", "<Today's date>"}) {
    Select(0);
    for (int i = 0; i < 2; ++i) InsertRight(caption);
    part = caption[1] == 'F' ? "Date" : "TDate";
    Pick("cmb" + part + "(0)", 2);
    Pick("cmb" + part + "(1)", 6);
    Field("fd" + part + "Separator")->setText(QStringLiteral("\u5E74"));
    expect(2, "dd\u5E74mmmm\u5E74dd", "01\u5E74Januar\u5E7401");
    expect(1, "yyyy-mm-dd", "2024-01-01");
  }
  InsertRight("<Counter>");
  part = "Range";
  Pick("cmbRange", 9);
  Field("fdStartValue")->setText(QStringLiteral("12"));
  expect(2, "0000000000", "0000000012");
}

/// What the controls in `pane` hold, by name. With `changes`, which counts the edits, each first
/// gets another value, which is one edit; only which page is shown changes no name.
std::map<std::string, std::string> Values(const QWidget* pane, int* changes = nullptr) {
  const std::tuple<const char*, const char*, int, int> table[] = {
      {"QTabWidget", "currentIndex", 3, 0},  // of kind, what it holds, how many values, edits
      {"QComboBox", "currentIndex", 4, 1},
      {"QCheckBox", "checked", 2, 1},
      {"QLineEdit", "text", 99, 1}};
  std::map<std::string, std::string> all;
  int number = 0;
  for (const auto& [kind, held, values, edits] : table) {
    for (QWidget* part : pane->findChildren<QWidget*>()) {
      if (!part->inherits(kind)) continue;
      const std::string name = text::FromQt(part->objectName());
      if (changes != nullptr) {
        *changes = 0;
        const int step = 1 + ++number % (values - 1);
        part->setProperty(held, (part->property(held).toInt() + step) % values);
        EXPECT_EQ(*changes, edits) << name;
      }
      all[name] = text::FromQt(part->property(held).toString());
    }
  }
  return all;
}

TEST_F(ConstructorEditorTest, KeepsEachOptionInItsElementAndAsksForAPreviewWhereOthersShow) {
  for (const ElementKind& kind : kElementKinds) {
    if (kind.number == kText) continue;
    SCOPED_TRACE(kind.caption);
    Select(0);
    Insert(true, kind.caption);
    const auto set = Values(Pane(), &changes);
    EXPECT_FALSE(set.empty());
    Insert(true, kind.caption);
    for (const auto& [name, fresh] : Values(Pane())) EXPECT_NE(fresh, set.at(name)) << name;
    const int text = chips->count() - 2;
    for (const auto& [index, asks] : {std::pair{1, true}, {text, false}, {1, false}}) {
      changes = 0;
      Select(index);
      EXPECT_EQ(changes > 0, asks) << index;
    }
    EXPECT_EQ(Values(Pane()), set);
  }
}

TEST_F(ConstructorEditorTest, AsksForNoMoreRoomForLongTexts) {
  constructor.InsertArrConstrItem(0, kText, std::string(10'000, 'x'));
  constructor.InsertArrConstrItem(1, kText, "R&D \xFF");
  const ConstructorEditor other(constructor, fakes.services);
  EXPECT_EQ(other.minimumSizeHint().width(), editor.minimumSizeHint().width());
  EXPECT_LT(other.strip->tabConstructor->tabRect(0).width(), 300);
  EXPECT_EQ(other.strip->tabConstructor->tabText(1), QStringLiteral("R&&D \uFFFD"));
}

TEST_F(ConstructorEditorTest, MarksThePagesThatChangeSomething) {
  const std::pair<std::function<void()>, const char*> table[] = {
      {[&] { Pick("cmbCutFile", "Remove N characters from the start"); }, "---"},  // N is 0
      {[&] { Enter("fdCutFileN", "3"); }, "x--"},
      {[&] { Enter("fdReplace1", "old"); }, "xx-"},
      {[&] { Pick("cmbAddFile", "Add Text1 to the left and Text2 to the right"); }, "xx-"},
      {[&] { Enter("fdAddFileText2", "end"); }, "xxx"},
      {[&] { Find<QPushButton>("Command1")->click(); }, "-xx"},
      {[&] { Insert(true, "<Source file name>"); }, "---"},
      {[&] { Select(1); }, "-xx"}};
  for (const auto& [act, expected] : table) {
    act();
    std::string marked;
    for (int page = 0; page < 3; ++page) {
      const QString tip = Find<QTabWidget>("TabControl1")->tabToolTip(page);
      marked += tip.endsWith(QStringLiteral("in use")) ? 'x' : '-';
    }
    EXPECT_EQ(marked, expected);
  }
  EXPECT_EQ(Items()[1].transform.CutN, 3) << "kept for the day its mode returns";
}

TEST_F(ConstructorEditorTest, TellsTheStripAndItsChipsToScreenReaders) {
  QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(chips);
  ASSERT_EQ(bar->childCount(), 3);
  QAccessibleInterface* last = bar->child(2);
  EXPECT_EQ(last->role(), QAccessible::PageTab);
  EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("<Extension>"));
  last->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(strip->Selected(), 2);
  EXPECT_TRUE(last->state().selected);
  while (chips->count() > 0) Delete();
  EXPECT_FALSE(last->isValid());
}

TEST(CustomTextDialog, AcceptsWhatANameCanHoldUnlessCancelled) {
  // What is typed, what it gives, and the beginning of the message; empty: none.
  const std::tuple<QString, std::string, std::string> table[] = {
      {QStringLiteral("summer"), "summer", ""},
      {QStringLiteral("   "), "   ", ""},
      {QString(), "", "The text field is empty."},
      {QStringLiteral("a:b"), "", "A filename cannot contain"}};
  for (const auto& [typed, text, told] : table) {
    SCOPED_TRACE(typed.toStdString());
    FakeServices fakes;
    for (const bool ok : {true, false}) {
      Form5 dialog(fakes.prompts, fakes.settings, nullptr);
      dialog.show();
      dialog.fdText->setText(typed);
      (ok ? dialog.bnOK : dialog.bnCancel)->click();
      EXPECT_EQ(dialog.Text(), ok ? text : "");
      EXPECT_EQ(dialog.isVisible(), ok && !told.empty());
      EXPECT_EQ(dialog.fdText->text(), typed);
    }
    ASSERT_EQ(fakes.prompts.told.size(), told.empty() ? 0u : 1u);
    for (const std::string& one : fakes.prompts.told) EXPECT_TRUE(one.starts_with(told));
  }
}

}  // namespace
