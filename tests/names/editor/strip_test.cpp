#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <functional>
#include <numeric>

#include "names/editor/chip_bar.h"
#include "names/editor/constructor_editor.h"
#include "names/editor/constructor_strip.h"
#include "names/editor/custom_text_dialog.h"
#include "platform/qt/text_qt.h"
#include "support/fake_services.h"
#include "support/keys.h"

namespace {

class StripTest : public testing::Test {
 protected:
  StripTest() {
    QObject::connect(&editor, &ConstructorEditor::optionChanged, [this] { ++changes; });
    QObject::connect(&editor, &ConstructorEditor::commandPicked, &editor,
                     &ConstructorEditor::Execute);
    editor.show();
    QApplication::processEvents();
  }
  std::string Elements() {
    const auto& items = constructor.ArrConstr;
    return std::accumulate(items.begin(), items.end(), std::string(),
                           [](auto all, const auto& item) { return all + item.ItemText; });
  }
  /// Does `act`; the elements then, and behind a blank the selected one, are `expected`, and a
  /// preview is asked for if they changed.
  void Expect(const std::string& expected, const std::function<void()>& act) {
    const std::string before = Elements();
    changes = 0;
    act();
    EXPECT_EQ(Elements() + ' ' + text::FromQt(chips->PlainText(chips->currentIndex())), expected);
    EXPECT_EQ(changes > 0, Elements() != before) << expected;
  }
  void Mouse(QEvent::Type type, const QPoint& at, Qt::MouseButtons held = Qt::LeftButton) {
    QMouseEvent event(type, at, chips->mapToGlobal(at), Qt::LeftButton, held, {});
    QApplication::sendEvent(chips, &event);
  }
  void PickInMenu(int entry, int sub_entry) {
    const QPoint at = chips->ChipRect(1).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, chips->mapToGlobal(at));
    QApplication::sendEvent(chips, &event);
    auto* menu = editor.findChild<QMenu*>(QStringLiteral("mnElement"));
    QAction* action = menu->actions().at(entry);
    (action->menu() != nullptr ? action->menu()->actions().at(sub_entry) : action)->trigger();
    menu->close();
  }

  Constructor constructor = [] {
    Constructor made;
    made.ArrConstr = {{.ItemText = "a"}, {.ItemText = "b"}, {.ItemText = "c"}};
    return made;
  }();
  FakeServices fakes;
  ConstructorEditor editor{constructor, fakes.services};
  ChipBar* chips = editor.strip->tabConstructor;
  int changes = 0;
};

TEST_F(StripTest, MovesADraggedElementWhenItIsDroppedUnlessEscOrItsOwnPlace) {
  const std::tuple<int, int, int, const char*> table[] = {
      {0, 2, 0, "bca a"}, {2, 0, 0, "abc a"}, {1, 2, Qt::Key_Escape, "abc b"},
      {2, 2, 0, "abc c"}, {1, 0, 0, "bac b"}, {0, 2, Qt::Key_Delete, "acb b"}};
  for (const auto& [from, to, key, expected] : table) {
    const QPoint beyond = chips->ChipRect(to).center() + QPoint(from < to ? 2 : -2, 30);
    Expect(expected, [&, from = from, key = key] {
      Mouse(QEvent::MouseButtonPress, chips->ChipRect(from).center());
      Mouse(QEvent::MouseMove, beyond);
      Press(chips, key);
      Mouse(QEvent::MouseButtonRelease, {}, Qt::NoButton);
    });
  }
}

TEST_F(StripTest, DoesItsCommandsFromAMenuAndOpensATextByEnterOrDoubleClick) {
  const auto enter = [&](const char* text) {
    QTimer::singleShot(0, &editor, [this, text] {
      auto* dialog = qobject_cast<Form5*>(QApplication::activeModalWidget());
      dialog->fdText->insert(QLatin1String(text));  // over what is selected
      *text != 0 ? Press(dialog->fdText, Qt::Key_Return) : dialog->reject();
    });
  };
  Expect("abc c", [&] { Press(chips, Qt::Key_End); });
  Expect("a.bc .", [&] { PickInMenu(0, 7); });
  Expect("a.-bc -", [&] { PickInMenu(1, 8); });
  Expect(".a-bc .", [&] { PickInMenu(3, 0); });
  Expect(".-abc a", [&] { PickInMenu(4, 0); });
  Expect(".abc a", [&] { PickInMenu(6, 0); });
  Expect(".xbc x", [&] { enter("x"), Press(chips, Qt::Key_Enter, Qt::KeypadModifier); });
  Expect(".xbc .", [&] { Press(chips, Qt::Key_Home), enter(""), Press(chips, Qt::Key_Return); });
  for ([[maybe_unused]] const bool again : {false, true}) {
    Expect("yxbc y", [&] { enter("y"), Mouse(QEvent::MouseButtonDblClick, {5, 5}); });
  }
}

}  // namespace
