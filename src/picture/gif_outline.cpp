#include "picture/gif_outline.h"

#include <algorithm>

namespace {

// The blocks of a GIF file: https://www.w3.org/Graphics/GIF/spec-gif89a.txt
constexpr quint8 kExtension = 0x21;
constexpr quint8 kGraphicControl = 0xF9;
constexpr quint8 kImage = 0x2C;
constexpr quint8 kHasColours = 0x80;  // a colour table follows, of 2^(low three bits + 1) entries

// As Qt's reader and the web browsers do: what asks for less than 20 ms is shown for 100 ms.
constexpr int kLeastHundredths = 2;
constexpr int kUsualHundredths = 10;

class Walk {
 public:
  explicit Walk(const QByteArray& bytes) : bytes_(bytes) {}

  GifOutline Told() {
    out_.gif = bytes_.startsWith("GIF87a") || bytes_.startsWith("GIF89a");
    if (!out_.gif) return out_;
    at_ = 6;
    out_.width = Number();
    out_.height = Number();
    const quint8 flags = Byte();
    at_ += 2;
    SkipColours(flags);
    while (Block()) {
    }
    out_.whole = at_ <= bytes_.size();
    return out_;
  }

 private:
  // Past the end they are 0, and the place tells that it was left.
  quint8 Byte() {
    const qsizetype at = at_++;
    return at < bytes_.size() ? static_cast<quint8>(bytes_[at]) : 0;
  }
  int Number() {
    const int low = Byte();
    return low | Byte() << 8;
  }

  void SkipColours(quint8 flags) {
    if ((flags & kHasColours) != 0) at_ += 3 * (2 << (flags & 7));
  }

  void SkipParts() {
    while (at_ <= bytes_.size()) {
      const quint8 size = Byte();
      if (size == 0) return;
      at_ += size;
    }
  }

  bool Block() {
    if (at_ >= bytes_.size()) return false;
    const quint8 kind = Byte();
    if (kind == kImage) {
      Image();
    } else if (kind == kExtension) {
      Extension();
    } else {
      if (kind == 0) at_ = bytes_.size() + 1;
      return false;
    }
    return true;
  }

  void Extension() {
    const bool control = Byte() == kGraphicControl;
    if (control && at_ + 4 <= bytes_.size()) {
      const qsizetype begin = at_;
      at_ += 2;
      hundredths_ = Number();
      at_ = begin;
    }
    SkipParts();
  }

  void Image() {
    const qint64 left = Number();
    const qint64 top = Number();
    const qint64 width = Number();
    const qint64 height = Number();
    SkipColours(Byte());
    ++at_;  // the size of the codes
    SkipParts();
    out_.width = std::max(out_.width, left + width);
    out_.height = std::max(out_.height, top + height);
    if (at_ > bytes_.size()) return;
    ++out_.frames;
    out_.length += 10 * (hundredths_ < kLeastHundredths ? kUsualHundredths : hundredths_);
  }

  const QByteArray& bytes_;
  qsizetype at_ = 0;
  int hundredths_ = 0;
  GifOutline out_;
};

}  // namespace

GifOutline OutlineOf(const QByteArray& bytes) {
  return Walk(bytes).Told();
}
