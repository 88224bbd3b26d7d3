#include "window/application.h"

#include <QEvent>
#include <QIcon>

#include "look/control_rules.h"
#include "look/skin.h"
#include "platform/build_facts.h"
#include "trace/err_trace.h"

namespace {

QIcon Icon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  SetControlRules(*this);
  setWindowIcon(Icon());
  setDesktopFileName(QLatin1String(build_facts::kApplicationId));
}

bool Application::event(QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::ApplicationFontChange || type == QEvent::ApplicationLayoutDirectionChange) {
    FitSkin(*this);
  }
  return QApplication::event(event);
}

bool Application::notify(QObject* receiver, QEvent* event) {
  bool taken = false;
  ErrTrace::top("Application.notify", [&] { taken = QApplication::notify(receiver, event); });
  return taken;
}
