#include "platform/qt/shell_qt.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "platform/file_handle.h"
#include "platform/qt/services_qt.h"

namespace {

namespace fs = std::filesystem;

// The interface that file managers offer on the session bus
// (https://www.freedesktop.org/wiki/Specifications/file-manager-interface/).
const QString kFileManager = QStringLiteral("org.freedesktop.FileManager1");
const QString kFileManagerPath = QStringLiteral("/org/freedesktop/FileManager1");
// The one that asks for a program
// (https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.OpenURI.html).
const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kOpenUri = QStringLiteral("org.freedesktop.portal.OpenURI");

constexpr int kAgainMs = 100;
constexpr int kAnswerMs = 10000;  ///< so long may a service take to start and to answer
/// xdg-open may run for as long as the program that it starts; after this it has opened the file,
/// whatever that program ends with.
constexpr qint64 kOpenedMs = 10'000;

/// What xdg-open(1) ends with.
constexpr int kXdgFileMissing = 2;
constexpr int kXdgToolMissing = 3;
constexpr int kXdgActionFailed = 4;
constexpr int kXdgNotReadable = 5;  ///< which its page doesn't tell

ShellResult ResultOf(int xdg_code) {
  switch (xdg_code) {
    case 0:
      return kShellDone;
    case kXdgFileMissing:
      return kShellFileNotFound;
    case kXdgToolMissing:
      return kShellNoAssociation;
    case kXdgNotReadable:
      return kShellDenied;
    default:
      return kShellAssociationIncomplete;
  }
}

ShellResult OpenUrl(const QByteArray& link) {
  return QDesktopServices::openUrl(QUrl::fromEncoded(link)) ? kShellDone : kShellNoAssociation;
}

/// Whether an entry is there, or why not. Links are followed only where that is asked for.
ShellResult LookFor(const QByteArray& name, bool follow) {
  const fs::path path = name.toStdString();
  std::error_code error;
  const fs::file_status entry = follow ? fs::status(path, error) : fs::symlink_status(path, error);
  if (fs::exists(entry)) return kShellDone;
  if (error == std::errc::permission_denied) return kShellDenied;
  if (error == std::errc::not_enough_memory) return kShellNoMemory;
  if (entry.type() != fs::file_type::not_found) return kShellAssociationIncomplete;
  return fs::is_directory(path.parent_path(), error) ? kShellFileNotFound : kShellPathNotFound;
}

/// Whether the bus knows a service, running or to be started. Only the bus itself is asked, so the
/// answer comes at once.
bool HasService(const QDBusConnection& bus, const QString& service) {
  if (!bus.isConnected()) return false;
  return bus.interface()->isServiceRegistered(service) ||
         bus.interface()->activatableServiceNames().value().contains(service);
}

/// What an error of the bus means (dbus.freedesktop.org, "Message Bus Messages", and
/// dbus-protocol.h for the names). No answer at all counts as no handler.
ShellResult ResultOf(const QString& error) {
  static constexpr std::pair<const char*, ShellResult> kErrors[] = {
      {"FileNotFound", kShellFileNotFound},   {"AccessDenied", kShellDenied},
      {"NoMemory", kShellNoMemory},           {"ServiceUnknown", kShellNoAssociation},
      {"NoReply", kShellNoAssociation},       {"Timeout", kShellNoAssociation},
      {"TimedOut", kShellNoAssociation},      {"Disconnected", kShellNoAssociation},
      {"UnknownMethod", kShellNoAssociation}, {"UnknownInterface", kShellNoAssociation},
      {"UnknownObject", kShellNoAssociation}, {"NameHasNoOwner", kShellNoAssociation},
  };
  const QString prefix = QStringLiteral("org.freedesktop.DBus.Error.");
  if (!error.startsWith(prefix)) return kShellAssociationIncomplete;
  const QString name = error.mid(prefix.size());
  if (name.startsWith(QLatin1String("Spawn."))) return kShellNoAssociation;
  for (const auto& [known, result] : kErrors) {
    if (name == QLatin1String(known)) return result;
  }
  return kShellAssociationIncomplete;
}

/// Sends `call`; `done` gets what came of it, for as long as `context` lives. A service may take
/// seconds to start; the window mustn't stand still for that long.
void Send(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
          std::function<void(ShellResult)> done) {
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, kAnswerMs), context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                   [watcher, done = std::move(done)] {
                     watcher->deleteLater();
                     done(watcher->isError() ? ResultOf(watcher->error().name()) : kShellDone);
                   });
}

