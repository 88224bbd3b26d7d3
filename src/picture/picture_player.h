#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <functional>
#include <optional>

#include "picture/picture_reader.h"

/// Walks through the frames of a picture in their time: which one stands, and when the next one
/// comes. The clock of a frame starts when it is told that it was painted, so what nobody sees
/// costs nothing. Whoever a signal tells may delete it.
class PicturePlayer : public QObject {
  Q_OBJECT

 public:
  /// `seen` answers whether there is anybody to play for.
  explicit PicturePlayer(std::function<bool()> seen) : seen_(std::move(seen)) {}

  /// Puts the picture in the place of the former one, at its first frame.
  void Take(const PictureBytes& read, const PictureLimits& limits);
  /// False when who was told has deleted this.
  bool Clear();
  /// The picture, or nothing when there is none.
  const PictureReader* Picture() const { return reader_ ? &*reader_ : nullptr; }
  /// Why there is none; empty when none was given.
  const QString& Failure() const { return failure_; }
  bool Playing() const { return playing_; }
  bool Animated() const { return reader_ && reader_->Animated(); }

  void SetSpeed(int per_cent);
  /// How often it plays: 0 without end, nothing as the file says.
  void SetPasses(std::optional<int> passes) { wanted_passes_ = passes; }

  void Play();
  void Pause() { SetPlaying(false); }
  /// Pauses at the first frame; "play" counts its passes anew.
  void Stop();
  void Step();
  /// Goes to `frame` or the last one, and there in slices between events when it is far.
  void Seek(int frame);
  /// The frame has been painted.
  void Painted();
  /// Nobody looks any more; goes on with the next `Painted`.
  void Halt() { next_.stop(); }

 signals:
  void FrameChanged(int frame);
  void PlayingChanged(bool playing);
  void Finished();
  void Failed(const QString& reason);

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Fail(const QString& reason);
  bool SetPlaying(bool playing);  ///< false when who was told has deleted this
  void Begin();
  void Advance();
  void EndPass();
  void SeekOn();
  void Show();
  int WaitLeft() const;

  std::function<bool()> seen_;
  std::optional<PictureReader> reader_;
  QString failure_;
  QBasicTimer next_;
  QBasicTimer seek_;
  QElapsedTimer since_;  ///< the frame stands
  qint64 decoding_ = 0;  ///< milliseconds that it has cost
  int speed_ = 100;
  std::optional<int> wanted_passes_;
  int passes_ = 0;  ///< that have ended
  int sought_ = 0;
  int taken_ = 0;  ///< pictures so far
  bool playing_ = false;
  bool ended_ = false;  ///< so "play" begins anew
};
