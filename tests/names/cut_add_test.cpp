#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "names/transform.h"
#include "support/failure_report.h"

namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// What becomes of `part`, behind another one: nothing may stay from part to part.
std::string Transformed(const TransformOptions& options, std::string_view part) {
  PartTransform transform(options, "Options");
  std::string name;
  transform.AppendTo("o", name);
  name.clear();
  transform.AppendTo(part, name);
  return name;
}

TransformOptions CutOf(std::int32_t mode, std::int32_t n, std::int32_t k, const char* text = "") {
  return {.Cut = mode, .CutN = n, .CutX = k, .CutText = text};
}

TransformOptions AddOf(std::int32_t mode, std::int32_t n, const char* text1, const char* text2) {
  return {.Add = mode, .AddN = n, .AddText1 = text1, .AddText2 = text2};
}

/// Expects `result` of "abcdef", and the same of six characters of many bytes in its place.
void Expect(const TransformOptions& options, std::string_view result) {
  constexpr const char* kFlag = "\U0001F1E9\U0001F1EA";
  constexpr const char* kPair = "\U0001F468\u200D\U0001F469";
  const auto translated = [&](std::string_view letters) {
    const char* const characters[] = {"e\u0301", kPair, "\xFF", kFlag, kFlag, "\u0416"};
    std::string t;
    for (const char c : letters) t += c == 'X' ? "X" : characters[c - 'a'];
    return t;
  };
  PartTransform transform(options, "Options");
  std::string names;
  for (const std::string& part : {translated("abcdef"), std::string("abcdef"), std::string()}) {
    transform.AppendTo(part, names);
    names += '|';
  }
  EXPECT_EQ(names, translated(result) + '|' + std::string(result) + "||")
      << options.Cut << ' ' << options.CutN << ' ' << options.CutX << ' ' << options.AddN;
}

}  // namespace

TEST(Cut, CountsCharactersWithinItsBoundsAndRemovesATextWhateverItsCase) {
  const struct {
    std::int32_t mode, n, k;
    const char* result;
  } table[] = {
      {2, 2, 0, "cdef"},  {2, 7, 0, ""},       {3, 2, 0, "abcd"},          {3, 7, 0, ""},
      {4, 2, 1, "adef"},  {4, 9, 1, "a"},      {4, 2, 6, "abcdef"},        {4, 1, 9, "abcdef"},
      {5, 2, 1, "abcf"},  {5, 9, 1, "f"},      {5, 2, 6, "abcdef"},        {5, 1, 9, "abcdef"},
      {6, 1, 2, "bcd"},   {6, 3, 3, ""},       {6, kMost, kMost, ""},      {6, 1, 9, ""},
      {7, 2, 0, "ab"},    {7, 0, 0, ""},       {7, 9, 0, "abcdef"},        {8, 2, 0, "ef"},
      {8, 0, 0, ""},      {8, 9, 0, "abcdef"}, {9, 1, 2, "aef"},           {9, 3, 3, "abcdef"},
      {9, 5, 0, "abcde"}, {9, 0, 1, "f"},      {9, kMost, kMost, "abcdef"}};
  for (const auto& row : table) Expect(CutOf(row.mode, row.n, row.k), row.result);
  EXPECT_EQ(Transformed(CutOf(1, 0, 0, "B\u0436"), "a\u0436b\u0416BB\u0436"), "a\u0436B");
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
  } table[] = {{1, 2, "Xabcdef"}, {2, 2, "abcdefX"}, {3, 2, "XabcdefX"},    {4, 2, "abXcdef"},
               {4, 0, "Xabcdef"}, {4, 6, "abcdefX"}, {4, kMost, "abcdefX"}, {5, 2, "abcdXef"},
               {5, 0, "abcdefX"}, {5, 6, "Xabcdef"}, {5, kMost, "Xabcdef"}};
  for (const auto& row : table) Expect(AddOf(row.mode, row.n, "X", "X"), row.result);
  EXPECT_EQ(Transformed(AddOf(3, 0, "X", "Y"), "a"), "XaY");
}

TEST(Transform, ChangesCaseThenCutsThenReplacesThenAdds) {
  // Each other order of the four gives another name.
  TransformOptions all{.Case = kCaseFirstUpper, .Replace1 = "a", .Replace2 = "xA"};
  all.Cut = 2, all.CutN = 1;
  all.Add = 1, all.AddText1 = "naA";
  EXPECT_EQ(Transformed(all, "abAab"), "naAbxAxAb");
}

TEST(Transform, ChangesTheLetterCaseOfTheWholePart) {
  const char* const table[][2] = {{"0aB\u00DF", "aB\u00DF"}, {"1aB\u00DF", "AB\u00DF"},
                                  {"2aB\u0416", "ab\u0436"}, {"3aBC.dEF gH", "Abc.def gh"},
                                  {"3e\u0301A", "E\u0301a"}, {"4aB cD e", "aB cD e"}};
  for (const auto& [mode_and_part, result] : table) {
    EXPECT_EQ(Transformed({.Case = mode_and_part[0] - '0'}, mode_and_part + 1), result);
  }
}

TEST(Transform, AStepIsInUseWhenItChangesAnything) {
  const auto expect = [](const TransformOptions& options, bool TransformSteps::*step) {
    const TransformSteps steps = StepsInUse(options);
    EXPECT_EQ(steps.*step, Transformed(options, "abcdef") != "abcdef")
        << options.Cut << ' ' << options.CutN << ' ' << options.CutX << ' ' << options.Add;
    EXPECT_LE(steps.cut + steps.replace + steps.add, 1) << "of no other step";
  };
  for (const char* text : {"", "B"}) {
    for (std::int32_t mode = 0; mode <= 10; ++mode) {
      for (int n = -1; n <= 2; ++n) {
        for (int k = -1; k <= 1; ++k) expect(CutOf(mode, n, k, text), &TransformSteps::cut);
      }
      expect(AddOf(mode, 1, text, ""), &TransformSteps::add);
      expect(AddOf(mode, 1, "", text), &TransformSteps::add);
    }
    expect({.Replace1 = text, .Replace2 = "x"}, &TransformSteps::replace);
  }
}
