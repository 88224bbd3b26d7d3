#include "platform/text_qt.h"

#include <gtest/gtest.h>

TEST(TextQt, BringsEveryByteBack) {
  const std::string_view table[] = {
      "",
      "plain.txt",
      "Gra\xC3\xA7"
      "a",
      "\xF0\x9F\xA5\x90.jpg",
      "bad\xFF\x80name",
      "cut\xC3",
      "\xED\xA0\x80",
      "\xC0\x80",
      "line\nbreak",
  };
  for (const std::string_view name : table) {
    EXPECT_EQ(text::FromQt(text::ToQt(name)), name);
  }
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(text::FromQt(text::ToQt(all)), all);
}

TEST(TextQt, ShowsWhatNoFontHasAsAReplacementAndKeepsTheRest) {
  const struct {
    std::string_view name;
    const char* shown;
  } table[] = {
      {"a\xFFz", "a�z"},
      {"a\nb\tc\x7F", "a�b�c�"},
      {"next\u0085line", "next�line"},
      {"right\u202Eleft", "right�left"},
      {"\U0001F950 a\u00A0b\u2027c", "\U0001F950 a\u00A0b\u2027c"},
  };
  for (const auto& row : table) EXPECT_EQ(text::Shown(row.name), QString::fromUtf8(row.shown));
}
