#include "window/orderly_end.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>

namespace {

constexpr int kBetweenStepsMs = 20;

QWidget* NextToClose() {
  if (QWidget* menu = QApplication::activePopupWidget()) return menu;
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return window;
  }
  return nullptr;
}

/// One at a time, so that each that waits for a dialog has gone on before its window is closed.
void CloseNext() {
  if (QWidget* next = NextToClose()) {
    next->close();
  } else {
    QCoreApplication::quit();
  }
}

}  // namespace

OrderlyEnd::OrderlyEnd(QObject* parent) : QObject(parent) {
  if (signals_.Descriptor() < 0) return;
  auto* notifier = new QSocketNotifier(signals_.Descriptor(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] {
    if (!signals_.Taken()) return;
    QMetaObject::invokeMethod(this, &CloseNext, Qt::QueuedConnection);
    steps_.start(kBetweenStepsMs);
  });
  // Queued: a timer keeps quiet in an event loop that its own handler runs, and closing a window
  // may show a message.
  connect(&steps_, &QTimer::timeout, this, &CloseNext, Qt::QueuedConnection);
}
