#pragma once

#include <QString>
#include <functional>
#include <span>

#include "look/handled_control.h"
#include "names/constr_item.h"

class QComboBox;
class QLineEdit;
class QObject;
class QWidget;

/// Answers the element that the option controls show; null when there is none.
using ShownItem = std::function<ConstrItem*()>;

/// A combo box with the texts of `entries`. Each change of its entry runs `picked` with the new
/// index, in the frame of the control's click handler.
QComboBox* NewPick(const PickControl& control, int argument, std::span<const char* const> entries,
                   std::function<void(int)> picked, QWidget* parent);

/// Lets each change of the text of `field` run `changed`, in the frame of its change handler.
void HandleChange(QLineEdit* field, const char* name, HandlerFrame change,
                  std::function<void()> changed);
