#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "names/cut.h"
#include "names/transform.h"
#include "support/failure_report.h"

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

std::string Transformed(const ConstrItem& item, std::string_view part) {
  std::string name;
  PartTransform(item.transform).AppendTo(part, name);
  return name;
}

ConstrItem CutOf(std::int32_t mode, std::int32_t n, std::int32_t k) {
  ConstrItem item;
  item.transform.Cut = mode;
  item.transform.CutN = n;
  item.transform.CutX = k;
  return item;
}

ConstrItem AddOf(std::int32_t mode, std::int32_t n, const char* text1, const char* text2) {
  ConstrItem item;
  item.transform.Add = mode;
  item.transform.AddN = n;
  item.transform.AddText1 = text1;
  item.transform.AddText2 = text2;
  return item;
}

/// Six characters that stand for a to f.
std::string Translated(std::string_view letters) {
  static const std::string kCharacters[] = {"e\u0301",
                                            "\U0001F468\u200D\U0001F469",
                                            "\xFF",
                                            "\U0001F1E9\U0001F1EA",
                                            "\U0001F1EB\U0001F1F7",
                                            "\u0416"};
  std::string t;
  for (const char c : letters) t += c == 'X' ? "X" : kCharacters[c - 'a'];
  return t;
}

}  // namespace

