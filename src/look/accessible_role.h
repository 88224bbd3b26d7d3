#pragma once

#include <QAccessible>

class QWidget;

/// Makes `widget`, a plain box that holds others, known to screen readers as a `role`. To be called
/// before they could have met it.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);
