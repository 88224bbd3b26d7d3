#include "platform/qt/shell_qt.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <filesystem>
#include <functional>

#include "platform/qt/services_qt.h"
#include "support/temp_folder.h"

namespace {

const QString kFiles = QStringLiteral("org.freedesktop.FileManager1");
const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");

/// A service that writes down what it is asked for: the method, and the path of a link or the
/// content of a file that it is handed.
class Service : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    const QVariantList values = call.arguments();
    const QByteArray link = values.value(0).toStringList().value(0).toLatin1();
    asked += call.member().toStdString() + " " +
             QByteArray::fromPercentEncoding(link.mid(7)).toStdString();
    if (call.member() == QLatin1String("OpenFile")) {
      QFile file;
      if (!file.open(values[1].value<QDBusUnixFileDescriptor>().fileDescriptor(), QFile::ReadOnly))
        asked += "nothing";
      asked += file.readAll().toStdString();
    }
    return bus.send(error.isEmpty() ? call.createReply() : call.createErrorReply(error, QString()));
  }

  QString error;
  std::string asked;
};

/// A desktop of its own: a bus, a service, and an xdg-open that ends as it is told.
class ShellTest : public testing::Test {
 protected:
  void SetUp() override {
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"),
                  QStringLiteral("--print-address")});
    ASSERT_TRUE(daemon.waitForReadyRead()) << "dbus-daemon is needed";
    const QString address = QString::fromLatin1(daemon.readLine().trimmed());
    QDBusConnection::connectToBus(address, QStringLiteral("asks"));
    QDBusConnection bus = QDBusConnection::connectToBus(address, QStringLiteral("serves"));
    bus.registerVirtualObject(QStringLiteral("/"), &service, QDBusConnection::SubPath);
    folder.Write("xdg-open", "#!/bin/sh\nprintf '%s %s' $# \"$1\" >\"$0.asked\"\nexit $XDG_CODE\n");
    std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
    qputenv("PATH", folder.path().c_str() + (":" + path));
  }
  void TearDown() override {
    qputenv("PATH", path);
    for (const char* name : {"asks", "serves"}) {
      QDBusConnection::disconnectFromBus(QLatin1String(name));
    }
    daemon.kill();
    daemon.waitForFinished();
  }

  void Offer(const QString& name) {
    QDBusConnection(QStringLiteral("serves")).registerService(name);
  }
  /// What becomes of one request, and what xdg-open was asked for, if it was.
  int Ask(void (QtShell::*request)(std::string_view, const ShellAnswer&), const std::string& file) {
    int answer = -1;
    (shell.*request)(file, [&](ShellResult result) { answer = result; });
    Wait([&] { return answer >= 0; });
    return answer;
  }
  static void Wait(const std::function<bool()>& done) {
    const QDeadlineTimer deadline(10000);
    while (!done() && !deadline.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
  }
  std::string Opened() {
    QFile file(QFile::decodeName((folder / "xdg-open.asked").c_str()));
    const QByteArray asked = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    file.remove();
    return QByteArray::fromPercentEncoding(asked).toStdString();
  }

  QByteArray path = qgetenv("PATH");
  QProcess daemon;
  Service service;
  TempFolder folder;
  QtEventPump events;
  QtShell shell{events, [] { return QDBusConnection(QStringLiteral("asks")); }};
};

}  // namespace

TEST_F(ShellTest, HandsEveryNameOverAsItIs) {
  Offer(kFiles);
  qputenv("XDG_CODE", "0");
  for (const char* name : {"a b.txt", "50%20 #1?.txt", "\"'`$(x);&.txt", "two\nlines", "bad\xFF",
                           "-e", "M\u00E4rz"}) {
    folder.Write(name, "");
    const std::string file = folder / name;
    EXPECT_EQ(Ask(&QtShell::ShowInFolder, file), kShellDone);
    EXPECT_EQ(Ask(&QtShell::ShowProperties, file), kShellDone);
    EXPECT_EQ(std::exchange(service.asked, ""), "ShowItems " + file + "ShowItemProperties " + file);
    EXPECT_EQ(Ask(&QtShell::OpenFile, file), kShellDone);
    EXPECT_EQ(Opened(), "1 file://" + file);
  }
}

