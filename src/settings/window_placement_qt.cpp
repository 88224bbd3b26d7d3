#include "settings/window_placement_qt.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "settings/reg_settings.h"
#include "trace/err_trace.h"

namespace {

float Twips(int pixels) {
  return static_cast<float>(pixels) * kTwipsPerPixel;
}

int Pixels(float twips) {
  constexpr float kMost = QWIDGETSIZE_MAX;
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -kMost, kMost)));
}

bool CanPlaceWindows() {
  return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

ScreenSize PrimaryScreen() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QSize size = screen == nullptr ? QSize() : screen->size();
  return {Twips(size.width()), Twips(size.height())};
}

/// The primary one first.
std::vector<ScreenArea> Screens() {
  std::vector<ScreenArea> all;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect area = screen->geometry();
    all.push_back({Twips(area.x()), Twips(area.y()), {Twips(area.width()), Twips(area.height())}});
  }
  return all;
}

int StateOf(const QWidget& window) {
  if (window.isMinimized()) return kMinimised;
  return window.isMaximized() || window.isFullScreen() ? kMaximised : kNormalWindow;
}

/// In the middle, a window larger than the screen would hide its title and its first column.
void ShowCorner(WindowFrame& frame) {
  if (frame.left) frame.left = std::max(*frame.left, 0.0F);
  if (frame.top) frame.top = std::max(*frame.top, 0.0F);
}

/// The place with the frame of the window system, the size without it: Qt sets both that way.
WindowFrame FrameOf(const QWidget& window) {
  WindowFrame frame;
  if (CanPlaceWindows()) {
    frame.left = Twips(window.x());
    frame.top = Twips(window.y());
  }
  frame.width = Twips(window.width());
  frame.height = Twips(window.height());
  frame.WindowState = StateOf(window);
  return frame;
}

/// For a window that is made but not on the screen yet. There a move alone takes the place for that
/// without the frame, and the window would creep by its frame at each start.
void Place(QWidget& window, const QPoint& place) {
  window.move(place);
  QWindow* handle = window.windowHandle();
  if (handle == nullptr) return;
  handle->resize(window.size());  // else Qt does it at the showing, and moves the window as well
  handle->setFramePosition(place);
}

void Apply(const WindowFrame& frame, QWidget& window) {
  const QSize size(Pixels(frame.width), Pixels(frame.height));
  if (size != window.size()) window.resize(size);
  if (frame.left && frame.top) Place(window, {Pixels(*frame.left), Pixels(*frame.top)});
  if (frame.WindowState == kMaximised) {
    window.setWindowState(window.windowState() | Qt::WindowMaximized);
  } else if (frame.WindowState == kMinimised) {
    window.setWindowState(window.windowState() | Qt::WindowMinimized);
  }
}

}  // namespace

WindowPlacement::WindowPlacement(SettingsStore& store, QWidget& window, std::string frm,
                                 std::function<QSize()> own_size)
    : QObject(&window),
      store_(store),
      window_(window),
      frm_(std::move(frm)),
      own_size_(std::move(own_size)) {
  window.installEventFilter(this);
}

bool WindowPlacement::eventFilter(QObject* watched, QEvent* event) {
  // Spontaneous events tell of the window system: minimised, or on another desktop.
  if (watched == &window_ && !event->spontaneous()) {
    if (event->type() == QEvent::Show) Shown();
    if (event->type() == QEvent::Hide) Form_Unload();
  }
  return QObject::eventFilter(watched, event);
}

void WindowPlacement::Shown() {
  loaded_ ? KeepInSight() : Form_Load();
  if (own_size_ && !sized_) GiveOwnSize();
  stored_ = false;
}

void WindowPlacement::Form_Load() {
  // At the first showing a dialog has the size that its layout needs, but isn't on the screen yet.
  loaded_ = true;
  WindowFrame frame = FrameOf(window_);
  frame.left.reset();
  frame.top.reset();
  ErrTrace::top("WindowPlacement.Form_Load(frm)", ErrTrace::args(frm_),
                [&] { GetWindowConfig(store_, frm_, PrimaryScreen(), frame); });
  if (!HasStoredPlace(store_, frm_)) ShowCorner(frame);
  BringIntoSight(Screens(), frame);
  Apply(frame, window_);
  sized_ = HasStoredSize(store_, frm_);
}

/// A screen may have gone while the window was hidden.
void WindowPlacement::KeepInSight() {
  WindowFrame frame = FrameOf(window_);
  const WindowFrame before = frame;
  BringIntoSight(Screens(), frame);
  if (frame.left != before.left || frame.top != before.top) Apply(frame, window_);
}

void WindowPlacement::GiveOwnSize() {
  if (StateOf(window_) != kNormalWindow) return;
  window_.resize(own_size_());
  given_ = window_.size();
  const QWidget* owner = window_.parentWidget();
  if (owner == nullptr || !CanPlaceWindows()) return;
  const QSize all_screens = owner->screen()->virtualSize();
  WindowFrame frame = FrameOf(window_);
  CenterOwner(FrameOf(*owner->window()), {Twips(all_screens.width()), Twips(all_screens.height())},
              frame);
  Apply(frame, window_);
}

void WindowPlacement::Form_Unload() {
  if (std::exchange(stored_, true)) return;
  ErrTrace::top("WindowPlacement.Form_Unload(frm)", ErrTrace::args(frm_), [&] {
    WindowFrame frame = FrameOf(window_);
    if (own_size_ && window_.size() == given_) frame.width = 0;
    if (own_size_ && frame.WindowState == kNormalWindow) sized_ = frame.width > 0;
    SaveWindowConfig(store_, frm_, frame);
    mRegSettings::Flush(store_);
  });
}
