#pragma once

#include <QString>

class QAction;
class QMenu;

/// Adds a command that carries its number as data, below a line where a group begins. All menus of
/// the program are built with it; the dispatcher that runs a command by its number reads `data()`.
QAction* AddButton(QMenu& Controls, int ID, const QString& Caption, bool BeginGroup);
