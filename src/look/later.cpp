#include "look/later.h"

#include <QEvent>
#include <QWidget>
#include <utility>

#include "look/handlers.h"

namespace {

/// The display has the picture by then.
constexpr int kAfterPaintMs = 30;
constexpr int kUnpaintedMs = 1000;

}  // namespace

Later::Later() {
  OnSignal(&timer_, &QTimer::timeout, "Later.DoNext", [this] { DoNext(); });
}

void Later::Do(Later* later, QObject* owner, std::function<void()> piece) {
  if (later == nullptr) return piece();
  later->pieces_.push_back({owner, std::move(piece)});
}

void Later::BeginAfter(QWidget& window) {
  window.installEventFilter(this);
}

bool Later::eventFilter(QObject* window, QEvent* event) {
  if (event->type() == QEvent::Show) timer_.start(kUnpaintedMs);
  if (event->type() == QEvent::Paint) {
    window->removeEventFilter(this);
    timer_.start(kAfterPaintMs);
  }
  return false;
}

void Later::DoNext() {
  timer_.setInterval(0);
  if (pieces_.empty()) return timer_.stop();
  const Piece piece = std::move(pieces_.front());
  pieces_.pop_front();
  if (piece.owner != nullptr) piece.work();
}

void Later::DoAll() {
  while (!pieces_.empty()) DoNext();
}
