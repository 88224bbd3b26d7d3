#include "picture/picture_reader.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QtEndian>
#include <algorithm>

#include "picture/gif_outline.h"

namespace {

constexpr qint64 kPart = 1 << 18;

QString Translated(const char* text) {
  return QCoreApplication::translate("PictureReader", text);
}

QString TooLong(int most) {
  return Translated(QT_TRANSLATE_NOOP("PictureReader", "The picture is larger than %1."))
      .arg(QLocale().formattedDataSize(most));
}

QString TooMany(int most) {
  return Translated(QT_TRANSLATE_NOOP("PictureReader", "The picture has more than %1 frames."))
      .arg(QLocale().toString(most));
}

QString NotOpened(const QIODevice& device) {
  return Translated(QT_TRANSLATE_NOOP("PictureReader", "The picture can't be opened: %1."))
      .arg(device.errorString());
}

QString NotRead(const QIODevice& device) {
  return Translated(QT_TRANSLATE_NOOP("PictureReader", "The picture can't be read: %1."))
      .arg(device.errorString());
}

// Qt's readers of these show the part that is there.
bool CutStill(const QByteArray& bytes) {
  const auto number = [&](qsizetype at) { return static_cast<quint8>(bytes[at]); };
  if (bytes.startsWith("BM") && bytes.size() >= 6) {
    return qFromLittleEndian<quint32>(bytes.constData() + 2) > bytes.size();
  }
  if (!bytes.startsWith("\xff\xd8")) return false;
  qsizetype at = 2;
  while (at + 4 <= bytes.size() && number(at) == 0xFF && number(at + 1) != 0xDA) {
    at += 2 + (number(at + 2) << 8 | number(at + 3));
  }
  return bytes.indexOf("\xff\xd9", at) < 0;
}

}  // namespace

PictureBytes BytesOfFile(const QString& path, int most) {
  const QFileInfo info(path);
  if (!info.exists()) {
    return {{}, Translated(QT_TRANSLATE_NOOP("PictureReader", "The file was not found."))};
  }
  if (!info.isFile()) {
    return {{}, Translated(QT_TRANSLATE_NOOP("PictureReader", "This is not a regular file."))};
  }
  QFile file(path);
  return BytesOfDevice(file, most);
}

PictureBytes BytesOfDevice(QIODevice& device, int most) {
  if (!device.isOpen()) {
    if (!device.open(QIODevice::ReadOnly)) return {{}, NotOpened(device)};
    PictureBytes read = BytesOfDevice(device, most);
    device.close();
    return read;
  }
  if (!device.isReadable()) {
    return {{}, Translated(QT_TRANSLATE_NOOP("PictureReader", "There is nothing to read from."))};
  }
  if (!device.isSequential() && device.size() - device.pos() > most) return {{}, TooLong(most)};
  PictureBytes read;
  QByteArray part(kPart, Qt::Uninitialized);
  while (read.bytes.size() <= most) {
    const qint64 got =
        device.read(part.data(), std::min(kPart, qint64{most} + 1 - read.bytes.size()));
    // What came in pieces has ended when the other side has closed.
    if (got < 0 && !(device.isSequential() && !read.bytes.isEmpty())) return {{}, NotRead(device)};
    if (got <= 0) break;
    read.bytes.append(part.constData(), got);
  }
  if (read.bytes.size() > most) return {{}, TooLong(most)};
  read.bytes.squeeze();
  return read;
}

PictureReader::PictureReader(const QByteArray& bytes, const PictureLimits& limits)
    : limits_(limits), keeps_(limits.kept > 0) {
  buffer_.setData(bytes);
  buffer_.open(QIODevice::ReadOnly);
  if (!CheckBytes()) return;
  Rewind();
  Check();
}

