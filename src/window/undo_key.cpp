#include "window/undo_key.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include "look/shortcuts.h"

UndoKey::UndoKey(QWidget& window, const QPushButton& undo) : QObject(&window), undo_(undo) {
  Watch(window);
}

void UndoKey::Watch(QWidget& part) {
  for (QLineEdit* field : part.findChildren<QLineEdit*>()) {
    if (field->window() != parent()) continue;
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, [this, field] {
      if (!WasTyped(field)) typed_.push_back(field);
    });
  }
}

bool UndoKey::WasTyped(const QObject* field) const {
  return std::ranges::find(typed_, field) != typed_.end();
}

bool UndoKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride || !undo_.isEnabled() || WasTyped(watched) ||
      !IsPressOf(Keys::kUndo, static_cast<QKeyEvent&>(*event))) {
    return false;
  }
  event->ignore();  // the field would claim the key; refused, it is the shortcut's
  return true;
}
