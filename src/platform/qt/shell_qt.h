#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <functional>

#include "platform/services.h"

class QtEventPump;

/// The desktop by its session bus, by xdg-open(1), and by what Qt opens links with. An answer that
/// comes while a pass lets events run is kept until it no longer does. Calls no answer any more
/// once it is gone.
class QtShell : public Shell {
 public:
  /// `events` outlives it. `bus` is asked for at the first use.
  explicit QtShell(const QtEventPump& events,
                   std::function<QDBusConnection()> bus = &QDBusConnection::sessionBus);

  void ShowInFolder(std::string_view path, const ShellAnswer& answer) override;
  void ShowProperties(std::string_view path, const ShellAnswer& answer) override;
  void OpenFile(std::string_view path, const ShellAnswer& answer) override;
  ShellResult OpenLink(std::string_view link) override;

 private:
  /// Has the file manager do `method` with the entry at `path`; `without` is done instead where
  /// none answers.
  void AskFileManager(const QString& method, const QByteArray& path, const ShellAnswer& answer,
                      const std::function<void()>& without);
  void Open(const QByteArray& path, const ShellAnswer& answer);
  /// Has the user choose the program that opens the file; `result` stands where nobody can ask,
  /// and for what is no regular file.
  void AskForProgram(const QByteArray& path, ShellResult result, const ShellAnswer& answer);
  ShellAnswer OutsidePasses(const ShellAnswer& answer);

  const QtEventPump& events_;
  std::function<QDBusConnection()> bus_;
  QObject waiting_;  ///< with it end all who wait for an answer
};

/// The file: link of an absolute path; every byte outside RFC 3986's unreserved characters and
/// "/" is written as "%" and two digits, so that names that are no UTF-8 pass too.
QByteArray FileLink(std::string_view path);
