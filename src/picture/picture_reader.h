#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QCoreApplication>
#include <QIODevice>
#include <QImage>
#include <QImageReader>
#include <QSize>
#include <memory>
#include <optional>
#include <vector>

/// What a picture may have at most.
struct PictureLimits {
  int bytes = 0;
  int pixels = 0;  ///< of one frame
  int frames = 0;
  int kept = 0;  ///< bytes of decoded frames that stay for the next pass; none do if it takes more
};

/// The bytes of a picture, or a plain reason why there are none.
struct PictureBytes {
  QByteArray bytes;
  QString problem;
};

/// All that is in the file or resource `path`, of at most `most` bytes. Only regular files are
/// read, since others might never end.
PictureBytes BytesOfFile(const QString& path, int most);
/// What `device` has to give now, from its present place on. One that isn't open is opened to be
/// read, and closed again.
PictureBytes BytesOfDevice(QIODevice& device, int most);

/// The frames of a picture, one after the other, from bytes in memory: a change of the file is not
/// seen. Whatever the bytes hold, no more than the frame shown and the decoder's own are kept,
/// unless the limits allow for more; then all are, and none is decoded twice, or none. (QMovie
/// isn't used: it opens the file again for each pass, decodes before its size can be refused, and
/// doesn't tell a cut file from one that has ended.)
class PictureReader {
  Q_DECLARE_TR_FUNCTIONS(PictureReader)

 public:
  /// Decodes nothing yet; `Problem` tells if the bytes are none that may be decoded.
  PictureReader(const QByteArray& bytes, const PictureLimits& limits);

  /// Decodes the next frame. False at the end, and when it can't be read: then there is a
  /// `Problem`.
  bool Next();
  /// Makes the first frame the next one.
  void Rewind();

  /// A plain reason why there is no further frame, empty while all is well.
  const QString& Problem() const { return problem_; }
  const QImage& Frame() const { return frame_; }
  /// The number of the last decoded frame from 0; -1 before the first one.
  int Index() const { return index_; }
  /// How long it is to be shown, in milliseconds.
  int Delay() const { return delay_; }
  /// The number of frames; 0 while it isn't known.
  int Count() const { return count_; }
  /// The milliseconds of one pass; 0 while they aren't known.
  qint64 Length() const { return length_; }
  QSize Size() const { return size_; }
  qint64 ByteCount() const { return buffer_.data().size(); }
  /// How often the file wants to be played; 0: without end.
  int FilePasses() const { return passes_; }
  /// Whether there is, or may be, more than one frame.
  bool Animated() const { return animated_ && count_ != 1; }

 private:
  bool CheckBytes();
  void Check();
  void CheckSize(qint64 width, qint64 height);
  bool Took(QImage&& image);
  void Keep();
  bool NextKept();
  void NoteEnd();

  struct Kept {
    QImage frame;
    int delay = 0;
  };

  PictureLimits limits_;
  QBuffer buffer_;
  std::optional<QImageReader> reader_;
  QImage frame_;
  QString problem_;
  QSize size_;
  bool animated_ = false;
  int passes_ = 1;
  int index_ = -1;
  int delay_ = 0;
  int count_ = 0;
  qint64 length_ = 0;
  qint64 passed_ = 0;  ///< what the frames of this pass have lasted
  std::vector<Kept> kept_;
  qint64 kept_bytes_ = 0;
  bool keeps_ = false;
  bool all_kept_ = false;  ///< the decoder has gone
};
