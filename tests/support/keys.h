#pragma once

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

/// What a user does to a control, as the events that reach it.

inline void Press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  const QString& text = {}) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
  }
}

inline void Type(QWidget* widget, const QString& text) {
  for (const QChar sign : text) Press(widget, 0, Qt::NoModifier, QString(sign));
}

inline void Leave(QWidget* widget, Qt::FocusReason reason = Qt::TabFocusReason) {
  QFocusEvent out(QEvent::FocusOut, reason);
  QApplication::sendEvent(widget, &out);
}
