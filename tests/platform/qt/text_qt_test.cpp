#include "platform/qt/text_qt.h"

#include <gtest/gtest.h>

TEST(TextQt, BringsEveryByteBack) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const std::string& name :
       {std::string(), std::string("Gra\u00E7a \xF0\x9F\xA5\x90.jpg"), std::string("cut\xC3"),
        std::string("\xED\xA0\x80\xC0\x80"), all}) {
    EXPECT_EQ(text::FromQt(text::ToQt(name)), name);
  }
}

TEST(TextQt, ShowsWhatNoFontHasAsAReplacementAndKeepsTheRest) {
  const struct {
    std::string_view name;
    const char* shown;
  } table[] = {
      {"a\nb\tc\x7F\xFFz", "a�b�c��z"},
      {"next\u0085line\u202Eleft", "next�line�left"},
      {"\U0001F950 a\u00A0b\u2027c", "\U0001F950 a\u00A0b\u2027c"},
      {"a\u200B\u200E\u200F\u061C\u2060\uFEFF\u2066\u2069z", "a��������z"},
      // Joiners: of a burning heart, a Persian and a Latin word, at the end of an Indic one.
      {"\u2764\uFE0F\u200D\U0001F525", "\u2764\uFE0F\u200D\U0001F525"},
      {"\u0645\u06CC\u200C\u062F a\u200Db", "\u0645\u06CC\u200C\u062F a\u200Db"},
      {"\u0D7B\u0D28\u0D4D\u200D.x", "\u0D7B\u0D28\u0D4D\u200D.x"},
      // Those that join nothing: at the ends, beside a blank or a dot, after one another.
      {"\u200Da\u200C", "�a�"},
      {"a\u200D b\u200C.x \u200Dc", "a� b�.x �c"},
      {"a\u200D\u200Cb\u200D\xFF", "a��b��"},
  };
  for (const auto& row : table) {
    const QString shown = text::Shown(row.name);
    EXPECT_EQ(shown, QString::fromUtf8(row.shown));
    EXPECT_EQ(shown.size(), text::ToQt(row.name).size()) << "marks stand at places of the text";
  }
  EXPECT_EQ(text::ShownLines("a\u202Eb\r\n\nc\td\n"), QStringLiteral("a�b\n\nc�d\n"));
}
