#include "window/application.h"

#include "trace/err_trace.h"

bool Application::notify(QObject* receiver, QEvent* event) {
  bool taken = false;
  ErrTrace::top("Application.notify", [&] { taken = QApplication::notify(receiver, event); });
  return taken;
}
