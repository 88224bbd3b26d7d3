#include "window/application.h"

#include <QEvent>

#include "look/control_rules.h"
#include "look/skin.h"
#include "trace/err_trace.h"

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  SetControlRules(*this);
}

bool Application::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) FitSkinToFont(*this);
  return QApplication::event(event);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  bool taken = false;
  ErrTrace::top("Application.notify", [&] { taken = QApplication::notify(receiver, event); });
  return taken;
}
