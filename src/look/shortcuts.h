#pragma once

#include <QKeySequence>
#include <QString>

#include "look/keys.h"

class QAction;
class QKeyEvent;
class QShortcut;
class QWidget;

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

/// Shows the keys behind the caption of `action` in its menu. They are only told there: who answers
/// to them is the window itself, and twice would be ambiguous.
void TellKeys(QAction* action, Keys keys);
