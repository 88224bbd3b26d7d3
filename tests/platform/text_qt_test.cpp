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

TEST(TextQt, ShowsBadBytesAndLineBreaksInOneLine) {
  EXPECT_EQ(text::Shown("a\xFFz\n"), QString::fromUtf8("a\xEF\xBF\xBDz\xE2\x90\x8A"));
  EXPECT_EQ(text::Shown("\xF0\x9F\xA5\x90"), QString::fromUtf8("\xF0\x9F\xA5\x90"));
}
