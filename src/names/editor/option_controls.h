#pragma once

#include <QString>
#include <functional>
#include <span>

#include "names/constr_item.h"

class QComboBox;
class QLineEdit;
class QWidget;

/// Answers the element that the option controls show; null when there is none.
using ShownItem = std::function<ConstrItem*()>;

/// A combo box with the texts of `entries`. Each change of its entry runs `picked` with the new
/// index, as the click handler of the control `name`.
QComboBox* NewPick(const char* name, std::span<const char* const> entries,
                   std::function<void(int)> picked, QWidget* parent);

/// Names `field` and lets each change of its text run `changed`, as its change handler.
void HandleChange(QLineEdit* field, const char* name, std::function<void()> changed);
