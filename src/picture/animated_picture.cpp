#include "picture/animated_picture.h"

#include <QApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <optional>
#include <utility>

#include "picture/accessible_picture.h"
#include "picture/finer_picture.h"
#include "picture/picture_player.h"

namespace {

int Within(int value, const AnimatedPicture::Bounds& bounds) {
  return std::clamp(value, bounds.least, bounds.most);
}

}  // namespace

AnimatedPicture::AnimatedPicture(QWidget* parent)
    : QFrame(parent), player_(std::make_unique<PicturePlayer>([this] { return Seen(); })) {
  MakeAccessible();
  FollowPlayer();
}

AnimatedPicture::~AnimatedPicture() = default;

void AnimatedPicture::FollowPlayer() {
  connect(player_.get(), &PicturePlayer::FrameChanged, this, [this](int frame) {
    update(contentsRect());
    emit frameChanged(frame);
  });
  connect(player_.get(), &PicturePlayer::PlayingChanged, this, [this](bool playing) {
    update();
    TellPlaying(*this);
    emit playingChanged(playing);
  });
  connect(player_.get(), &PicturePlayer::Failed, this, [this](const QString& reason) {
    FollowClicks();
    updateGeometry();
    update();
    const QPointer<AnimatedPicture> self(this);
    TellFailure();
    if (self != nullptr) emit failed(reason);
  });
  connect(player_.get(), &PicturePlayer::Finished, this, &AnimatedPicture::finished);
}

void AnimatedPicture::setSource(const QString& source) {
  if (source == source_ && data_.isEmpty() && !(source.isEmpty() && !failure().isEmpty())) return;
  source_ = source;
  data_.clear();
  Load();
}

void AnimatedPicture::setData(const QByteArray& data) {
  source_.clear();
  data_ = data;
  Load();
}

void AnimatedPicture::setDevice(QIODevice* device) {
  const PictureBytes read = device != nullptr ? BytesOfDevice(*device, max_bytes_) : PictureBytes();
  source_.clear();
  data_ = read.bytes;
  ratio_ = 1;
  device != nullptr ? Take(read) : Load();
}

void AnimatedPicture::reload() {
  Load();
}

void AnimatedPicture::Load() {
  ratio_ = 1;
  if (!source_.isEmpty()) {
    const auto [path, ratio] = FinestFor(source_, qApp->devicePixelRatio());
    ratio_ = ratio;
    Take(BytesOfFile(path, max_bytes_));
  } else if (!data_.isEmpty()) {
    Take({data_, {}});
  } else if (player_->Clear()) {
    Settle();
  }
}

void AnimatedPicture::Take(const PictureBytes& read) {
  const QPointer<AnimatedPicture> self(this);
  player_->Take(read, {.bytes = max_bytes_,
                       .pixels = max_pixels_,
                       .frames = max_frames_,
                       .kept = cached_ ? max_cache_bytes_ : 0});
  if (self != nullptr) Settle();
}

void AnimatedPicture::Settle() {
  const QPointer<AnimatedPicture> self(this);
  FollowClicks();
  updateGeometry();
  if (autoplay_ && !OnRequest()) player_->Play();
  if (self != nullptr) TellFailure();
  if (self != nullptr) emit sourceChanged();
}

void AnimatedPicture::TellFailure() {
  if (failure() == told_failure_) return;
  told_failure_ = failure();
  emit failureChanged(failure());
}

bool AnimatedPicture::playing() const {
  return player_->Playing();
}

QString AnimatedPicture::failure() const {
  return player_->Failure();
}

bool AnimatedPicture::animated() const {
  return player_->Animated();
}

int AnimatedPicture::frame() const {
  return player_->Picture() != nullptr ? player_->Picture()->Index() : 0;
}

int AnimatedPicture::frameCount() const {
  return player_->Picture() != nullptr ? player_->Picture()->Count() : 0;
}

qint64 AnimatedPicture::length() const {
  return player_->Picture() != nullptr ? player_->Picture()->Length() : 0;
}

QSize AnimatedPicture::pictureSize() const {
  return player_->Picture() != nullptr ? player_->Picture()->Size() : QSize();
}

qint64 AnimatedPicture::byteCount() const {
  return player_->Picture() != nullptr ? player_->Picture()->ByteCount() : 0;
}

void AnimatedPicture::setAutoplay(bool autoplay) {
  if (autoplay == autoplay_) return;
  autoplay_ = autoplay;
  emit autoplayChanged(autoplay);
}

void AnimatedPicture::setMotion(Motion motion) {
  if (motion == motion_) return;
  motion_ = motion;
  const QPointer<AnimatedPicture> self(this);
  FollowMotion();
  if (self != nullptr) emit motionChanged(motion);
}

void AnimatedPicture::setInteractive(bool interactive) {
  if (interactive == interactive_) return;
  interactive_ = interactive;
  FollowClicks();
  emit interactiveChanged(interactive);
}

void AnimatedPicture::setSpeed(int speed) {
  speed = Within(speed, kSpeed);
  if (speed == speed_) return;
  speed_ = speed;
  player_->SetSpeed(speed);
  emit speedChanged(speed);
}

