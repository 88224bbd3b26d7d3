#include "platform/qt/fonts_ahead.h"

#include <QLibrary>

std::future<void> ReadFontsAhead() {
  // By its name, for Qt brings it along: the program needs no fontconfig of its own.
  const QFunctionPointer init = QLibrary::resolve(QStringLiteral("fontconfig"), 1, "FcInit");
  // Without a thread to be had, the caller does it when it waits.
  return std::async(std::launch::async | std::launch::deferred, [init] {
    if (init != nullptr) reinterpret_cast<int (*)()>(init)();
  });
}
