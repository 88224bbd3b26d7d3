#include "platform/qt/shell_qt.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QStringList>
#include <QUrl>
#include <string>

namespace {

// The interface that file managers offer on the session bus
// (https://www.freedesktop.org/wiki/Specifications/file-manager-interface/).
const QString kFileManager = QStringLiteral("org.freedesktop.FileManager1");

ShellResult OpenUrl(const QByteArray& link) {
  return QDesktopServices::openUrl(QUrl::fromEncoded(link)) ? kShellDone : kShellNoAssociation;
}

ShellResult OpenFolderOf(std::string_view path) {
  const std::size_t end = path.rfind('/');
  return OpenUrl(FileLink(end == path.npos ? path : path.substr(0, end + 1)));
}

/// Whether the session bus knows a file manager, running or to be started. Only the bus itself is
/// asked, so the answer comes at once.
bool HasFileManager(const QDBusConnection& bus) {
  if (!bus.isConnected()) return false;
  return bus.interface()->isServiceRegistered(kFileManager) ||
         bus.interface()->activatableServiceNames().value().contains(kFileManager);
}

}  // namespace

QByteArray FileLink(std::string_view path) {
  return "file://" +
         QByteArray(path.data(), static_cast<qsizetype>(path.size())).toPercentEncoding("/");
}

ShellResult QtShell::ShowInFolder(std::string_view path) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!HasFileManager(bus)) return OpenFolderOf(path);
  QDBusMessage call =
      QDBusMessage::createMethodCall(kFileManager, QStringLiteral("/org/freedesktop/FileManager1"),
                                     kFileManager, QStringLiteral("ShowItems"));
  call << QStringList(QString::fromLatin1(FileLink(path))) << QString();
  // A file manager may take seconds to start; the window mustn't stand still for that long.
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call));
  QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer,
                   [answer, kept = std::string(path)] {
                     if (answer->isError()) OpenFolderOf(kept);
                     answer->deleteLater();
                   });
  return kShellDone;
}

ShellResult QtShell::OpenFile(std::string_view path) {
  return OpenUrl(FileLink(path));
}

ShellResult QtShell::OpenLink(std::string_view link) {
  return OpenUrl(QByteArray(link.data(), static_cast<qsizetype>(link.size())));
}