void AnimatedPicture::setLoops(Loops loops) {
  loops = static_cast<Loops>(std::clamp(static_cast<int>(loops), 0, 3));
  if (loops == loops_) return;
  loops_ = loops;
  FollowLoops();
  emit loopsChanged(loops);
}

void AnimatedPicture::setLoopCount(int count) {
  count = Within(count, kLoopCount);
  if (count == loop_count_) return;
  loop_count_ = count;
  FollowLoops();
  emit loopCountChanged(count);
}

void AnimatedPicture::FollowLoops() {
  const std::optional<int> passes[] = {std::nullopt, 1, 0, loop_count_};
  player_->SetPasses(passes[static_cast<int>(loops_)]);
}

void AnimatedPicture::setAccessibleDescription(const QString& description) {
  if (description == accessibleDescription()) return;
  QFrame::setAccessibleDescription(description);
  emit accessibleDescriptionChanged(description);
}

void AnimatedPicture::setCached(bool cached) {
  if (cached == cached_) return;
  cached_ = cached;
  emit cachedChanged(cached);
}

void AnimatedPicture::setMaxCacheBytes(int most) {
  SetLimit(max_cache_bytes_, Within(most, kMaxCacheBytes));
}

void AnimatedPicture::setMaxBytes(int most) {
  SetLimit(max_bytes_, Within(most, kMaxBytes));
}

void AnimatedPicture::setMaxPixels(int most) {
  SetLimit(max_pixels_, Within(most, kMaxPixels));
}

void AnimatedPicture::setMaxFrames(int most) {
  SetLimit(max_frames_, Within(most, kMaxFrames));
}

void AnimatedPicture::SetLimit(int& limit, int most) {
  if (most == limit) return;
  limit = most;
  emit limitsChanged();
}

void AnimatedPicture::setFrame(int frame) {
  player_->Seek(frame);
}

void AnimatedPicture::play() {
  player_->Play();
}

void AnimatedPicture::pause() {
  player_->Pause();
}

void AnimatedPicture::stop() {
  player_->Stop();
}

void AnimatedPicture::step() {
  player_->Step();
}

bool AnimatedPicture::OnRequest() const {
  if (motion_ != Motion::AsDesktop) return motion_ == Motion::OnRequest;
  return style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0;
}

bool AnimatedPicture::takesClicks() const {
  return animated() && (interactive_ || OnRequest());
}

void AnimatedPicture::Toggle() {
  playing() ? pause() : play();
}

// The owner's own choice of focus stands; only what was added here is taken back.
void AnimatedPicture::FollowClicks() {
  const bool takes = takesClicks();
  if (takes && focusPolicy() == Qt::NoFocus) {
    setFocusPolicy(Qt::StrongFocus);
    made_focusable_ = true;
  } else if (!takes && made_focusable_) {
    setFocusPolicy(Qt::NoFocus);
    made_focusable_ = false;
  }
  update();
}

void AnimatedPicture::FollowMotion() {
  const QPointer<AnimatedPicture> self(this);
  if (OnRequest()) pause();
  if (self != nullptr) FollowClicks();
}

bool AnimatedPicture::Seen() const {
  const QWindow* handle = window()->windowHandle();
  return isVisible() && !window()->isMinimized() && (handle == nullptr || handle->isExposed()) &&
         !visibleRegion().isEmpty();
}

// A window that comes back shows what it kept and paints nothing by itself.
void AnimatedPicture::WatchWindow() {
  for (auto [watched, now] :
       {std::pair(&window_, static_cast<QObject*>(window())),
        std::pair(&handle_, static_cast<QObject*>(window()->windowHandle()))}) {
    if (*watched == now) continue;
    if (*watched != nullptr && *watched != this) (*watched)->removeEventFilter(this);
    *watched = now;
    if (now != nullptr) now->installEventFilter(this);
  }
}

bool AnimatedPicture::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowStateChange || event->type() == QEvent::Expose) update();
  return QFrame::eventFilter(watched, event);
}

void AnimatedPicture::showEvent(QShowEvent* event) {
  QFrame::showEvent(event);
  WatchWindow();
}

void AnimatedPicture::hideEvent(QHideEvent* event) {
  QFrame::hideEvent(event);
  player_->Halt();
}

void AnimatedPicture::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::EnabledChange || event->type() == QEvent::LayoutDirectionChange)
    update();
  if (event->type() == QEvent::StyleChange) FollowMotion();
}

bool AnimatedPicture::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && !failure().isEmpty()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), failure().toHtmlEscaped(),
                       this);
    return true;
  }
  return QFrame::event(event);
}

void AnimatedPicture::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || !takesClicks()) {
    QFrame::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    Toggle();
  }
}

void AnimatedPicture::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton && takesClicks();
  event->setAccepted(pressed_);
}

void AnimatedPicture::mouseReleaseEvent(QMouseEvent* event) {
  if (std::exchange(pressed_, false) && rect().contains(event->position().toPoint())) Toggle();
}
