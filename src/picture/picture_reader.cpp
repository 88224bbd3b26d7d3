#include "picture/picture_reader.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QtEndian>
#include <algorithm>

#include "picture/gif_outline.h"

namespace {

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
  if (!file.open(QIODevice::ReadOnly)) {
    return {{},
            Translated(QT_TRANSLATE_NOOP("PictureReader", "The file can't be opened: %1."))
                .arg(file.errorString())};
  }
  return BytesOfDevice(file, most);
}

PictureBytes BytesOfDevice(QIODevice& device, int most) {
  if (!device.isReadable()) {
    return {{}, Translated(QT_TRANSLATE_NOOP("PictureReader", "There is nothing to read from."))};
  }
  if (!device.isSequential() && device.size() - device.pos() > most) return {{}, TooLong(most)};
  PictureBytes read;
  while (read.bytes.size() <= most) {
    const QByteArray part =
        device.read(std::min<qint64>(1 << 20, qint64{most} + 1 - read.bytes.size()));
    if (part.isEmpty()) break;
    read.bytes += part;
  }
  if (read.bytes.size() > most) return {{}, TooLong(most)};
  read.bytes.squeeze();
  return read;
}

PictureReader::PictureReader(const QByteArray& bytes, const PictureLimits& limits)
    : limits_(limits) {
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
  buffer_.seek(0);
  reader_.emplace(&buffer_);
  reader_->setAutoTransform(true);
  index_ = -1;
  passed_ = 0;
}

bool PictureReader::Next() {
  if (!problem_.isEmpty()) return false;
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
    problem_ = tr("Frame %1 can't be read.").arg(index_ + 2);
    return false;
  }
  CheckSize(image.width(), image.height());
  if (!problem_.isEmpty()) return false;
  frame_ = std::move(image);
  size_ = frame_.size();
  delay_ = reader_->nextImageDelay();
  passed_ += delay_;
  ++index_;
  return true;
}

// The reader's word on where the frames end is worth more than what was counted before.
void PictureReader::NoteEnd() {
  count_ = index_ + 1;
  length_ = animated_ ? passed_ : 0;
}
