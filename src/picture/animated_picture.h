#pragma once

#include <QByteArray>
#include <QColor>
#include <QFrame>
#include <QPointer>
#include <QString>
#include <memory>

class PicturePlayer;
class QIODevice;
struct PictureBytes;

/// Plays an animated picture (GIF, and whatever else Qt's readers animate); a still one is its
/// single frame. No time is spent while nobody can see it, and no more than two frames are kept,
/// unless `cached` asks for all. The border around it is a QFrame's. Whoever a signal tells may
/// delete the picture.
///
/// A number outside of its bounds becomes the nearest one within. A picture that is broken, cut or
/// beyond a limit is never shown in part: `failed` tells why, and a quiet mark stands in its place.
class AnimatedPicture : public QFrame {
  Q_OBJECT
  Q_PROPERTY(int maxBytes READ maxBytes WRITE setMaxBytes NOTIFY limitsChanged)
  Q_PROPERTY(int maxPixels READ maxPixels WRITE setMaxPixels NOTIFY limitsChanged)
  Q_PROPERTY(int maxFrames READ maxFrames WRITE setMaxFrames NOTIFY limitsChanged)
  Q_PROPERTY(bool cached READ cached WRITE setCached NOTIFY cachedChanged)
  Q_PROPERTY(int maxCacheBytes READ maxCacheBytes WRITE setMaxCacheBytes NOTIFY limitsChanged)
  Q_PROPERTY(bool autoplay READ autoplay WRITE setAutoplay NOTIFY autoplayChanged)
  Q_PROPERTY(Motion motion READ motion WRITE setMotion NOTIFY motionChanged)
  Q_PROPERTY(bool interactive READ interactive WRITE setInteractive NOTIFY interactiveChanged)
  Q_PROPERTY(int speed READ speed WRITE setSpeed NOTIFY speedChanged)
  Q_PROPERTY(Loops loops READ loops WRITE setLoops NOTIFY loopsChanged)
  Q_PROPERTY(int loopCount READ loopCount WRITE setLoopCount NOTIFY loopCountChanged)
  Q_PROPERTY(ScaleMode scaleMode READ scaleMode WRITE setScaleMode NOTIFY scaleModeChanged)
  Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment NOTIFY alignmentChanged)
  Q_PROPERTY(QColor background READ background WRITE setBackground RESET resetBackground NOTIFY
                 backgroundChanged)
  Q_PROPERTY(Shape frameShape READ frameShape WRITE setFrameShape NOTIFY frameStyleChanged)
  Q_PROPERTY(Shadow frameShadow READ frameShadow WRITE setFrameShadow NOTIFY frameStyleChanged)
  Q_PROPERTY(int lineWidth READ lineWidth WRITE setLineWidth NOTIFY lineWidthChanged)
  Q_PROPERTY(QString accessibleDescription READ accessibleDescription WRITE setAccessibleDescription
                 NOTIFY accessibleDescriptionChanged)
  Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged)
  Q_PROPERTY(
      QByteArray data READ data WRITE setData NOTIFY sourceChanged DESIGNABLE false STORED false)
  Q_PROPERTY(int frame READ frame WRITE setFrame NOTIFY frameChanged)
  Q_PROPERTY(bool playing READ playing NOTIFY playingChanged)
  Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)

 public:
  enum class Loops { AsFile, Once, Forever, Count };
  Q_ENUM(Loops)
  /// `Fit` shows all of the picture as large as there is room, `Fill` fills the room and cuts off
  /// what is over, `Stretch` also gives up the picture's shape.
  enum class ScaleMode { ActualSize, Fit, Fill, Stretch };
  Q_ENUM(ScaleMode)
  /// `OnRequest`: nothing moves until a click, Space or `play` asks for it. `AsDesktop` is that
  /// when the style has been told not to animate (QStyle::SH_Widget_Animation_Duration is 0), else
  /// `Free`.
  enum class Motion { AsDesktop, Free, OnRequest };
  Q_ENUM(Motion)

  struct Bounds {
    int least;
    int most;
    int usual;
  };
  static constexpr Bounds kSpeed{1, 1000, 100};  ///< per cent
  static constexpr Bounds kLoopCount{1, 1'000'000, 2};
  static constexpr Bounds kMaxBytes{1, 0x7fff'fffe, 64 << 20};
  /// Qt's own QImageReader::allocationLimit, 32 million pixels unless set, is a limit too.
  static constexpr Bounds kMaxPixels{1, 1 << 28, 16 << 20};
  static constexpr Bounds kMaxFrames{1, 1'000'000, 20'000};
  static constexpr Bounds kMaxCacheBytes{1, 0x7fff'fffe, 64 << 20};
  static constexpr Bounds kLineWidth{0, 100, 1};

  explicit AnimatedPicture(QWidget* parent = nullptr);
  ~AnimatedPicture() override;

  /// A file or a resource (":/..."), read when it is set and again by `reload` only. Where the
  /// screen is finer and there is a "name@2x.gif" or "name@3x.gif" beside it, that is taken and
  /// shown at the size of "name.gif". Empty: no picture.
  QString source() const { return source_; }
  /// The bytes of a picture in the place of a file. Kept as long as they are shown.
  QByteArray data() const { return data_; }
  /// The same, from what `device` has to give now; it isn't needed afterwards. One that isn't open
  /// is opened to be read, and closed again.
  void setDevice(QIODevice* device);
  /// Whether the picture plays as soon as it is set.
  bool autoplay() const { return autoplay_; }
  Motion motion() const { return motion_; }
  /// Whether a click or Space plays and pauses. Under `OnRequest` they always do.
  bool interactive() const { return interactive_; }
  /// In per cent of the file's own.
  int speed() const { return speed_; }
  Loops loops() const { return loops_; }
  /// How often it plays with `Loops::Count`.
  int loopCount() const { return loop_count_; }
  ScaleMode scaleMode() const { return scale_mode_; }
  /// Where in the room the picture stands; left and right change sides from right to left, unless
  /// Qt::AlignAbsolute is set.
  Qt::Alignment alignment() const { return alignment_; }
  /// What the room is filled with under the picture; none when invalid.
  QColor background() const { return background_; }
  /// The frame that is shown, from 0.
  int frame() const;
  /// The limits hold for what is set or reloaded afterwards.
  int maxBytes() const { return max_bytes_; }
  int maxPixels() const { return max_pixels_; }
  int maxFrames() const { return max_frames_; }
  /// Whether decoded frames are kept, so that only the first pass decodes. Where all of them would
  /// take more than `maxCacheBytes`, none is. Both hold for what is set or reloaded afterwards.
  bool cached() const { return cached_; }
  int maxCacheBytes() const { return max_cache_bytes_; }

  /// Whether it plays, be it that nobody sees it just now.
  bool playing() const;
  /// Why there is no picture; empty when there is one or none is wanted.
  QString failure() const;
  /// Whether a click or Space plays and pauses it now.
  bool takesClicks() const;
  /// Whether it has, or may have, more than one frame.
  bool animated() const;
  /// 0 while it isn't known, as with formats that don't tell.
  int frameCount() const;
  /// The milliseconds of one pass at full speed; 0 while they aren't known.
  qint64 length() const;
  /// In pixels of the file.
  QSize pictureSize() const;
  qint64 byteCount() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 public slots:
  void setSource(const QString& source);
  void setData(const QByteArray& data);
  /// Reads the source again and begins anew.
  void reload();
  void setAutoplay(bool autoplay);
  void setMotion(AnimatedPicture::Motion motion);
  void setInteractive(bool interactive);
  void setSpeed(int speed);
  void setLoops(AnimatedPicture::Loops loops);
  void setLoopCount(int count);
  void setScaleMode(AnimatedPicture::ScaleMode mode);
  void setAlignment(Qt::Alignment alignment);
  void setBackground(const QColor& background);
  void resetBackground() { setBackground({}); }
  void setFrameShape(QFrame::Shape shape);
  void setFrameShadow(QFrame::Shadow shadow);
  /// Shape and shadow in one.
  void setFrameStyle(int style);
  void setLineWidth(int width);
  void setAccessibleDescription(const QString& description);
  void setCached(bool cached);
  void setMaxCacheBytes(int most);
  void setMaxBytes(int most);
  void setMaxPixels(int most);
  void setMaxFrames(int most);
  /// Goes to a frame, or to the last one when there are less. One that is far on is reached while
  /// events run; `frameChanged` tells when.
  void setFrame(int frame);
  /// Plays on, after the end from the beginning. Nothing, if the picture isn't animated.
  void play();
  void pause();
  /// Pauses at the first frame.
  void stop();
  /// Pauses at the next frame, after the last one at the first.
  void step();

 signals:
  /// The last pass has ended; its last frame stays.
  void finished();
  void frameChanged(int frame);
  /// There is no picture, and why.
  void failed(const QString& reason);
  void failureChanged(const QString& failure);
  void playingChanged(bool playing);
  void sourceChanged();
  void limitsChanged();
  void autoplayChanged(bool autoplay);
  void motionChanged(AnimatedPicture::Motion motion);
  void interactiveChanged(bool interactive);
  void speedChanged(int speed);
  void loopsChanged(AnimatedPicture::Loops loops);
  void loopCountChanged(int count);
  void scaleModeChanged(AnimatedPicture::ScaleMode mode);
  void alignmentChanged(Qt::Alignment alignment);
  void backgroundChanged(const QColor& background);
  void frameStyleChanged();
  void lineWidthChanged(int width);
  void cachedChanged(bool cached);
  void accessibleDescriptionChanged(const QString& description);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void Load();
  void Take(const PictureBytes& read);
  void Settle();
  void TellFailure();
  void FollowPlayer();
  void FollowLoops();
  void SetLimit(int& limit, int most);
  void Toggle();
  bool OnRequest() const;
  void FollowClicks();
  void FollowMotion();
  bool Seen() const;
  void WatchWindow();
  QSize Hint() const;
  QRect Target() const;
  void PaintPicture(QPainter& painter) const;

  std::unique_ptr<PicturePlayer> player_;
  QString source_;
  QByteArray data_;
  QString told_failure_;
  QPointer<QObject> window_;  ///< whose state is watched, and its handle's exposure
  QPointer<QObject> handle_;
  int ratio_ = 1;  ///< pixels of the file a logical one
  bool pressed_ = false;
  bool made_focusable_ = false;

  Motion motion_ = Motion::AsDesktop;
  Loops loops_ = Loops::AsFile;
  ScaleMode scale_mode_ = ScaleMode::ActualSize;
  Qt::Alignment alignment_ = Qt::AlignCenter;
  QColor background_;
  int speed_ = kSpeed.usual;
  int loop_count_ = kLoopCount.usual;
  int max_bytes_ = kMaxBytes.usual;
  int max_pixels_ = kMaxPixels.usual;
  int max_frames_ = kMaxFrames.usual;
  int max_cache_bytes_ = kMaxCacheBytes.usual;
  bool cached_ = false;
  bool autoplay_ = true;
  bool interactive_ = false;
};
