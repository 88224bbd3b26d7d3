#include "platform/qt/ordinary_pointer_qt.h"

#include <QCursor>
#include <QGuiApplication>

OrdinaryPointer::OrdinaryPointer() : set_(QGuiApplication::overrideCursor() != nullptr) {
  if (set_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

OrdinaryPointer::~OrdinaryPointer() {
  if (set_) QGuiApplication::restoreOverrideCursor();
}
