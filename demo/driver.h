#pragma once

#include <QString>
#include <QWidget>
#include <stdexcept>
#include <string>

class QTabBar;

/// Works the main window by mouse and keyboard on its widgets, as a user would. What isn't there,
/// or is off, ends the program's run with a std::runtime_error.
class Driver {
 public:
  explicit Driver(QWidget& window) : window_(window) {}

  void Show(const QSize& size);

  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = window_.findChild<Widget*>(QLatin1String(name));
    if (!found) throw std::runtime_error(std::string("no control ") + name);
    return found;
  }

  void Press(const char* button);
  void Type(const char* field, const QString& t);
  void Pick(const char* box, const QString& entry);
  void SelectElement(int index);
  void Insert(const char* button, const QString& entry);

  /// Writes a picture of the window, or of `part` of it.
  void Picture(const QString& file, const QRect& part = {});

 private:
  QWidget& window_;
};
