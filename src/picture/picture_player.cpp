#include "picture/picture_player.h"

#include <QPointer>
#include <QTimerEvent>
#include <algorithm>
#include <utility>

namespace {

// Between two frames, so that a picture without a moment's rest leaves the window its time.
constexpr qint64 kLeastWait = 5;
constexpr qint64 kSlice = 15;  // of a walk to a frame that is far, in milliseconds

}  // namespace

void PicturePlayer::Take(const PictureBytes& read, const PictureLimits& limits) {
  const int mine = ++taken_;
  if (!Clear() || mine != taken_) return;  // who was told has set another one
  if (!read.problem.isEmpty()) {
    Fail(read.problem);
    return;
  }
  reader_.emplace(read.bytes, limits);
  if (reader_->Next()) {
    Show();
  } else {
    Fail(reader_->Problem());
  }
}

bool PicturePlayer::Clear() {
  seek_.stop();
  failure_.clear();
  reader_.reset();
  passes_ = 0;
  ended_ = false;
  return SetPlaying(false);
}

void PicturePlayer::Fail(const QString& reason) {
  QString kept = reason;  // it may be the reader's own
  if (!Clear()) return;
  failure_ = std::move(kept);
  emit Failed(QString(failure_));  // who is told may set another picture
}

bool PicturePlayer::SetPlaying(bool playing) {
  next_.stop();
  if (playing == playing_) return true;
  playing_ = playing;
  const QPointer<PicturePlayer> self(this);
  emit PlayingChanged(playing);
  return self != nullptr;
}

void PicturePlayer::SetSpeed(int per_cent) {
  speed_ = per_cent;
  if (next_.isActive()) next_.start(WaitLeft(), Qt::PreciseTimer, this);
}

void PicturePlayer::Play() {
  if (!Animated() || playing_) return;
  since_.restart();
  const QPointer<PicturePlayer> self(this);
  if (ended_) Begin();
  if (self != nullptr && reader_) SetPlaying(true);
}

// The first frame is as good as any other: what has been read may still turn out broken.
void PicturePlayer::Begin() {
  ended_ = false;
  reader_->Rewind();
  if (reader_->Next()) {
    Show();
  } else {
    Fail(reader_->Problem());
  }
}

void PicturePlayer::Stop() {
  passes_ = 0;
  if (SetPlaying(false)) Seek(0);
}

void PicturePlayer::Step() {
  seek_.stop();
  if (!SetPlaying(false) || !Animated()) return;
  if (!ended_ && reader_->Next()) {
    Show();
  } else if (!reader_->Problem().isEmpty()) {
    Fail(reader_->Problem());
  } else {
    Begin();
  }
}

void PicturePlayer::Seek(int frame) {
  if (!reader_) return;
  ended_ = false;
  sought_ = std::max(frame, 0);
  if (reader_->Count() > 0) sought_ = std::min(sought_, reader_->Count() - 1);
  if (sought_ == reader_->Index() && !seek_.isActive()) return;
  next_.stop();
  if (sought_ < reader_->Index()) reader_->Rewind();
  SeekOn();
}

void PicturePlayer::SeekOn() {
  QElapsedTimer taken;
  taken.start();
  seek_.stop();
  while (reader_->Index() < sought_ && reader_->Next()) {
    if (taken.elapsed() < kSlice || reader_->Index() == sought_) continue;
    seek_.start(0, this);
    return;
  }
  if (reader_->Problem().isEmpty()) {
    Show();
  } else {
    Fail(reader_->Problem());
  }
}

void PicturePlayer::Show() {
  since_.restart();
  emit FrameChanged(reader_->Index());
}

void PicturePlayer::Painted() {
  if (!playing_ || next_.isActive() || seek_.isActive() || !seen_()) return;
  next_.start(WaitLeft(), Qt::PreciseTimer, this);
}

// No frame is shown shorter than it took to decode: the window has at least half of the time.
int PicturePlayer::WaitLeft() const {
  const qint64 whole = qint64{reader_->Delay()} * 100 / speed_;
  const qint64 left = whole - (since_.isValid() ? since_.elapsed() : 0);
  return static_cast<int>(
      std::clamp<qint64>(left, std::max(decoding_, kLeastWait), 24 * 3600 * 1000));
}

void PicturePlayer::timerEvent(QTimerEvent* event) {
  if (event->timerId() == seek_.timerId()) {
    SeekOn();
  } else if (event->timerId() == next_.timerId()) {
    next_.stop();
    if (seen_()) Advance();
  }
}

void PicturePlayer::Advance() {
  QElapsedTimer cost;
  cost.start();
  const bool more = reader_->Next();
  decoding_ = cost.elapsed();
  if (more) {
    Show();
  } else if (reader_->Problem().isEmpty()) {
    EndPass();
  } else {
    Fail(reader_->Problem());
  }
}

void PicturePlayer::EndPass() {
  const int wanted = reader_->Animated() ? wanted_passes_.value_or(reader_->FilePasses()) : 1;
  ++passes_;
  if (wanted == 0 || passes_ < wanted) {
    Begin();
    return;
  }
  passes_ = 0;
  ended_ = true;
  if (SetPlaying(false)) emit Finished();
}
