#include "look/shortcuts.h"

#include <QAction>
#include <QKeyEvent>
#include <QShortcut>
#include <QWidget>
#include <array>

namespace {

struct Row {
  Keys keys;
  const char* text;  ///< in QKeySequence's portable text, several parted by "; "
};

/// All keys of the program, one row each, in the order of `Keys`.
constexpr std::array kTable = {
    Row{Keys::kNone, ""},
    Row{Keys::kPrepare, "F5"},
    Row{Keys::kPreview, "F6"},
    Row{Keys::kRename, "Ctrl+Enter; Ctrl+Return"},
    Row{Keys::kUndo, "Ctrl+Z"},
    Row{Keys::kCancel, "Esc"},
    Row{Keys::kChooseFolder, "Ctrl+O"},
    Row{Keys::kSourcePage, "Alt+1"},
    Row{Keys::kOutputPage, "Alt+2"},
    Row{Keys::kSettingsPage, "Alt+3"},
    Row{Keys::kRemovePage, "Alt+4"},
    Row{Keys::kReplacePage, "Alt+5"},
    Row{Keys::kAddPage, "Alt+6"},
    Row{Keys::kColumnPath, "Alt+7"},
    Row{Keys::kColumnSize, "Alt+8"},
    Row{Keys::kColumnType, "Alt+9"},
    Row{Keys::kColumnDate, "Alt+0"},
    Row{Keys::kWideList, "F9"},
    Row{Keys::kRowMenu, "Shift+F10"},
    Row{Keys::kCheckAll, "Ctrl+Shift+A"},
    Row{Keys::kUnCheckAll, "Ctrl+Shift+U"},
    Row{Keys::kInvertSelection, "Ctrl+I"},
    Row{Keys::kCheckByMask, "Ctrl+M"},
    Row{Keys::kUnCheckByMask, "Ctrl+Shift+M"},
    Row{Keys::kInsertLeft, "Shift+Ins"},
    Row{Keys::kInsertRight, "Ins"},
    Row{Keys::kMoveLeft, "Ctrl+Left"},
    Row{Keys::kMoveRight, "Ctrl+Right"},
    Row{Keys::kDelete, "Del"},
    Row{Keys::kFirstElement, "Home"},
    Row{Keys::kLastElement, "End"},
    Row{Keys::kEditText, "Enter; Return"},
    Row{Keys::kAbout, "Shift+F1"},
    Row{Keys::kHelp, "F1"},
};

constexpr bool EachStandsAtItsNumber() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (kTable[i].keys != static_cast<Keys>(i)) return false;
  }
  return kTable.size() == static_cast<std::size_t>(Keys::kCount);
}
static_assert(EachStandsAtItsNumber());

}  // namespace

QList<QKeySequence> AllKeysOf(Keys keys) {
  return QKeySequence::listFromString(QLatin1String(kTable[static_cast<std::size_t>(keys)].text),
                                      QKeySequence::PortableText);
}

QKeySequence KeysOf(Keys keys) {
  return AllKeysOf(keys).value(0);
}

QString ShownKeys(Keys keys) {
  return KeysOf(keys).toString(QKeySequence::NativeText);
}

QString WithKeys(const QString& words, Keys keys) {
  return keys == Keys::kNone ? words : QStringLiteral("%1 (%2)").arg(words, ShownKeys(keys));
}

bool IsPressOf(Keys keys, const QKeyEvent& event) {
  // The digits of the number block are the same keys to the user.
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  return AllKeysOf(keys).contains(
      QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(event.key()))));
}

QShortcut* NewShortcut(Keys keys, QWidget* parent) {
  auto* shortcut = new QShortcut(parent);
  shortcut->setKeys(AllKeysOf(keys));
  return shortcut;
}

void TellKeys(QAction* action, Keys keys) {
  action->setShortcut(KeysOf(keys));
  action->setShortcutContext(Qt::WidgetShortcut);
  action->setShortcutVisibleInContextMenu(true);
}