TEST(Cut, CountsCharactersFromItsEdgeWithinItsBounds) {
  const struct {
    std::int32_t mode, n, k;
    const char* result;
  } table[] = {
      {2, 2, 0, "cdef"},    {2, 6, 0, ""},        {2, 0, 0, "abcdef"},  {2, -1, 0, "abcdef"},
      {3, 2, 0, "abcd"},    {3, 7, 0, ""},        {3, -1, 0, "abcdef"}, {4, 2, 1, "adef"},
      {4, 9, 1, "a"},       {4, 2, 6, "abcdef"},  {4, 0, 0, "abcdef"},  {4, 5, 1, "a"},
      {4, 1, 9, "abcdef"},  {4, -1, 2, "abcdef"}, {4, 2, -1, "cdef"},   {5, 2, 1, "abcf"},
      {5, 9, 1, "f"},       {5, 2, 6, "abcdef"},  {5, 0, 0, "abcdef"},  {5, 1, 9, "abcdef"},
      {5, -1, 2, "abcdef"}, {5, 2, -1, "abcd"},   {6, 1, 2, "bcd"},     {6, 3, 3, ""},
      {6, 6, 0, ""},        {6, 0, 0, "abcdef"},  {6, 9, 1, ""},        {6, 1, 9, ""},
      {6, -1, 2, "abcd"},   {6, 2, -1, "cdef"},   {7, 2, 0, "ab"},      {7, 0, 0, ""},
      {7, 9, 0, "abcdef"},  {7, -1, 0, ""},       {8, 2, 0, "ef"},      {8, 0, 0, ""},
      {8, 9, 0, "abcdef"},  {8, -1, 0, ""},       {9, 1, 2, "aef"},     {9, 3, 3, "abcdef"},
      {9, 6, 0, "abcdef"},  {9, 5, 0, "abcde"},   {9, 0, 0, ""},        {9, 0, 1, "f"},
      {9, 7, 9, "abcdef"},  {9, 1, 5, "abcdef"},  {9, 9, 1, "abcdef"},  {9, -1, 2, "ef"},
      {9, 2, -1, "ab"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(::testing::PrintToString(std::array{row.mode, row.n, row.k}));
    const ConstrItem item = CutOf(row.mode, row.n, row.k);
    EXPECT_EQ(Transformed(item, "abcdef"), row.result);
    EXPECT_EQ(Transformed(item, Translated("abcdef")), Translated(row.result));
    EXPECT_EQ(Transformed(item, ""), "");
  }
  EXPECT_EQ(Transformed(CutOf(6, kMost, kMost), "abc"), "");
  EXPECT_EQ(Transformed(CutOf(9, kMost, kMost), "abc"), "abc");
}

TEST(Cut, RemovesATextWhateverItsCase) {
  ConstrItem item = CutOf(1, 0, 0);
  item.transform.CutText = "B\u0436";
  EXPECT_EQ(Transformed(item, "a\u0436b\u0416B"), "a\u0436B");
  EXPECT_EQ(mCut::RemoveText("abcABC", "B"), "acAC");
}

TEST(Cut, FailsWhereTheSumOfBothIsTooLarge) {
  for (const std::int32_t mode : {4, 5}) {
    EXPECT_EQ(Transformed(CutOf(mode, kMost - 1, 1), "abc"), mode == 4 ? "a" : "c");
    EXPECT_EQ(Transformed(CutOf(mode, kMost, 1), "a"), "a") << "nothing to cut, so no sum";
    EXPECT_THAT(FailureReport([&] { Transformed(CutOf(mode, kMost, 1), "abc"); }),
                ::testing::HasSubstr("\r\n  Number: 6 = &H6 "));
  }
}

TEST(Add, PutsTheTextWhereToldAndAtTheFarEndBeyond) {
  const struct {
    std::int32_t mode, n;
    const char* result;
  } table[] = {{0, 2, "abcdef"},      {1, 2, "Xabcdef"},     {2, 2, "abcdefX"},  {3, 2, "XabcdefX"},
               {4, 2, "abXcdef"},     {4, 0, "Xabcdef"},     {4, -1, "Xabcdef"}, {4, 6, "abcdefX"},
               {4, kMost, "abcdefX"}, {5, 2, "abcdXef"},     {5, 0, "abcdefX"},  {5, -1, "abcdefX"},
               {5, 6, "Xabcdef"},     {5, kMost, "Xabcdef"}, {6, 2, "abcdef"}};
  for (const auto& row : table) {
    const ConstrItem item = AddOf(row.mode, row.n, "X", "X");
    EXPECT_EQ(Transformed(item, "abcdef"), row.result) << row.mode << ' ' << row.n;
    EXPECT_EQ(Transformed(item, Translated("abcdef")), Translated(row.result));
  }
  EXPECT_EQ(Transformed(AddOf(3, 0, "X", "Y"), "a"), "XaY");
}

TEST(Transform, ChangesCaseThenCutsThenReplacesThenAdds) {
  // Each other order of the four gives another name.
  ConstrItem item = AddOf(1, 0, "naA", "");
  item.transform.Case = kCaseFirstUpper;
  item.transform.Cut = 2;
  item.transform.CutN = 1;
  item.transform.Replace1 = "a";
  item.transform.Replace2 = "xA";
  EXPECT_EQ(Transformed(item, "abAab"), "naAbxAxAb");
}

TEST(Transform, ChangesTheLetterCaseOfTheWholePart) {
  const struct {
    std::int32_t mode;
    const char* part;
    const char* result;
  } table[] = {{0, "aB cD", "aB cD"},
               {1, "aB cD\u00DF", "AB CD\u00DF"},
               {2, "aB \u0416", "ab \u0436"},
               {3, "aB cD", "Ab cd"},
               {3, "aBC.dEF", "Abc.def"},
               {3, "e\u0301A", "E\u0301a"},
               {3, "1A", "1a"},
               {4, "aB", "aB"}};
  ConstrItem item;
  for (const auto& row : table) {
    item.transform.Case = row.mode;
    EXPECT_EQ(Transformed(item, row.part), row.result);
  }
}

TEST(Transform, AStepIsInUseWhenItChangesAnything) {
  const auto expect = [](const ConstrItem& item, bool TransformSteps::*step) {
    const TransformSteps steps = StepsInUse(item.transform);
    EXPECT_EQ(steps.*step, Transformed(item, "abcdef") != "abcdef")
        << item.transform.Cut << ' ' << item.transform.CutN << ' ' << item.transform.CutX
        << item.transform.CutText << ' ' << item.transform.Add << item.transform.AddText1
        << item.transform.AddText2;
    EXPECT_LE(steps.cut + steps.replace + steps.add, 1) << "of no other step";
  };
  for (const char* text : {"", "X"}) {
    for (std::int32_t mode = 0; mode <= 10; ++mode) {
      for (const std::int32_t n : {-1, 0, 1, 2}) {
        for (const std::int32_t k : {-1, 0, 1}) {
          ConstrItem cut = CutOf(mode, n, k);
          cut.transform.CutText = *text == '\0' ? "" : "B";
          expect(cut, &TransformSteps::cut);
        }
      }
      expect(AddOf(mode, 1, text, ""), &TransformSteps::add);
      expect(AddOf(mode, 1, "", text), &TransformSteps::add);
    }
    ConstrItem replace;
    replace.transform.Replace1 = *text == '\0' ? "" : "B";
    replace.transform.Replace2 = "x";
    expect(replace, &TransformSteps::replace);
  }
}
