#include "platform/event_pump_qt.h"

#include <QCoreApplication>

void QtEventPump::LetEventsRun() {
  QCoreApplication::processEvents();
}
