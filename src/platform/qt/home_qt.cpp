#include "platform/qt/home_qt.h"

#include <QDir>

#include "platform/qt/text_qt.h"

std::string HomeFolder() {
  // Qt's text loses bytes that are no UTF-8.
  const QByteArray home = qgetenv("HOME");
  return home.isEmpty() ? text::FromQt(QDir::homePath()) : home.toStdString();
}