/// Runs xdg-open with `link` as its one argument; `done` gets its exit code, -1 where there is no
/// such program. Nobody owns the process: its destruction would end what it runs.
void RunXdgOpen(const QByteArray& link, QObject* context, const std::function<void(int)>& done) {
  auto* opener = new QProcess;
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
  QElapsedTimer since;
  since.start();
  QObject::connect(opener, &QProcess::finished, opener, &QObject::deleteLater);
  QObject::connect(opener, &QProcess::finished, context,
                   [since, done](int code) { done(since.hasExpired(kOpenedMs) ? 0 : code); });
  QObject::connect(opener, &QProcess::errorOccurred, context,
                   [opener, done](QProcess::ProcessError error) {
                     if (error != QProcess::FailedToStart) return;
                     opener->deleteLater();
                     done(-1);
                   });
  opener->start(QStringLiteral("xdg-open"), {QString::fromLatin1(link)});
}

QByteArray FolderOf(const QByteArray& path) {
  return path.left(path.lastIndexOf('/') + 1);
}

QByteArray Bytes(std::string_view path) {
  return {path.data(), static_cast<qsizetype>(path.size())};
}

}  // namespace

QByteArray FileLink(std::string_view path) {
  return "file://" + Bytes(path).toPercentEncoding("/");
}

QtShell::QtShell(const QtEventPump& events, std::function<QDBusConnection()> bus)
    : events_(events), bus_(std::move(bus)) {}

ShellAnswer QtShell::OutsidePasses(const ShellAnswer& answer) {
  return [this, answer](ShellResult result) {
    if (!events_.Running()) return answer(result);
    QTimer::singleShot(kAgainMs, &waiting_,
                       [this, answer, result] { OutsidePasses(answer)(result); });
  };
}

void QtShell::AskFileManager(const QString& method, const QByteArray& path,
                             const ShellAnswer& answer, const std::function<void()>& without) {
  const ShellResult there = LookFor(path, false);
  if (there != kShellDone) return answer(there);
  const QDBusConnection bus = bus_();
  if (!HasService(bus, kFileManager)) return without();
  QDBusMessage call =
      QDBusMessage::createMethodCall(kFileManager, kFileManagerPath, kFileManager, method);
  call << QStringList(QString::fromLatin1(FileLink(path.toStdString()))) << QString();
  Send(bus, call, &waiting_, [without, answer = OutsidePasses(answer)](ShellResult result) {
    result == kShellNoAssociation ? without() : answer(result);
  });
}

void QtShell::ShowInFolder(std::string_view path, const ShellAnswer& answer) {
  const QByteArray entry = Bytes(path);
  AskFileManager(QStringLiteral("ShowItems"), entry, answer,
                 [this, entry, answer] { Open(FolderOf(entry), answer); });
}

void QtShell::ShowProperties(std::string_view path, const ShellAnswer& answer) {
  AskFileManager(QStringLiteral("ShowItemProperties"), Bytes(path), answer,
                 [answer = OutsidePasses(answer)] { answer(kShellNoAssociation); });
}

void QtShell::OpenFile(std::string_view path, const ShellAnswer& answer) {
  const ShellResult there = LookFor(Bytes(path), true);
  if (there != kShellDone) return answer(there);
  Open(Bytes(path), answer);
}

void QtShell::Open(const QByteArray& path, const ShellAnswer& answer) {
  // A link and not the path: it is one word without anything special, and holds every byte.
  const QByteArray link = FileLink(path.toStdString());
  RunXdgOpen(link, &waiting_, [this, path, link, answer = OutsidePasses(answer)](int code) {
    if (code < 0) return answer(OpenUrl(link));
    // Which of the two it is for an unknown type depends on the desktop.
    const bool may_be_unknown = code == kXdgToolMissing || code == kXdgActionFailed;
    if (!may_be_unknown) return answer(ResultOf(code));
    AskForProgram(path, ResultOf(code), answer);
  });
}

void QtShell::AskForProgram(const QByteArray& path, ShellResult result, const ShellAnswer& answer) {
  const QDBusConnection bus = bus_();
  if (!HasService(bus, kPortal)) return answer(result);
  const FileHandle file = OpenRegularFile(path.toStdString());
  if (!file) return answer(result);
  QDBusMessage call =
      QDBusMessage::createMethodCall(kPortal, kPortalPath, kOpenUri, QStringLiteral("OpenFile"));
  call << QString() << QVariant::fromValue(QDBusUnixFileDescriptor(file.get()))
       << QVariantMap{{QStringLiteral("ask"), true}};
  Send(bus, call, &waiting_,
       [result, answer](ShellResult asked) { answer(asked == kShellDone ? kShellDone : result); });
}

ShellResult QtShell::OpenLink(std::string_view link) {
  return OpenUrl(Bytes(link));
}
