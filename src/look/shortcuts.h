#pragma once

#include <QKeySequence>
#include <QString>

class QKeyEvent;
class QShortcut;
class QWidget;

/// What has keys of its own, beside the underlined letters of the captions.
enum class Keys {
  kPrepare,
  kPreview,
  kRename,
  kUndo,
  kCancel,
  kChooseFolder,
  kSourcePage,
  kOutputPage,
  kSettingsPage,
  kRemovePage,
  kReplacePage,
  kAddPage,
  kColumnPath,
  kColumnSize,
  kColumnType,
  kColumnDate,
  kWideList,
  kRowMenu,
  kInsertLeft,
  kInsertRight,
  kMoveLeft,
  kMoveRight,
  kDelete,
  kAbout,
  kHelp,
};

/// The one that goes `further` rows behind `keys`: the pages and the columns stand in their order.
constexpr Keys Behind(Keys keys, int further) {
  return static_cast<Keys>(static_cast<int>(keys) + further);
}

/// The keys, the one first that tooltips tell.
QList<QKeySequence> AllKeysOf(Keys keys);
QKeySequence KeysOf(Keys keys);

/// The first of the keys as this desktop writes it: "Ctrl+O".
QString ShownKeys(Keys keys);
/// A tooltip: "Choose folder (Ctrl+O)".
QString WithKeys(const QString& words, Keys keys);

/// Whether `event` is a press of the keys.
bool IsPressOf(Keys keys, const QKeyEvent& event);

/// A shortcut that answers to all of the keys, while the window of `parent` is active.
QShortcut* NewShortcut(Keys keys, QWidget* parent);
