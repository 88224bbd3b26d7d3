#pragma once

#include <QByteArray>

#include "platform/services.h"

/// The desktop by its session bus, and by what Qt opens files with.
class QtShell : public Shell {
 public:
  ShellResult ShowInFolder(std::string_view path) override;
  ShellResult OpenFile(std::string_view path) override;
  ShellResult OpenLink(std::string_view link) override;
};

/// The file: link of an absolute path; every byte outside RFC 3986's unreserved characters and
/// "/" is written as "%" and two digits, so that names that are no UTF-8 pass too.
QByteArray FileLink(std::string_view path);