// What can be told before any reader has touched the bytes.
bool PictureReader::CheckBytes() {
  const GifOutline outline = OutlineOf(buffer_.data());
  if (buffer_.data().isEmpty()) {
    problem_ = tr("The picture is empty.");
  } else if (buffer_.data().size() > limits_.bytes) {
    problem_ = TooLong(limits_.bytes);
  } else if (outline.gif && !outline.whole) {
    problem_ = tr("The picture is cut off in frame %1.").arg(outline.frames + 1);
  } else if (CutStill(buffer_.data())) {
    problem_ = tr("The picture is cut off.");
  } else if (outline.gif && outline.frames == 0) {
    problem_ = tr("The picture has no frames.");
  } else {
    count_ = outline.frames;
    length_ = outline.length;
    CheckSize(outline.width, outline.height);
  }
  return problem_.isEmpty();
}

void PictureReader::Check() {
  if (!reader_->canRead()) {
    problem_ = tr("This is not a picture of a known format.");
    return;
  }
  size_ = reader_->size();
  CheckSize(size_.width(), size_.height());
  if (!problem_.isEmpty()) return;
  animated_ = reader_->supportsAnimation();
  if (!animated_) {
    count_ = 1;
  } else {
    if (count_ == 0) count_ = std::max(0, reader_->imageCount());
    const int more = reader_->loopCount();
    passes_ = more < 0 ? 0 : more + 1;
  }
  if (count_ > limits_.frames) {
    problem_ = TooMany(limits_.frames);
  }
}

void PictureReader::CheckSize(qint64 width, qint64 height) {
  if (width <= 0 || height <= 0 || width * height <= limits_.pixels) return;
  problem_ = tr("The picture is larger than %1 pixels.").arg(QLocale().toString(limits_.pixels));
}

void PictureReader::Rewind() {
  index_ = -1;
  passed_ = 0;
  if (all_kept_) return;
  buffer_.seek(0);
  reader_.emplace(&buffer_);
  reader_->setAutoTransform(true);
}

bool PictureReader::Next() {
  if (!problem_.isEmpty()) return false;
  if (all_kept_) return NextKept();
  if (index_ >= 0 && (!animated_ || !reader_->canRead())) {
    NoteEnd();
    return false;
  }
  if (index_ + 1 >= limits_.frames) {
    problem_ = TooMany(limits_.frames);
    return false;
  }
  return Took(reader_->read());
}

bool PictureReader::Took(QImage&& image) {
  if (image.isNull()) {
    problem_ = reader_->error() == QImageReader::UnknownError
                   ? tr("Frame %1 can't be read.").arg(index_ + 2)
                   : tr("Frame %1 can't be read: %2.").arg(index_ + 2).arg(reader_->errorString());
    return false;
  }
  CheckSize(image.width(), image.height());
  if (!problem_.isEmpty()) return false;
  frame_ = std::move(image);
  size_ = frame_.size();
  delay_ = reader_->nextImageDelay();
  passed_ += delay_;
  ++index_;
  Keep();
  return true;
}

// Where not all find room none is worth it: a frame is decoded on the one before it.
void PictureReader::Keep() {
  if (!keeps_ || !animated_ || index_ < static_cast<int>(kept_.size())) return;
  kept_bytes_ += frame_.sizeInBytes();
  if (kept_bytes_ <= limits_.kept) {
    kept_.push_back({frame_, delay_});
  } else {
    keeps_ = false;
    kept_ = {};
  }
}

bool PictureReader::NextKept() {
  if (index_ + 1 == static_cast<int>(kept_.size())) return false;
  const Kept& next = kept_[++index_];
  frame_ = next.frame;
  size_ = frame_.size();
  delay_ = next.delay;
  return true;
}

// The reader's word on where the frames end is worth more than what was counted before.
void PictureReader::NoteEnd() {
  count_ = index_ + 1;
  length_ = animated_ ? passed_ : 0;
  if (!keeps_ || !animated_) return;
  all_kept_ = true;
  reader_.reset();
}
