#include "window/application.h"

#include <QEvent>
#include <QIcon>

#include "look/control_rules.h"
#include "look/skin.h"
#include "platform/build_facts.h"
#include "trace/err_trace.h"

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  SetControlRules(*this);
  setDesktopFileName(QLatin1String(build_facts::kApplicationId));
}

void SetIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), QSize(size, size));
  }
  QApplication::setWindowIcon(icon);
}

bool Application::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) {
    // When all have it.
    QMetaObject::invokeMethod(this, &MeasureAnew, Qt::QueuedConnection);
  }
  return QApplication::event(event);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  bool taken = false;
  ErrTrace::top("Application.notify", [&] { taken = QApplication::notify(receiver, event); });
  return taken;
}
