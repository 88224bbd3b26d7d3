#pragma once

#include <QKeySequence>
#include <QString>

#include "look/keys.h"

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
