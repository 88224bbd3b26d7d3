#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>
#include <vector>

/// A frame of letters, rows parted by "/": k black, r red, g green, b blue, "." nothing.
struct GifFrame {
  int x;
  int y;
  const char* pixels;
  int hundredths = 5;
  int disposal = 1;  ///< 1 stays, 2 gives way to nothing, 3 to what was there before
};

constexpr const char* kGifColours = ".rgbk";  // an index each; the first is the transparent one

inline QByteArray Number16(int value) {
  return QByteArray(1, static_cast<char>(value & 255)) + static_cast<char>(value >> 8);
}

/// The indexes as codes of 4 bits; one to begin anew before each pair keeps the codes that short.
inline QByteArray GifCodes(const QByteArray& indexes) {
  QByteArray codes;
  for (int at = 0; at < indexes.size(); at += 2) {
    codes += char(8);
    codes += indexes.mid(at, 2);
  }
  codes += char(9);
  if (codes.size() % 2 != 0) codes += char(0);
  QByteArray parts;
  QByteArray bytes;
  for (int at = 0; at < codes.size(); at += 2) {
    bytes += static_cast<char>(codes[at] | codes[at + 1] << 4);
  }
  for (int at = 0; at < bytes.size(); at += 255) {
    const QByteArray part = bytes.mid(at, 255);
    parts += static_cast<char>(part.size()) + part;
  }
  return char(3) + parts + char(0);
}

/// A GIF file with a canvas of `size`, to be played `repeats` times more, 0 without end, -1 once.
inline QByteArray Gif(QSize size, const std::vector<GifFrame>& frames, int repeats = -1) {
  QByteArray file = "GIF89a" + Number16(size.width()) + Number16(size.height());
  file += QByteArray::fromHex(
      "a20000"
      "000000ff000000ff000000ff000000000000000000000000");
  if (repeats >= 0) file += "!\xff\x0bNETSCAPE2.0\x03\x01" + Number16(repeats) + char(0);
  for (const GifFrame& frame : frames) {
    const QList<QByteArray> rows = QByteArray(frame.pixels).split('/');
    QByteArray indexes;
    for (const char letter : rows.join()) {
      indexes += static_cast<char>(QByteArray(kGifColours).indexOf(letter));
    }
    file += "!\xf9\x04" + QByteArray(1, static_cast<char>(frame.disposal << 2 | 1)) +
            Number16(frame.hundredths) + QByteArray(2, '\0');
    file += ',' + Number16(frame.x) + Number16(frame.y) +
            Number16(static_cast<int>(rows[0].size())) + Number16(static_cast<int>(rows.size())) +
            char(0) + GifCodes(indexes);
  }
  return file + ';';
}
