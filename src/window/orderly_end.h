#pragma once

#include <QObject>
#include <QTimer>

#include "platform/ending_signals.h"

/// Ends the program on SIGTERM, SIGINT or SIGHUP as its user would. Menus, messages and dialogs are
/// closed as by Esc, the innermost first, also those that come up on the way; then the windows. A
/// window that is busy refuses at first and is asked again.
class OrderlyEnd : public QObject {
  Q_OBJECT

 public:
  explicit OrderlyEnd(QObject* parent = nullptr);

 private:
  EndingSignals signals_;
  QTimer steps_;
};
