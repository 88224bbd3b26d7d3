#include "names/editor/chip_drag.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "look/look.h"
#include "look/shortcuts.h"
#include "names/editor/chip_bar.h"

namespace {

constexpr int kMarkWidth = 2;
constexpr int kMarkAir = 1;  ///< between a chip and the mark
constexpr int kScrollZone = 24;
constexpr int kScrollEveryMs = 25;
constexpr int kGreatestScroll = 20;

class DropMark : public QWidget {
 public:
  explicit DropMark(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).fillRect(rect(), Look::Current().Colour(Role::kFocus));
  }
};

}  // namespace

ChipDrag::ChipDrag(ChipBar* bar) : QObject(bar), bar_(bar), mark_(new DropMark(bar)) {
  bar->installEventFilter(this);
}

bool ChipDrag::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    // The release may never come, or there is nothing to be moved any longer.
    case QEvent::FocusOut:
    case QEvent::WindowDeactivate:
    case QEvent::EnabledChange:
    case QEvent::Hide:
      End();
      return false;
    default:
      return FilterInput(event);
  }
}

/// Answers whether the bar is not to get the event.
bool ChipDrag::FilterInput(QEvent* event) {
  const bool was_on = IsOn();
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      if (!was_on) Press(*static_cast<QMouseEvent*>(event));
      return was_on;
    case QEvent::MouseMove:
      Move(*static_cast<QMouseEvent*>(event));
      return was_on;
    case QEvent::MouseButtonRelease:
      if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return was_on;
      Drop();
      return false;
    case QEvent::ShortcutOverride:  // else Esc would be the window's, and F5 would start a pass
      if (was_on) event->accept();
      return was_on;
    case QEvent::KeyPress:
      if (was_on && IsPressOf(Keys::kCancel, *static_cast<QKeyEvent*>(event))) End();
      return was_on;
    case QEvent::ContextMenu:
      return was_on;
    default:
      return false;
  }
}

void ChipDrag::Press(const QMouseEvent& event) {
  pressed_.reset();
  if (event.button() == Qt::LeftButton && bar_->tabAt(event.position().toPoint()) >= 0) {
    pressed_ = event.globalPosition().toPoint();
  }
}

void ChipDrag::Move(const QMouseEvent& event) {
  if (!event.buttons().testFlag(Qt::LeftButton)) return End();
  pointer_ = event.globalPosition().toPoint();
  if (!IsOn()) {
    if (!pressed_) return;
    if ((pointer_ - *pressed_).manhattanLength() < QApplication::startDragDistance()) return;
    from_ = bar_->currentIndex();  // the press has selected it
    bar_->setCursor(Qt::ClosedHandCursor);
  }
  ShowTarget();
  if (WantedScroll() == 0) {
    scroll_.stop();
  } else if (!scroll_.isActive()) {
    scroll_.start(kScrollEveryMs, this);
  }
}

void ChipDrag::Drop() {
  // Another one is selected when the elements changed meanwhile.
  const bool moves = IsOn() && from_ == bar_->currentIndex();
  const int step = moves ? Target() - from_ : 0;
  End();
  if (step != 0) emit bar_->moveRequested(step);
}

void ChipDrag::End() {
  pressed_.reset();
  if (!IsOn()) return;
  from_ = -1;
  scroll_.stop();
  mark_->hide();
  bar_->unsetCursor();
}

/// Where the chip would stand: behind all others that have their middle left of the pointer.
int ChipDrag::Target() const {
  const int x = bar_->mapFromGlobal(pointer_).x();
  int target = 0;
  for (int i = 0; i < bar_->count(); ++i) {
    if (i != from_ && bar_->ChipRect(i).center().x() < x) ++target;
  }
  return target;
}

/// The further out, the faster.
int ChipDrag::WantedScroll() const {
  const QWidget* view = bar_->parentWidget();
  const int x = view->mapFromGlobal(pointer_).x();
  const int beyond = std::min(x - kScrollZone, 0) + std::max(x - view->width() + kScrollZone, 0);
  return std::clamp(beyond, -kGreatestScroll, kGreatestScroll);
}

void ChipDrag::ShowTarget() {
  const int target = Target();
  const QRect chip = bar_->ChipRect(target);
  const int x = target < from_ ? chip.left() - kMarkAir - kMarkWidth : chip.right() + 1 + kMarkAir;
  mark_->setGeometry(std::clamp(x, 0, bar_->width() - kMarkWidth), chip.top(), kMarkWidth,
                     chip.height());
  mark_->setVisible(target != from_);
}

void ChipDrag::timerEvent(QTimerEvent*) {
  emit scrollWanted(WantedScroll());
  ShowTarget();  // the chips went along under the pointer
}
