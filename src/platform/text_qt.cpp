#include "platform/text_qt.h"

#include "platform/utf8.h"

namespace text {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBadByteInQt = 0xDC00;

void Append(QString& out, char32_t point) {
  if (point < 0x10000) {
    out += QChar(static_cast<char16_t>(point));
  } else {
    out += QChar(QChar::highSurrogate(point));
    out += QChar(QChar::lowSurrogate(point));
  }
}

char32_t Visible(char32_t point) {
  // Line and paragraph separators, and the marks that turn the reading direction of what follows.
  const bool format = (point >= 0x2028 && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
  // Control characters of ASCII and of Latin-1; few fonts have the pictures of them.
  const bool control = point < 0x20 || (point >= 0x7F && point < 0xA0);
  return format || control || point >= utf8::kBadByte ? kReplacement : point;
}

}  // namespace

QString ToQt(std::string_view t) {
  QString out;
  out.reserve(static_cast<qsizetype>(t.size()));
  for (std::size_t at = 0; at < t.size();) {
    const char32_t point = utf8::Read(t, at);
    Append(out, point >= utf8::kBadByte ? kBadByteInQt + (point - utf8::kBadByte) : point);
  }
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
  for (std::size_t at = 0; at < t.size();) Append(out, Visible(utf8::Read(t, at)));
  return out;
}

}  // namespace text