TEST_F(ShellTest, TellsWhyTheDesktopDoesNothing) {
  folder.Write("a", "content");
  const std::string file = folder / "a";
  const struct {
    void (QtShell::*request)(std::string_view, const ShellAnswer&);
    const char* error;  ///< of the service
    const char* code;   ///< of xdg-open
    int answer;
    bool opened = false;
  } table[] = {
      {&QtShell::ShowInFolder, "AccessDenied", "0", kShellDenied},
      {&QtShell::ShowInFolder, "Failed", "0", kShellAssociationIncomplete},
      {&QtShell::ShowInFolder, "UnknownMethod", "0", kShellDone, true},
      {&QtShell::ShowInFolder, "Spawn.ExecFailed", "3", kShellNoAssociation, true},
      {&QtShell::ShowProperties, "FileNotFound", "0", kShellFileNotFound},
      {&QtShell::ShowProperties, "NoMemory", "0", kShellNoMemory},
      {&QtShell::ShowProperties, "UnknownMethod", "0", kShellNoAssociation},
      {&QtShell::OpenFile, "Failed", "1", kShellAssociationIncomplete, true},
      {&QtShell::OpenFile, "Failed", "2", kShellFileNotFound, true},
      {&QtShell::OpenFile, "Failed", "3", kShellNoAssociation, true},
      {&QtShell::OpenFile, "Failed", "4", kShellAssociationIncomplete, true},
      {&QtShell::OpenFile, "Failed", "5", kShellDenied, true},
  };
  qputenv("XDG_CODE", "0");
  EXPECT_EQ(Ask(&QtShell::ShowProperties, file), kShellNoAssociation) << "nobody is there";
  EXPECT_EQ(Ask(&QtShell::ShowInFolder, file), kShellDone);
  EXPECT_EQ(Opened(), "1 file://" + folder.path() + "/");
  Offer(kFiles);
  for (const auto& row : table) {
    SCOPED_TRACE(testing::Message() << row.error << " " << row.code);
    service.error = QLatin1String("org.freedesktop.DBus.Error.") + QLatin1String(row.error);
    qputenv("XDG_CODE", row.code);
    EXPECT_EQ(Ask(row.request, file), row.answer);
    EXPECT_EQ(!Opened().empty(), row.opened);
  }
  service.asked.clear();
  for (const auto request :
       {&QtShell::ShowInFolder, &QtShell::ShowProperties, &QtShell::OpenFile}) {
    EXPECT_EQ(Ask(request, folder / "gone"), kShellFileNotFound);
    EXPECT_EQ(Ask(request, folder / "gone/a"), kShellPathNotFound);
  }
  EXPECT_EQ(service.asked, "") << "for what isn't there";
}

TEST_F(ShellTest, AsksForAProgramWhereNoneIsKnown) {
  folder.Write("a.unknown", "content");
  Offer(kPortal);
  for (const char* code : {"3", "4"}) {
    qputenv("XDG_CODE", code);
    EXPECT_EQ(Ask(&QtShell::OpenFile, folder / "a.unknown"), kShellDone);
    EXPECT_EQ(std::exchange(service.asked, ""), "OpenFile content");
  }
  service.error = QStringLiteral("org.freedesktop.DBus.Error.Failed");
  qputenv("XDG_CODE", "3");
  EXPECT_EQ(Ask(&QtShell::OpenFile, folder / "a.unknown"), kShellNoAssociation);
}

TEST_F(ShellTest, KeepsALateAnswerUntilThePassIsOver) {
  folder.Write("a", "");
  Offer(kFiles);
  service.error = QStringLiteral("org.freedesktop.DBus.Error.Failed");
  int answers = 0;
  shell.ShowProperties(folder / "a", [&](ShellResult) { ++answers; });
  const QDeadlineTimer pass(400);
  while (!pass.hasExpired()) events.LetEventsRun();
  EXPECT_FALSE(service.asked.empty());
  EXPECT_EQ(answers, 0);
  Wait([&] { return answers > 0; });
  Wait([deadline = QDeadlineTimer(200)] { return deadline.hasExpired(); });
  EXPECT_EQ(answers, 1);
}
