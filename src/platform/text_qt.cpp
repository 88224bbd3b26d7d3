#include "platform/text_qt.h"

namespace text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Reads the code point at `at` and moves behind it; a bad byte is answered as U+DC00 + byte.
char32_t Decode(std::string_view t, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(t[i]); };
  const unsigned char first = byte(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xF0 && first < 0xF5 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
  if (more == 0 || first >= 0xF5 || at + static_cast<std::size_t>(more) > t.size()) {
    return 0xDC00 + first;
  }
  char32_t point = first & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    const unsigned char next = byte(at + static_cast<std::size_t>(i));
    if ((next & 0xC0) != 0x80) return 0xDC00 + first;
    point = point << 6 | (next & 0x3F);
  }
  const bool overlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
  if (overlong || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return 0xDC00 + first;
  at += static_cast<std::size_t>(more);
  return point;
}

void Append(QString& out, char32_t point) {
  if (point < 0x10000) {
    out += QChar(static_cast<char16_t>(point));
  } else {
    out += QChar(QChar::highSurrogate(point));
    out += QChar(QChar::lowSurrogate(point));
  }
}

char32_t Visible(char32_t point) {
  if (point >= 0xDC00 && point < 0xDD00) return kReplacement;
  if (point < 0x20) return 0x2400 + point;
  if (point == 0x7F) return 0x2421;
  // Line and paragraph separators, and the marks that turn the reading direction of what follows.
  if (point == 0x2028 || point == 0x2029 || (point >= 0x202A && point <= 0x202E) ||
      (point >= 0x2066 && point <= 0x2069)) {
    return kReplacement;
  }
  return point;
}

}  // namespace

QString ToQt(std::string_view t) {
  QString out;
  out.reserve(static_cast<qsizetype>(t.size()));
  for (std::size_t at = 0; at < t.size();) Append(out, Decode(t, at));
  return out;
}

std::string FromQt(const QString& t) {
  std::string out;
  out.reserve(static_cast<std::size_t>(t.size()));
  for (qsizetype i = 0; i < t.size(); ++i) {
    const QChar c = t[i];
    if (c.isHighSurrogate() && i + 1 < t.size() && t[i + 1].isLowSurrogate()) {
      out += t.mid(i++, 2).toUtf8().toStdString();
    } else if (c.unicode() >= 0xDC80 && c.unicode() <= 0xDCFF) {
      out += static_cast<char>(c.unicode() & 0xFF);
    } else {
      out += (c.isSurrogate() ? QString(QChar(QChar::ReplacementCharacter)) : QString(c))
                 .toUtf8()
                 .toStdString();
    }
  }
  return out;
}

QString Shown(std::string_view t) {
  QString out;
  out.reserve(static_cast<qsizetype>(t.size()));
  for (std::size_t at = 0; at < t.size();) Append(out, Visible(Decode(t, at)));
  return out;
}

}  // namespace text
