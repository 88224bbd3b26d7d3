#include "platform/qt/shell_qt.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
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
constexpr const char* kErrors = "org.freedesktop.DBus.Error.";
const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
using Request = void (QtShell::*)(std::string_view, const ShellAnswer&);

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
      file.open(values[1].value<QDBusUnixFileDescriptor>().fileDescriptor(), QFile::ReadOnly);
      asked += file.readAll().toStdString();
    }
    return bus.send(error.isEmpty() ? call.createReply() : call.createErrorReply(error, QString()));
  }

  QString error;
  std::string asked;
};

/// A desktop of its own: a bus, a service, and an xdg-open that ends as it is told.
struct ShellTest : testing::Test {
  void SetUp() override {
    daemon.startCommand(QStringLiteral("dbus-daemon --session --nofork --print-address"));
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
    for (const char* name : {"asks", "serves"})
      QDBusConnection::disconnectFromBus(QLatin1String(name));
    daemon.kill();
    daemon.waitForFinished();
  }

  static void Offer(const QString& name) {
    QDBusConnection(QStringLiteral("serves")).registerService(name);
  }
  /// What becomes of one request, and what xdg-open was asked for, if it was.
  int Ask(Request request, const std::string& file) {
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

/// With an error of those in `kErrors`, and the code of xdg-open, which isn't asked without.
const std::tuple<Request, QString, const char*, const char*, int> kRefusals[] = {
    {&QtShell::OpenFile, kFiles, "", "1", kShellAssociationIncomplete},
    {&QtShell::OpenFile, kFiles, "", "2", kShellFileNotFound},
    {&QtShell::OpenFile, kFiles, "", "3", kShellNoAssociation},
    {&QtShell::OpenFile, kFiles, "", "4", kShellAssociationIncomplete},
    {&QtShell::OpenFile, kFiles, "", "5", kShellDenied},
    {&QtShell::ShowInFolder, kFiles, "AccessDenied", "", kShellDenied},
    {&QtShell::ShowInFolder, kFiles, "Unlike", "", kShellAssociationIncomplete},
    {&QtShell::ShowInFolder, kFiles, "UnknownMethod", "0", kShellDone},
    {&QtShell::ShowInFolder, kFiles, "Spawn.ExecFailed", "3", kShellNoAssociation},
    {&QtShell::ShowProperties, kFiles, "FileNotFound", "", kShellFileNotFound},
    {&QtShell::ShowProperties, kFiles, "NoMemory", "", kShellNoMemory},
    {&QtShell::ShowProperties, kFiles, "UnknownMethod", "", kShellNoAssociation},
    {&QtShell::OpenFile, kPortal, "", "4", kShellDone},
    {&QtShell::OpenFile, kPortal, "Failed", "3", kShellNoAssociation},
};

}  // namespace

TEST_F(ShellTest, HandsEveryNameOverAsItIs) {
  Offer(kFiles);
  qputenv("XDG_CODE", "0");
  for (const char* name :
       {"a b.txt", "50%20 #1?.txt", "\"'`$(x);&.txt", "two\nlines", "bad\xFF", "-e", "M\u00E4rz"}) {
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
  qputenv("XDG_CODE", "0");
  EXPECT_EQ(Ask(&QtShell::ShowProperties, folder / "a"), kShellNoAssociation) << "nobody is there";
  EXPECT_EQ(Ask(&QtShell::ShowInFolder, folder / "a"), kShellDone);
  EXPECT_EQ(Opened(), "1 file://" + folder.path() + "/");
  for (const auto& [request, offered, error, code, answer] : kRefusals) {
    SCOPED_TRACE(testing::Message() << error << " " << code);
    Offer(offered);
    service.error = QLatin1String(*error ? kErrors : "") + QLatin1String(error);
    qputenv("XDG_CODE", code);
    EXPECT_EQ(Ask(request, folder / "a"), answer);
    EXPECT_EQ(Opened().empty(), std::string_view(code).empty());
  }
  ::mkfifo((folder / "pipe").c_str(), 0600);
  EXPECT_EQ(Ask(&QtShell::OpenFile, folder / "pipe"), kShellNoAssociation);
  EXPECT_TRUE(service.asked.ends_with("OpenFile contentOpenFile content")) << service.asked;
  service.asked.clear();
  for (const auto request :
       {&QtShell::ShowInFolder, &QtShell::ShowProperties, &QtShell::OpenFile}) {
    EXPECT_EQ(Ask(request, folder / "gone"), kShellFileNotFound);
    EXPECT_EQ(Ask(request, folder / "gone/a"), kShellPathNotFound);
  }
  EXPECT_EQ(service.asked, "") << "for what isn't there";
}

TEST_F(ShellTest, KeepsALateAnswerUntilThePassIsOver) {
  folder.Write("a", "");
  Offer(kFiles);
  service.error = QLatin1String(kErrors) + QStringLiteral("Failed");
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
