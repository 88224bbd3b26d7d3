#include "platform/text.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

TEST(Text, NeverTearsACharacter) {
  const std::vector<std::string> table[] = {
      {},
      {"a", "\r\n", "b", "\r", "c", "\n", "\r"},
      {"e\u0301", "t", "o\u0302\u0323", "x"},               // accents on their own, two marks
      {"\U0001F468\u200D\U0001F469\u200D\U0001F467", "1"},  // a family joined by ZWJ
      {"\U0001F44D\U0001F3FD", "\u2764\uFE0F"},             // skin tone, variation selector
      {"\U0001F1E9\U0001F1EA", "\U0001F1EB\U0001F1F7", "\U0001F1EA"},  // flags, and half a one
      {"\u1112\u1161\u11AB", "\uD55C"},                                // Hangul in pieces and whole
      {"\xFF", "\x80", "a", "\xC3", "\xC3\xA9", "\xED", "\xA0", "\x80"},  // cut short, a surrogate
      {"\xC0", "\xAF", "\xF4", "\x90", "\x80", "\x80"},  // overlong, beyond the last one
      {"\xFF", "\u0301", "\xE2", "\x82"},                // a mark on a bad byte
  };
  for (const auto& characters : table) {
    std::string t;
    for (const std::string& character : characters) t += character;
    SCOPED_TRACE(t);
    EXPECT_EQ(text::Length(t), characters.size());
    std::size_t at = 0, n = 0;
    for (const std::string& character : characters) {
      EXPECT_EQ(text::Left(t, n), t.substr(0, at));
      EXPECT_EQ(text::Right(t, characters.size() - n++), t.substr(at));
      EXPECT_EQ(text::NextCharacter(t, at), at + character.size());
      at += character.size();
    }
    for (const std::size_t all : {n, n + 1}) EXPECT_EQ(text::Left(t, all), t);
  }
}

TEST(Text, MapsCaseOneToOne) {
  const char* const table[][3] = {
      {"@AZ[`az{", "@AZ[`AZ{", "@az[`az{"},
      {"Stra\u00DFe", "STRA\u00DFE", "stra\u00DFe"},
      {"\u03A3\u03AF\u03C3\u03C5\u03C6\u03BF\u03C2", "\u03A3\u038A\u03A3\u03A5\u03A6\u039F\u03A3",
       "\u03C3\u03AF\u03C3\u03C5\u03C6\u03BF\u03C2"},
      {"\u0130I\u0131i", "\u0130III", "ii\u0131i"},
      {"\u01C6\U00010428\u023A", "\u01C4\U00010400\u023A", "\u01C6\U00010428\u2C65"},
      {"a\xFF\xC3z\xE9", "A\xFF\xC3Z\xE9", "a\xFF\xC3z\xE9"}};
  for (const auto& [given, upper, lower] : table) {
    EXPECT_EQ(text::ToUpper(given), upper);
    EXPECT_EQ(text::ToLower(given), lower);
    EXPECT_TRUE(text::EqualIgnoringCase(given, lower)) << given;
    EXPECT_FALSE(text::EqualIgnoringCase(given, std::string(given) + "a")) << given;
  }
  EXPECT_FALSE(text::EqualIgnoringCase("\xC9", "\xE9")) << "bytes that are no letters";
  EXPECT_TRUE(text::EqualIgnoringCase("\u212A", "k"));
}

TEST(Text, ReplacesWholeCharactersWithoutRegardToCase) {
  const char* const table[][4] = {
      {"AbA", "a", "aa", "aabaa"},
      {"aaa", "AA", "b", "ba"},
      {"abc", "", "x", "abc"},
      {"aab", "ab", "", "a"},
      {"\u00C4pfel", "\u00E4P", "Xx", "Xxfel"},
      {"stra\u00DFe", "ss", "x", "stra\u00DFe"},
      {"re\u0301sume\u0301", "e", "x", "re\u0301sume\u0301"},
      {"re\u0301sume", "E\u0301S", "_", "r_ume"},
      {"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", "\U0001F1EA\U0001F1EB", "x",
       "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"},
      {"a\xFF\xFE", "\xFF", "x", "ax\xFE"},
      {"a\r\nb", "\n", "x", "a\r\nb"},
      {"5\u212A", "k", "kg", "5kg"},
      {"5k", "\u212A", "K", "5K"},
      {"\u0130x", "i", "y", "yx"}};
  for (const auto& [t, find, replacement, result] : table) {
    EXPECT_EQ(text::ReplaceIgnoringCase(t, find, replacement), result) << t << " / " << find;
  }
}

TEST(Text, TrimsBlanksOnlyAndSplitsKeepingEmptyPieces) {
  EXPECT_EQ(text::Trim("  a b\t "), "a b\t");
  EXPECT_EQ(text::Trim("\u00A0 "), "\u00A0");
  EXPECT_EQ(text::Trim("   "), "");
  EXPECT_TRUE(text::Split("", ".").empty());
  EXPECT_THAT(text::Split(".a..", "."), ElementsAre("", "a", "", ""));
  EXPECT_THAT(text::Split("a---b", "--"), ElementsAre("a", "-b"));
  EXPECT_THAT(text::Split("ab", ""), ElementsAre("ab"));
}
