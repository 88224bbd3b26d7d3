#include "window/application.h"

#include "look/control_rules.h"
#include "trace/err_trace.h"

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  SetControlRules(*this);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  bool taken = false;
  ErrTrace::top("Application.notify", [&] { taken = QApplication::notify(receiver, event); });
  return taken;
}
