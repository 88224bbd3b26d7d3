#include "platform/qt/settings_names_qt.h"

#include "platform/qt/text_qt.h"

namespace settings_names {
namespace {

void AppendHex(QString& out, char mark, unsigned char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  out += QLatin1Char(mark);
  out += QLatin1Char(kDigits[byte >> 4]);
  out += QLatin1Char(kDigits[byte & 15]);
}

bool StandsAsItIs(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// One level of a section, or a key; never empty, which QSettings would take away.
QString Name(std::string_view name) {
  if (name.empty()) return QStringLiteral("-");
  QString out;
  for (const char c : name) {
    if (StandsAsItIs(c)) {
      out += QLatin1Char(c);
    } else {
      AppendHex(out, '-', static_cast<unsigned char>(c));
    }
  }
  // QSettings has a group "General" of its own, which it knows under any letter case.
  if (out.compare(QLatin1String("general"), Qt::CaseInsensitive) != 0) return out;
  QString hidden;
  AppendHex(hidden, '-', static_cast<unsigned char>(name.front()));
  return hidden + out.mid(1);
}

bool IsLoneSurrogate(const QString& text, qsizetype at) {
  return text[at].isLowSurrogate() && (at == 0 || !text[at - 1].isHighSurrogate());
}

}  // namespace

QString Group(std::string_view section) {
  QString out;
  for (;;) {
    const std::size_t end = section.find('\\');
    out += Name(section.substr(0, end));
    if (end == section.npos) return out;
    out += QLatin1Char('.');
    section.remove_prefix(end + 1);
  }
}

QString Key(std::string_view section, std::string_view key) {
  return Group(section) + QLatin1Char('/') + Name(key);
}

QString Stored(std::string_view value) {
  const QString text = text::ToQt(value);
  QString out;
  out.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i].unicode();
    if (unit < 0x20 || unit == '%' || unit == 0x7F || IsLoneSurrogate(text, i)) {
      AppendHex(out, '%', static_cast<unsigned char>(unit & 0xFF));
    } else if (unit == 0xFEFF) {
      // In front of a text it would be taken for a byte order mark.
      out += QStringLiteral("%EF%BB%BF");
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string Restored(const QString& stored) {
  return QByteArray::fromPercentEncoding(stored.toUtf8()).toStdString();
}

}  // namespace settings_names
