#include "platform/qt/text_qt.h"

#include <QStringList>

#include "platform/shown_signs.h"
#include "platform/text.h"
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
  char32_t before = 0;
  for (std::size_t at = 0; at < t.size();) {
    const char32_t point = utf8::Read(t, at);
    std::size_t next = at;
    const char32_t behind = at < t.size() ? utf8::Read(t, next) : 0;
    Append(out, IsShown(before, point, behind) ? point : kReplacement);
    before = point;
  }
  return out;
}

QString ShownLines(std::string_view t) {
  QStringList lines;
  for (std::string_view line : Split(t, "\n")) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.append(Shown(line));
  }
  return lines.join(u'\n');
}

}  // namespace text
